#pragma once

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "splitjoin/split_join_worker.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/run_time_error.h"

namespace bwp::test {

using Names = std::vector<std::string>;

/// A disk that refuses what a test tells it to refuse.
class RefusingDisk : public Disk {
 public:
  int Delete(const std::string& path) const override {
    if (deleteError == 0) return Disk::Delete(path);
    errno = deleteError;
    return -1;
  }
  int Open(const std::string& path, int flags, mode_t mode) const override {
    if (openError == 0 || --opensBeforeError >= 0) return Disk::Open(path, flags, mode);
    errno = openError;
    return -1;
  }
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) const override {
    if (room < 0) return Disk::Write(descriptor, bytes, count);
    const auto taken = std::min(static_cast<std::size_t>(room), count);
    if (taken == 0) {
      errno = ENOSPC;
      return -1;
    }
    room -= static_cast<ssize_t>(taken);
    return Disk::Write(descriptor, bytes, taken);
  }
  ssize_t CopyRange(int from, int to, std::size_t count) const override {
    if (room >= 0) {
      errno = EXDEV;
      return -1;
    }
    if (!holes) return Disk::CopyRange(from, to, count);
    const off_t end = lseek(to, static_cast<off_t>(count), SEEK_CUR);
    lseek(from, static_cast<off_t>(count), SEEK_CUR);
    return ftruncate(to, end) == 0 ? static_cast<ssize_t>(count) : -1;
  }

  int deleteError = 0;
  int openError = 0;
  mutable int opensBeforeError = 0;
  mutable ssize_t room = -1;  // How many bytes the disk still takes; negative for any number.
  bool holes = false;         // Copies inside the kernel only make holes, so that long files take no time.
};

/// A worker with its plan and job, windows that only record calls, and a folder for the parts.
class SplitJoinWorkerTest : public testing::Test, protected SplitJoinWindows {
 protected:
  void HideDivide() override { transcript.push_back("hide Divide"); }
  void HideFsel() override { transcript.push_back("hide Fsel"); }
  void HideFjoin() override { transcript.push_back("hide Fjoin"); }

  // Opens a file of these bytes, outside the folder of the parts.
  void OpenFileOf(const std::string& bytes) { OpenViewFile(state, sourceFolder.Write("source", bytes)); }

  void Confirm(const std::string& action, const std::string& names, const std::string& destination = {}) {
    job = {true, action, names, destination.empty() ? "" : folder / destination};
    state.LastFolder = folder.Path();
  }
  // Ticks until nothing is confirmed any more, as the timer does.
  void RunToEnd() {
    while (job.confirmed) worker.Tick();
  }
  int ErrorOfRun() {
    try {
      RunToEnd();
    } catch (const RunTimeError& error) {
      return error.number;
    }
    return 0;
  }
  // The transcript's last lines.
  Names End(std::size_t lines) const {
    return {transcript.end() - static_cast<std::ptrdiff_t>(std::min(lines, transcript.size())),
            transcript.end()};
  }
  void Split(const std::string& base, std::int64_t partSize) {
    plan.EnterDecimalSize(std::to_string(partSize));
    Confirm("split", folder / base);
    RunToEnd();
  }
  void Join(const std::string& names, const std::string& destination) {
    Confirm("join", names, destination);
    RunToEnd();
  }
  Names Captions() const {
    Names captions;
    for (const std::string& line : transcript) {
      if (line.rfind("caption ", 0) == 0) captions.push_back(line.substr(8));
    }
    return captions;
  }

  TempFolder sourceFolder;
  TempFolder folder;

  Transcript transcript;
  ViewState state;
  RecordedProgress progress{transcript};
  RecordedNotices notices{transcript};
  RecordedDisplay display{transcript};
  RefusingDisk disk;
  SplitPlan plan{state};
  SplitJoinJob job;
  SplitJoinWorker worker{state, {display, progress, notices, disk}, plan, job, *this};
};

}  // namespace bwp::test
