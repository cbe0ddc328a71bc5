// Whole jobs on a large file in the page cache: a save compared with cp onto an existing file, a cut and an
// insert compared with cp to a new name that then takes the old file's place; interleaved, on one file
// system, all with the final sync or all without. Prints the copy's time over the job's (the target is at
// least 0.9) and the most memory that a job took above what the program held before it, not counting the
// Buffer (at most 8 MiB).
//
//   rewrite_bench [FOLDER [MEBIBYTES [RUNS [sync|nosync]]]]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

#include "big_file.h"
#include "fileops/buffer_operations.h"
#include "fileops/save.h"
#include "interleaved.h"
#include "memory.h"
#include "nobody.h"
#include "other_program.h"
#include "viewer/open_view_file.h"

namespace {

constexpr std::int64_t kMebibyte = 1'048'576;

class NoSync : public bwp::Disk {
 public:
  int Sync(int /*descriptor*/) const override { return 0; }
};

void Shell(const std::string& command) {
  bench::MustRun({"sh", "-c", command});
}

class Bench {
 public:
  Bench(const std::string& folder, std::int64_t mebibytes, int runs, bool sync)
      : data_(mebibytes * kMebibyte, bench::FillMixed, folder),
        copy_(data_.Path() + ".copy"),
        runs_(runs),
        sync_(sync) {
    setenv("TMPDIR", folder.c_str(), 1);
    OpenViewFile(state_, data_.Path());
  }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;
  ~Bench() { unlink(copy_.c_str()); }

  void All() {
    Copy();
    // The rounds take the jobs in changing order, and an insert may come first: it needs a full Buffer.
    Cut(kMebibyte);
    const std::string title = data_.Path() + ", " + std::to_string(state_.FLen / kMebibyte) + " MiB, " +
                              (sync_ ? "synced" : "not synced");
    const std::vector<bench::Job> jobs = bench::RunInterleaved(title,
                                                               {{"cp", [this] { Copy(); }},
                                                                {"save", [this] { Save(); }},
                                                                {"cp, mv", [this] { CopyBeside(); }},
                                                                {"cut", [this] { Cut(kMebibyte); }},
                                                                {"insert", [this] { Insert(); }}},
                                                               runs_);
    Report(jobs[1], jobs[0]);
    Report(jobs[3], jobs[2]);
    Report(jobs[4], jobs[2]);
    Cut(state_.FLen / 2);
    // Also with a Buffer of half the file.
    bench::Row("cut, insert, save: memory above idle but the Buffer", bench::Number(peak_, " MiB"), "",
               bench::AtMost(8, " MiB"));
  }

 private:
  void Report(const bench::Job& job, const bench::Job& copy) const {
    bench::SpeedRow(job.name + (sync_ ? ", synced / cp, sync" : ", no sync / cp"), job, copy,
                    bench::AtLeast(0.9));
  }

  void Copy() const {
    Shell("cp '" + data_.Path() + "' '" + copy_ + "'" + (sync_ ? " && sync '" + copy_ + "'" : ""));
  }

  // Completes the new file before the old one goes, as a cut and an insert do.
  void CopyBeside() const {
    const std::string part = copy_ + ".part";
    Shell("cp '" + data_.Path() + "' '" + part + "'" + (sync_ ? " && sync '" + part + "'" : "") +
          " && mv -f '" + part + "' '" + copy_ + "'");
  }

  void Cut(std::int64_t bytes) {
    state_.MarkStart = state_.FLen / 3;
    state_.MarkEnd = state_.MarkStart + bytes - 1;
    std::string().swap(state_.BufferData);
    Watched([&] { CutChunk(state_, services_); });
  }

  void Insert() {
    Watched([&] { InsertBuffer(state_, services_, "bms"); });
  }

  void Save() {
    Watched([&] {
      SaveChunk(state_, services_, copy_);
      if (sync_) Shell("sync '" + copy_ + "'");
    });
  }

  // Records the most that any job took: its peak, less what the program held before it and the Buffer it
  // filled.
  void Watched(const std::function<void()>& job) {
    const auto bufferBefore = static_cast<std::int64_t>(state_.BufferData.size());
    const bench::IdleMemory idle;
    job();
    const std::int64_t grown = static_cast<std::int64_t>(state_.BufferData.size()) - bufferBefore;
    peak_ = std::max(peak_, idle.MostAbove() - static_cast<double>(grown) / kMebibyte);
  }

  bench::BigFile data_;
  std::string copy_;
  int runs_;
  bool sync_;
  double peak_ = 0;  // MiB
  bwp::ViewState state_;
  bench::NoDisplay display_;
  bench::NoProgress progress_;
  bench::NoNotices notices_;
  bwp::Disk disk_;
  NoSync noSync_;
  bwp::Services services_{display_, progress_, notices_, sync_ ? disk_ : noSync_};
};

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const auto at = [&](std::size_t index, const char* other) {
    return index < arguments.size() ? arguments[index] : other;
  };
  Bench(at(0, "/var/tmp"), std::atoll(at(1, "1024").c_str()), std::atoi(at(2, "7").c_str()),
        at(3, "sync") == "sync")
      .All();
}
