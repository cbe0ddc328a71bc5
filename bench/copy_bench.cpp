// Copying a file through the streams, compared with cp of the same file on the same file system, neither with
// a final sync; the share of the progress window in such a copy; and how much memory a copy takes above idle.
// The first argument is the length of the file in MiB (default 1024), the second the number of rounds
// (default 7).

#include <unistd.h>

#include <QApplication>

#include "big_file.h"
#include "fileops/file_system.h"
#include "fileops/forms/progform.h"
#include "interleaved.h"
#include "memory.h"
#include "nobody.h"
#include "other_program.h"

namespace {

using bench::BigFile;
using FileSystem::ReadStream;
using FileSystem::WriteStream;

// A disk that cannot copy by itself, so that the streams read and write.
class PlainDisk : public bwp::Disk {
 public:
  ssize_t CopyRange(int /*from*/, int /*to*/, std::size_t /*count*/) const override { return 0; }
};

// The window, with a stopwatch on what every step of a copy asks of it. Two equal copies differ by several
// per cent; what they spend here does not.
class TimedProgress : public bench::NoProgress {
 public:
  explicit TimedProgress(bwp::Progress& window) : window_(window) {}
  void SetBar(float percent) override {
    Time([&] { window_.SetBar(percent); });
  }
  void LetEventsRun() override {
    Time([&] { window_.LetEventsRun(); });
  }
  bool Aborted() const override { return window_.Aborted(); }

  double seconds = 0;

 private:
  void Time(const std::function<void()>& call) { seconds += bench::Seconds(call); }

  bwp::Progress& window_;
};

void Copy(bwp::Progress& progress, const bwp::Disk& disk, const std::string& from, const std::string& to,
          std::int64_t length) {
  ReadStream source(from);
  WriteStream destination(disk, to);
  FileSystem::StreamCopy(progress, source, destination, length);
  destination.Close();
}

void Skip(bwp::Progress& progress, const std::string& from, std::int64_t length) {
  ReadStream source(from);
  FileSystem::StreamSkip(progress, source, length);
}

}  // namespace

int main(int argc, char** argv) {
  if (std::getenv("DISPLAY") == nullptr) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const std::int64_t length = bench::LengthFrom(argc, argv);
  const int rounds = bench::RoundsFrom(argc, argv);
  const BigFile file(length, bench::FillMixed);
  const std::string target = file.Path() + ".copy";
  const bwp::Disk disk;
  const PlainDisk plain;
  bench::NoProgress nobody;
  bwp::Progform window(nullptr);
  const auto anew = [&](const std::function<void()>& copy) {
    return [&target, copy] {
      copy();
      unlink(target.c_str());
    };
  };
  const auto copy = [&](bwp::Progress& progress, const bwp::Disk& by) {
    return anew([&] { Copy(progress, by, file.Path(), target, length); });
  };
  const auto copies = bench::RunInterleaved("copying",
                                            {{"cp", anew([&] {
                                                bench::MustRun({"cp", file.Path(), target});
                                              })},
                                             {"StreamCopy", copy(nobody, disk)},
                                             {"StreamCopy, reading and writing", copy(nobody, plain)},
                                             {"StreamSkip", [&] { Skip(nobody, file.Path(), length); }}},
                                            rounds);
  bench::SpeedRow("copy / cp", copies[1], copies[0], bench::AtLeast(0.9));
  bench::SpeedRow("copy by reading and writing / cp", copies[2], copies[0], "");

  window.SetLabel("Copying from  0 to MarkStart-1");
  window.Show();
  QCoreApplication::processEvents();
  const bench::IdleMemory idle;
  TimedProgress timed(window);
  const auto watched =
      bench::RunInterleaved("with the progress window", {{"StreamCopy", copy(timed, disk)}}, 3 * rounds);
  double seconds = 0;
  for (const double copying : watched[0].seconds) seconds += copying;
  bench::Row("events and bar, part of a copy with the progress window",
             bench::Number(100 * timed.seconds / seconds, " %"), "", bench::AtMost(2, " %"));
  bench::Row("copy, memory above idle", bench::Number(idle.MostAbove(), " MiB"), "",
             bench::AtMost(8, " MiB"));
  return 0;
}
