// The lists of the file dialogs on a folder of many files: filling them, and following the disk after a file
// came, against a plain read of the folder's names and a sort.
//
// lists_bench [FILES [RUNS]], 20000 and 7 where nothing else is said.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

#include <QApplication>
#include <QDialog>

#include "interleaved.h"
#include "nobody.h"
#include "viewer/forms/file_lists.h"

namespace {

namespace fs = std::filesystem;

// A folder of empty files that goes away with the program.
class ManyFiles {
 public:
  explicit ManyFiles(int count) {
    if (mkdtemp(path_.data()) == nullptr) std::perror(path_.c_str());
    for (int i = 0; i < count; ++i) Make("file " + std::to_string(i * 7919 % count) + ".bin");
  }
  ManyFiles(const ManyFiles&) = delete;
  ManyFiles& operator=(const ManyFiles&) = delete;
  ~ManyFiles() { fs::remove_all(path_); }

  std::string Path() const { return path_ + "/"; }
  void Make(const std::string& name) const {
    close(open((Path() + name).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  }

 private:
  std::string path_ = "/tmp/bytewarp-bench-XXXXXX";
};

void ReadAndSort(const std::string& folder) {
  std::vector<std::string> names;
  DIR* const stream = opendir(folder.c_str());
  while (const dirent* entry = readdir(stream)) names.emplace_back(entry->d_name);
  closedir(stream);
  std::sort(names.begin(), names.end());
  if (names.empty()) std::abort();
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const int count = argc > 1 ? std::atoi(argv[1]) : 20'000;
  const int rounds = argc > 2 ? std::atoi(argv[2]) : 7;
  const QApplication application(argc, argv);
  const ManyFiles files(count);
  bwp::ViewState state;
  state.LastFolder = files.Path();
  bench::NoNotices notices;
  QDialog dialog;
  dialog.resize(580, 420);
  bwp::FileLists lists(state, notices, dialog);
  lists.Files().resize(240, 280);
  lists.ShowLastFolder();
  dialog.show();

  int come = 0;
  const auto follow = [&] {
    files.Make("new " + std::to_string(come++));
    lists.FollowDisk();
    QCoreApplication::processEvents();
  };
  const auto jobs = bench::RunInterleaved("A folder of " + std::to_string(count) + " files",
                                          {{"read and sort", [&] { ReadAndSort(files.Path()); }},
                                           {"fill the lists",
                                            [&] {
                                              lists.ShowLastFolder();
                                              QCoreApplication::processEvents();
                                            }},
                                           {"follow one new file", follow}},
                                          rounds);
  const std::string size = std::to_string(count);
  bench::TimeRow("time to list " + size + " files / read and sort", jobs[1], jobs[0], bench::AtMost(3));
  bench::TimeRow("time to follow a new one / read and sort", jobs[2], jobs[0], bench::AtMost(3));
  return 0;
}
