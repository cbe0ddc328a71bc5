#include "fileops/save.h"

#include <cerrno>
#include <sys/stat.h>

#include "fileops/file_system.h"
#include "fileops/open_file_guard.h"
#include "fileops/shown_file.h"
#include "viewer/number_text.h"
#include "viewer/open_view_file.h"
#include "viewer/paths.h"
#include "viewer/refresh.h"

namespace bwp {
namespace {

using funzioni::SignPadded;

constexpr const char* kSaveAsCaption = "Save File as..";

// Half a file must not pass for a whole one: what a failed save has written so far goes again.
class HalfWritten {
 public:
  HalfWritten(const Disk& disk, const std::string& path) : disk_(disk), path_(path) {}
  HalfWritten(const HalfWritten&) = delete;
  HalfWritten& operator=(const HalfWritten&) = delete;
  ~HalfWritten() {
    struct stat status = {};
    if (failed_ && lstat(path_.c_str(), &status) == 0 && S_ISREG(status.st_mode)) disk_.Delete(path_);
  }
  void Complete() { failed_ = false; }

 private:
  const Disk& disk_;
  const std::string& path_;
  bool failed_ = true;
};

// A link to nothing would have the new file made elsewhere, where a failed save would leave half of it.
bool IsLinkToNothing(const std::string& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode) && stat(path.c_str(), &status) != 0 &&
         errno == ENOENT;
}

void DeleteOld(const ViewState& state, const Disk& disk, const std::string& path) {
  if (funzioni::FileExists(path) || IsLinkToNothing(path)) DeleteUnlessOpen(state, disk, path);
}

bool IsSaveAs(const SaveTask& task) {
  return task.caption == kSaveAsCaption;
}

// The last byte of the range that is there.
std::int64_t LastByteOf(const ViewState& state, std::int64_t to) {
  return funzioni::MinOf({to, state.FLen - 1});
}

// Reports it and returns false when there is nothing to save or another program changed the file.
bool CanSave(ViewState& state, const Services& services, const SaveTask& task) {
  if (!HoldsWhatIsShown(state, VersionOf(FileSystem::ReadStream(state.OpenFile)))) {
    TellChanged(state, services);
    return false;
  }
  // An empty file has an empty copy.
  if (IsSaveAs(task) || task.from <= LastByteOf(state, task.to)) return true;
  TellNoByte(services.notices);
  return false;
}

bool MayOverwrite(Notices& notices, const std::string& path, const std::string& question) {
  return !funzioni::FileExists(path) || notices.Ask(question);
}

void SaveAndShow(ViewState& state, const Services& services, const SaveTask& task, const std::string& path,
                 const std::string& question) {
  if (!CanSave(state, services, task) || !MayOverwrite(services.notices, path, question)) return;
  SaveChunk(state, services, path, task.from, task.to);
  if (IsSaveAs(task) && !services.progress.Aborted()) {
    state.OpenFile = path;
    ReopenViewFile(state);
  }
  services.progress.ClearAbort();
  // Whatever was being typed into, what is shown now must be the file that is open now.
  state.FieldTyping = false;
  Refresh(state, services.display);
}

}  // namespace

SaveTask SaveAsTask(const ViewState& state) {
  return {kSaveAsCaption, 0, state.FLen - 1};
}

SaveTask SaveChunkTask(const ViewState& state) {
  return {"Save Chunk from " + SignPadded(state.MarkStart) + " to " + SignPadded(state.MarkEnd),
          state.MarkStart, state.MarkEnd};
}

void SaveUnderTypedName(ViewState& state, const Services& services, const SaveTask& task,
                        const std::string& name) {
  const std::string path = funzioni::PathIn(state.LastFolder, name);
  SaveAndShow(state, services, task, path,
              "File  '" + funzioni::NameOf(path) + "'  exist, do you want to overwrite ?");
}

void SaveOntoListedFile(ViewState& state, const Services& services, const SaveTask& task,
                        const std::string& name) {
  SaveAndShow(state, services, task, state.LastFolder + name,
              "File " + name + " exist, do you want to overwrite");
}

void SaveChunk(const ViewState& state, const Services& services, const std::string& destination,
               std::optional<std::int64_t> from, std::optional<std::int64_t> to) {
  const std::int64_t first = from.value_or(0);
  const std::int64_t last = LastByteOf(state, to.value_or(state.FLen - 1));
  DeleteOld(state, services.disk, destination);

  Progress& progress = services.progress;
  // No name follows.
  progress.SetCaption("Saving to file ");
  progress.SetLabel("Saving from " + SignPadded(first) + " to " + SignPadded(last));
  progress.Show();
  progress.LetEventsRun();
  HalfWritten half(services.disk, destination);
  // The streams know no percentage of nothing.
  if (state.FLen > 0) {
    FileSystem::FileRangeCopy(progress, services.disk, state.OpenFile, destination, first + 1,
                              last - first + 1);
  } else if (!progress.Aborted()) {
    FileSystem::WriteStream(services.disk, destination).Close();
  }
  half.Complete();
  progress.Hide();
}

}  // namespace bwp
