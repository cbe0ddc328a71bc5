// Whole jobs on a large file that is in the page cache: a save beside cp onto a file that is there, a cut and
// an insert beside cp to a new name that then takes the old file's place; interleaved runs on one file
// system, all with the final sync or all without. Prints the medians, the copy's time over the job's (0.9 and
// more is wanted) and the most memory that a job took above what the program had before it, the Buffer apart
// (8 MiB at most are wanted).
//
//   rewrite_bench [FOLDER [MEBIBYTES [RUNS [sync|nosync]]]]

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "fileops/buffer_operations.h"
#include "fileops/save.h"
#include "interleaved.h"
#include "memory.h"
#include "viewer/open_view_file.h"

namespace {

constexpr std::int64_t kMebibyte = 1'048'576;

class NoSync : public bwp::Disk {
 public:
  int Sync(int /*descriptor*/) const override { return 0; }
};

struct Nobody : bwp::Display, bwp::Progress, bwp::Notices {
  void SetRedraw(bool /*on*/) override {}
  void MoveThumb() override {}
  void ShowTitle(const std::string& /*title*/) override {}
  void ShowRuler(bool /*hex*/) override {}
  void ShowWindowTexts(const bwp::WindowTexts& /*texts*/) override {}
  void ShowChunkTexts(const bwp::ChunkTexts& /*texts*/) override {}
  void FocusGridIfEnabled() override {}
  void NextFrame() override {}
  void SetCaption(const std::string& /*caption*/) override {}
  void SetLabel(const std::string& label) override { label_ = label; }
  std::string Label() const override { return label_; }
  void SetBar(float /*percent*/) override {}
  void Show() override {}
  void Hide() override {}
  void LetEventsRun() override {}
  bool Aborted() const override { return false; }
  void ClearAbort() override {}
  void Tell(const std::string& /*text*/, const std::string& /*title*/, Icon /*icon*/) override {}
  bool Ask(const std::string& /*question*/) override { return true; }

 private:
  std::string label_;
};

void Run(const std::string& command) {
  if (std::system(command.c_str()) != 0) {
    std::fprintf(stderr, "failed: %s\n", command.c_str());
    std::exit(1);
  }
}

struct Times {
  std::vector<double> elapsed, processor;

  void Take(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    const double spent = bench::ProcessorSeconds();
    work();
    elapsed.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    processor.push_back(bench::ProcessorSeconds() - spent);
  }
};

class Bench {
 public:
  Bench(std::string folder, std::int64_t mebibytes, int runs, bool sync)
      : folder_(std::move(folder)),
        data_(folder_ + "/bytewarp-bench-data"),
        copy_(folder_ + "/bytewarp-bench-copy"),
        runs_(runs),
        sync_(sync) {
    setenv("TMPDIR", folder_.c_str(), 1);
    Run("head -c " + std::to_string(mebibytes) + "M /dev/urandom > '" + data_ + "'");
    OpenViewFile(state_, data_);
  }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;
  ~Bench() {
    std::remove(data_.c_str());
    std::remove(copy_.c_str());
  }

  void All() {
    std::printf("%s, %lld MiB, %d runs, %s sync\n", folder_.c_str(),
                static_cast<long long>(state_.FLen / kMebibyte), runs_, sync_ ? "with" : "without");
    Times cut, insert, save, over, beside;
    Copy();
    for (int run = 0; run < runs_; ++run) {
      over.Take([&] { Copy(); });
      save.Take([&] { Save(); });
      beside.Take([&] { CopyBeside(); });
      cut.Take([&] { Cut(kMebibyte); });
      beside.Take([&] { CopyBeside(); });
      insert.Take([&] { Insert(); });
    }
    Report("save", save, over);
    Report("cut", cut, beside);
    Report("insert", insert, beside);
    Cut(state_.FLen / 2);
    // Also with a Buffer of half the file.
    bench::Row("cut, insert, save: memory above idle but the Buffer", bench::Number(peak_, " MiB"), "",
               bench::AtMost(8, " MiB"));
  }

 private:
  void Report(const std::string& name, const Times& job, const Times& copy) const {
    const double elapsed = bench::Median(job.elapsed);
    const double copied = bench::Median(copy.elapsed);
    std::printf("  %-7s %.3f s, its copy %.3f s\n", name.c_str(), elapsed, copied);
    bench::Row(name + (sync_ ? ", synced / cp, sync" : ", no sync / cp"), bench::Number(copied / elapsed),
               bench::Number(bench::Median(copy.processor) / bench::Median(job.processor)),
               bench::AtLeast(0.9));
  }

  void Copy() const { Run("cp '" + data_ + "' '" + copy_ + "'" + (sync_ ? " && sync '" + copy_ + "'" : "")); }

  // The new file complete before the old one goes, as a cut and an insert have it.
  void CopyBeside() const {
    const std::string part = copy_ + ".part";
    Run("cp '" + data_ + "' '" + part + "'" + (sync_ ? " && sync '" + part + "'" : "") + " && mv -f '" +
        part + "' '" + copy_ + "'");
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
      if (sync_) Run("sync '" + copy_ + "'");
    });
  }

  // Keeps the most that any job took: its peak less what the program held before it and the Buffer it made.
  void Watched(const std::function<void()>& job) {
    const auto bufferBefore = static_cast<std::int64_t>(state_.BufferData.size());
    const bench::IdleMemory idle;
    job();
    const std::int64_t grown = static_cast<std::int64_t>(state_.BufferData.size()) - bufferBefore;
    peak_ = std::max(peak_, idle.MostAbove() - static_cast<double>(grown) / kMebibyte);
  }

  std::string folder_, data_, copy_;
  int runs_;
  bool sync_;
  double peak_ = 0;  // MiB
  bwp::ViewState state_;
  Nobody nobody_;
  bwp::Disk disk_;
  NoSync noSync_;
  bwp::Services services_{nobody_, nobody_, nobody_, sync_ ? disk_ : noSync_};
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
