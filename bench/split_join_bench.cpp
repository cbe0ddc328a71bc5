// Splitting a page-cached file and joining its parts, with the progress window up, compared with `split -b`
// and `cat` of the same parts in interleaved rounds; and what one step of the slider costs at 1000 parts. The
// first argument is the length of the file in MiB (default 1024), the second the number of rounds (default
// 7).

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <QApplication>
#include <QImage>

#include "big_file.h"
#include "fileops/forms/progform.h"
#include "interleaved.h"
#include "nobody.h"
#include "other_program.h"
#include "splitjoin/forms/divide.h"
#include "splitjoin/split_join_worker.h"
#include "viewer/number_text.h"
#include "viewer/open_view_file.h"

namespace {

namespace fs = std::filesystem;
using bench::MustRun;

class NoWindows : public bwp::SplitJoinWindows {
  void HideDivide() override {}
  void HideFsel() override {}
  void HideFjoin() override {}
};

// A folder for the parts. Its path has no digit in it, which would be taken for the start of their number.
class PartsFolder {
 public:
  PartsFolder() {
    fs::remove_all(path_);
    fs::create_directories(path_);
  }
  PartsFolder(const PartsFolder&) = delete;
  PartsFolder& operator=(const PartsFolder&) = delete;
  ~PartsFolder() { fs::remove_all(path_); }
  const std::string& Path() const { return path_; }
  std::vector<std::string> Files(const std::string& stem) const {
    std::vector<std::string> files;
    for (const auto& entry : fs::directory_iterator(path_)) {
      if (entry.path().filename().string().starts_with(stem)) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
  }
  void Remove(const std::string& stem) const {
    for (const std::string& file : Files(stem)) fs::remove(file);
  }

 private:
  const std::string path_ = "/var/tmp/bytewarp-split-bench/";
};

// The worker as the program uses it; of the windows, only the progress window is real.
class Tool {
 public:
  Tool(const bench::BigFile& file, std::int64_t length) : file_(file) {
    state_.LastFolder = folder_.Path();
    partSize_ = std::max<std::int64_t>(1, length / 10);
  }

  void Measure(int rounds) {
    const auto splits = bench::RunInterleaved(
        "splitting", {{"split -b", [this] { SplitByOther(); }}, {"split", [this] { SplitAndRemove(); }}},
        rounds);
    bench::TimeRow("time of split / split -b", splits[1], splits[0], bench::AtMost(1.1));
    Split();
    const auto joins = bench::RunInterleaved(
        "joining", {{"cat", [this] { JoinByOther(); }}, {"join", [this] { JoinAndRemove(); }}}, rounds);
    bench::TimeRow("time of join / cat", joins[1], joins[0], bench::AtMost(1.1));
    Join();
    MustRun({"cmp", file_.Path(), Result()});
  }

 private:
  std::string Result() const { return folder_.Path() + "result"; }

  void Split() {
    bwp::OpenViewFile(state_, file_.Path());
    plan_.EnterDecimalSize(std::to_string(partSize_));
    job_ = {true, bwp::kSplitAction, folder_.Path() + "part", {}};
    worker_.Tick();
  }
  void SplitAndRemove() {
    Split();
    folder_.Remove("part");
  }
  void SplitByOther() const {
    MustRun(
        {"split", "-d", "-a", "3", "-b", std::to_string(partSize_), file_.Path(), folder_.Path() + "base."});
    folder_.Remove("base");
  }

  void Join() {
    job_ = {true, bwp::kJoinAction, "\"part.000\"", Result()};
    worker_.Tick();
  }
  // A deleted file keeps its bytes while it is open. It is closed first, so that both jobs pay for freeing
  // them.
  void JoinAndRemove() {
    Join();
    state_.file.Close();
    folder_.Remove("result");
  }
  void JoinByOther() const {
    std::vector<std::string> words = folder_.Files("part");
    words.insert(words.begin(), "cat");
    MustRun(words, folder_.Path() + "joined");
    folder_.Remove("joined");
  }

  const bench::BigFile& file_;
  const PartsFolder folder_;
  std::int64_t partSize_ = 0;
  bench::NoDisplay display_;
  bench::NoNotices notices_;
  NoWindows windows_;
  const bwp::Disk disk_;
  bwp::Progform progress_{nullptr};
  bwp::ViewState state_;
  bwp::SplitPlan plan_{state_};
  bwp::SplitJoinJob job_;
  bwp::SplitJoinWorker worker_{state_, {display_, progress_, notices_, disk_}, plan_, job_, windows_};
};

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
  std::int64_t partSize = state.FLen / 1000;
  bench::Job step{"step", [&] {
                    plan.ReleaseSlider(partSize--);
                    QEvent activation(QEvent::WindowActivate);  // shows the plan
                    QApplication::sendEvent(&form, &activation);
                    form.render(&picture);
                  }};
  for (int i = 0; i < 101; ++i) step.RunOnce();
  bench::Row("plan and draw 1000 boxes", bench::Number(1000 * bench::Median(step.seconds), " ms"),
             bench::Number(1000 * bench::Median(step.processor), " ms"), bench::AtMost(5, " ms"));
}

}  // namespace

int main(int argc, char** argv) {
  if (std::getenv("DISPLAY") == nullptr) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  MeasurePlan();
  const std::int64_t length = bench::LengthFrom(argc, argv);
  const bench::BigFile file(length, bench::FillMixed);
  Tool(file, length).Measure(bench::RoundsFrom(argc, argv));
  return 0;
}
