// Splitting a page-cached file and joining its parts, with the progress window up, beside `split -b` and
// `cat` of the same parts in interleaved rounds; and what one step of the slider costs at 1000 parts. An
// argument gives the file's length in MiB instead of 1024.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <QApplication>
#include <QImage>

#include "fileops/forms/progform.h"
#include "interleaved.h"
#include "splitjoin/forms/divide.h"
#include "splitjoin/split_join_worker.h"
#include "viewer/number_text.h"
#include "viewer/open_view_file.h"

namespace {

namespace fs = std::filesystem;
using bench::Median;

constexpr std::int64_t kMebibyte = 1 << 20;
constexpr int kRounds = 7;

class NoDisplay : public bwp::Display {
  void SetRedraw(bool /*on*/) override {}
  void MoveThumb() override {}
  void ShowTitle(const std::string& /*title*/) override {}
  void ShowRuler(bool /*hex*/) override {}
  void ShowWindowTexts(const bwp::WindowTexts& /*texts*/) override {}
  void ShowChunkTexts(const bwp::ChunkTexts& /*texts*/) override {}
  void FocusGridIfEnabled() override {}
  void LetEventsRun() override {}
  void NextFrame() override {}
};

class NoNotices : public bwp::Notices {
  void Tell(const std::string& /*text*/, const std::string& /*title*/, Icon /*icon*/) override {}
  bool Ask(const std::string& /*question*/) override { return true; }
};

class NoWindows : public bwp::SplitJoinWindows {
  void HideDivide() override {}
  void HideFsel() override {}
  void HideFjoin() override {}
};

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// Throws when the command fails: what is measured then is worth nothing.
void Shell(const std::string& command) {
  const pid_t child = fork();
  if (child == 0) {
    execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    std::_Exit(127);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child || status != 0) throw std::runtime_error("failed: " + command);
}

// A folder whose path holds no digit, with a source file of random bytes in it.
class Workplace {
 public:
  explicit Workplace(std::int64_t mebibytes) {
    fs::create_directories(folder_);
    Shell("head -c " + std::to_string(mebibytes * kMebibyte) + " /dev/urandom > " + Source());
  }
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;
  ~Workplace() { fs::remove_all(folder_); }
  const std::string& Folder() const { return folder_; }
  std::string Source() const { return folder_ + "source"; }
  void Remove(const std::string& pattern) const { Shell("rm -f " + folder_ + pattern); }

 private:
  const std::string folder_ = "/var/tmp/bytewarp-split-bench/";
};

void Report(const char* what, const std::vector<double>& ours, const std::vector<double>& theirs) {
  std::printf("%-28s %8.0f ms %8.0f ms\n", what, Median(ours), Median(theirs));
  bench::Row(what, bench::Number(Median(ours) / Median(theirs)), "", bench::AtMost(1.1));
}

void MeasureJobs(std::int64_t mebibytes) {
  const Workplace place(mebibytes);
  NoDisplay display;
  NoNotices notices;
  NoWindows windows;
  const bwp::Disk disk;
  bwp::Progform progress(nullptr);
  bwp::ViewState state;
  state.LastFolder = place.Folder();
  bwp::SplitPlan plan(state);
  bwp::SplitJoinJob job;
  bwp::SplitJoinWorker worker(state, {display, progress, notices, disk}, plan, job, windows);

  const std::int64_t partSize = std::max<std::int64_t>(1, mebibytes / 10) * kMebibyte;
  std::vector<double> split, splitBase, join, joinBase;
  for (int round = 0; round < kRounds; ++round) {
    bwp::OpenViewFile(state, place.Source());
    plan.EnterDecimalSize(std::to_string(partSize));
    splitBase.push_back(Milliseconds([&] {
      Shell("split -d -a 3 -b " + std::to_string(partSize) + " " + place.Source() + " " + place.Folder() +
            "base.");
    }));
    place.Remove("base.*");
    job = {true, bwp::kSplitAction, place.Folder() + "part", {}};
    split.push_back(Milliseconds([&] { worker.Tick(); }));
    joinBase.push_back(
        Milliseconds([&] { Shell("cat " + place.Folder() + "part.* > " + place.Folder() + "joined"); }));
    place.Remove("joined");
    job = {true, bwp::kJoinAction, "\"part.000\"", place.Folder() + "result"};
    join.push_back(Milliseconds([&] { worker.Tick(); }));
    if (round == 0) Shell("cmp " + place.Source() + " " + place.Folder() + "result");
    state.file.Close();
    place.Remove("result");
    place.Remove("part.*");
  }
  Report("time of split / split -b", split, splitBase);
  Report("time of join / cat", join, joinBase);
}

void MeasurePlan() {
  bwp::ViewState state;
  state.OpenFile = "planned";
  state.FLen = bwp::kMaxFileLength;
  bwp::SplitPlan plan(state);
  bwp::Divide form(plan, nullptr);
  form.resize(1200, 600);
  form.Start();
  QApplication::processEvents();
  QImage picture(form.size(), QImage::Format_ARGB32_Premultiplied);
  std::vector<double> times;
  for (int i = 0; i < 101; ++i) {
    times.push_back(Milliseconds([&] {
      plan.ReleaseSlider(state.FLen / 1000 - i);
      QEvent activation(QEvent::WindowActivate);  // shows the plan
      QApplication::sendEvent(&form, &activation);
      form.render(&picture);
    }));
  }
  bench::Row("plan and draw 1000 boxes", bench::Number(Median(times), " ms"), "", bench::AtMost(5, " ms"));
}

}  // namespace

int main(int argc, char** argv) {
  if (std::getenv("DISPLAY") == nullptr) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  try {
    MeasurePlan();
    MeasureJobs(argc > 1 ? std::max(1L, std::atol(argv[1])) : 1024);
  } catch (const std::runtime_error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
