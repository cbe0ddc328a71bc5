// From the start of the process to the first painted page, compared with the smallest program of the same
// toolkit that shows an empty main window: wall time and peak memory, as ratios of interleaved runs. The file
// shown is a sparse one of the greatest length. Without a display, the offscreen platform is measured.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QTableView>

#include "app/forms/application.h"
#include "app/forms/main_form.h"
#include "interleaved.h"
#include "viewer/view_file.h"

namespace {

// The descriptor on which the child reports that it has painted.
constexpr int kPaintedDescriptor = 3;

// Reports that the widget has been painted, and ends the process.
class EndAfterPaint : public QObject {
 public:
  explicit EndAfterPaint(QWidget& widget) { widget.installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    return false;
  }

 protected:
  // Once the painting is over.
  void customEvent(QEvent* /*event*/) override {
    const char painted = 1;
    std::_Exit(write(kPaintedDescriptor, &painted, 1) == 1 ? 0 : 1);
  }
};

int ShowEmptyWindow(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  window.resize(1200, 640);
  const EndAfterPaint end(window);
  window.show();
  return QApplication::exec();
}

int ShowPage(int argc, char** argv, const std::string& path) {
  bwp::Application application(argc, argv);
  bwp::MainForm form("/nonexistent/");
  form.Start(path);
  const EndAfterPaint end(*form.findChild<QTableView*>(QStringLiteral("tabe"))->viewport());
  form.show();
  return QApplication::exec();
}

struct Run {
  double milliseconds;
  double kibibytes;
};

Run RunSelf(const char* self, const char* mode, const std::string& path) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) std::abort();
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    if (ends[1] == kPaintedDescriptor) fcntl(ends[1], F_SETFD, 0);
    dup2(ends[1], kPaintedDescriptor);
    execl(self, self, mode, path.c_str(), nullptr);
    std::_Exit(127);
  }
  close(ends[1]);
  char painted = 0;
  const ssize_t got = read(ends[0], &painted, 1);
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  close(ends[0]);
  int status = 0;
  rusage usage = {};
  wait4(child, &status, 0, &usage);
  if (got != 1 || !WIFEXITED(status) || WEXITSTATUS(status) != 0) std::fprintf(stderr, "%s failed\n", mode);
  return {taken.count(), static_cast<double>(usage.ru_maxrss)};
}

int Compare(const char* self, const std::string& path) {
  constexpr int kRuns = 81;  // medians of fewer differ by several hundredths
  std::vector<double> emptyTime, emptyMemory, pageTime, pageMemory;
  for (int run = -1; run < kRuns; ++run) {
    const Run empty = RunSelf(self, "--empty", path);
    const Run page = RunSelf(self, "--page", path);
    if (run < 0) continue;  // the first pair warms the caches
    emptyTime.push_back(empty.milliseconds);
    emptyMemory.push_back(empty.kibibytes);
    pageTime.push_back(page.milliseconds);
    pageMemory.push_back(page.kibibytes);
  }
  const auto row = [](const char* what, double page, double empty, double limit) {
    std::printf("%-48s %10.1f %10.1f\n", what, page, empty);
    bench::Row(what, bench::Number(page / empty), "", bench::AtMost(limit));
  };
  std::printf("%-48s %10s %10s\n", "median of interleaved runs", "bytewarp", "empty");
  row("time to the first page / an empty window", bench::Median(pageTime), bench::Median(emptyTime), 1.25);
  row("peak memory / an empty window", bench::Median(pageMemory), bench::Median(emptyMemory), 1.15);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string mode = argc > 1 ? argv[1] : "";
  if (std::getenv("DISPLAY") == nullptr) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (mode == "--empty") return ShowEmptyWindow(argc, argv);
  if (mode == "--page") return ShowPage(argc, argv, argv[2]);

  std::string path = "/var/tmp/bytewarp-bench-XXXXXX";
  const int file = mkstemp(path.data());
  if (file < 0 || ftruncate(file, bwp::kMaxFileLength) != 0) return 1;
  close(file);
  const int result = Compare(argv[0], path);
  unlink(path.c_str());
  return result;
}
