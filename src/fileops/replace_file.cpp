#include "fileops/replace_file.h"

#include <cerrno>
#include <cstddef>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "fileops/file_attributes.h"
#include "fileops/file_system.h"
#include "fileops/sync_folder.h"
#include "viewer/descriptor.h"
#include "viewer/paths.h"
#include "viewer/run_time_error.h"
#include "viewer/uninterrupted.h"

namespace bwp {
namespace {

FileVersion VersionFrom(const struct stat& status) {
  return {IdentityOf(status), status.st_size, status.st_mtim};
}

// Only a hint: a rename may be refused all the same.
bool OnOneDevice(const std::string& one, const std::string& other) {
  const std::optional<FileIdentity> left = IdentityOf(one);
  const std::optional<FileIdentity> right = IdentityOf(other);
  return left && right && left->device == right->device;
}

std::string Resolved(const std::string& path) {
  const std::optional<std::string> resolved = funzioni::ResolvedPath(path);
  if (!resolved) throw RunTimeErrorFromErrno(errno, path);
  return *resolved;
}

// Immutable, in somebody's sticky folder, a mount point, a file in use as a program, a folder that takes no
// new names.
bool IsNameRefused(int errnoValue) {
  return errnoValue == EPERM || errnoValue == EACCES || errnoValue == EBUSY || errnoValue == ETXTBSY ||
         errnoValue == EROFS;
}

}  // namespace

bool operator==(const FileVersion& one, const FileVersion& other) {
  return one.identity == other.identity && one.length == other.length &&
         one.modified.tv_sec == other.modified.tv_sec && one.modified.tv_nsec == other.modified.tv_nsec;
}

FileVersion VersionOf(const FileSystem::ReadStream& file) {
  return VersionFrom(StatusOf(file.Descriptor(), file.Path()));
}

FileReplacement::FileReplacement(const Disk& disk, const FileSystem::ReadStream& old)
    : disk_(disk), old_(old), target_(Resolved(old.Path())), version_(VersionOf(old)) {}

void FileReplacement::Prepare(Progress& progress, ScratchFile& content) {
  if (progress.Aborted()) return;
  content_ = &content;
  temporaryPath_ = content.Path();
  const std::string folder = funzioni::FolderOf(target_);
  const std::string linkFolder = funzioni::FolderOf(old_.Path());
  refusal_ = Stage(folder, &progress);
  if (refusal_ == 0) return;
  if (!IsNameRefused(refusal_) || linkFolder == folder) throw RunTimeErrorFromErrno(refusal_, folder);
  const int refusal = Stage(linkFolder, &progress);
  if (IsNameRefused(refusal)) throw RunTimeErrorFromErrno(refusal_, folder);
  if (refusal != 0) throw RunTimeErrorFromErrno(refusal, linkFolder);
}

void FileReplacement::Discard(ScratchFile& content) {
  staged_.reset();
  content.Delete();
}

// The old file's mode may rely on the file's folder to keep others out, and the temporary file's folder does
// not. So the content gets that mode only where it is to stay, under a hidden name: beside the old file or,
// for the recovery, beside the link by which it was opened. Returns the system's error number if the folder
// does not take it, else zero.
int FileReplacement::Stage(const std::string& folder, Progress* progress) {
  std::optional<ScratchFile> hidden = ScratchFile::TryCreate(disk_, folder + ".bytewarp-");
  if (!hidden) return errno;
  staged_.emplace(std::move(*hidden));
  // The long wait for the disk: what a power cut leaves of the temporary file, the next one writes over.
  if (OnOneDevice(content_->Path(), staged_->Path())) content_->Sync();
  const int error = Rename(content_->Path(), staged_->Path());
  if (error == 0) {
    content_->Renamed(staged_->Path());
    staged_->Leave();
    staged_.reset();
    Finish(*content_);
  } else if (error == EXDEV) {
    CopyToStaged(progress);
  } else {
    throw RunTimeErrorFromErrno(error, staged_->Path());
  }
  return 0;
}

void FileReplacement::CopyToStaged(Progress* progress) {
  FileSystem::WriteStream output = staged_->Writer();
  FileSystem::ReadStream input(content_->Path());
  const std::int64_t length = content_->Length();
  if (progress != nullptr && length > 0) {
    FileSystem::StreamCopy(*progress, input, output, length);
    progress->SetBar(0);
    if (progress->Aborted()) return;
  } else {
    output.WriteFrom(input, static_cast<std::size_t>(length));
  }
  output.Close();
  Finish(*staged_);
}

void FileReplacement::Finish(const ScratchFile& file) const {
  CopyAttributes(disk_, old_.Descriptor(), file.Descriptor(), old_.Path());
  file.Sync();
}

FileReplacement::Outcome FileReplacement::Commit() {
  if (TargetChanged()) return Outcome::kTargetChanged;
  const int refusal = refusal_ != 0 ? refusal_ : Place(target_, true);
  if (refusal == 0) return Outcome::kReplaced;
  if (!IsNameRefused(refusal)) throw RunTimeErrorFromErrno(refusal, old_.Path());

  const std::string newPath = old_.Path() + ".new";
  int failure = Place(newPath, false);
  if (failure == EXDEV) {
    // The path is a link on another file system than its target.
    failure = Stage(funzioni::FolderOf(newPath), nullptr);
    if (TargetChanged()) return Outcome::kTargetChanged;
    if (failure == 0) failure = Place(newPath, false);
  }
  if (failure == 0) return Outcome::kStandsAsNew;
  RunTimeError error = RunTimeErrorFromErrno(failure, newPath);
  if (failure == EEXIST) {
    KeepContent();
    error.note = "The new content is kept in " + content_->Path();
  }
  throw error;
}

// As a temporary file is: what the old file's owner and mode would lock away, the user could neither read nor
// ever get rid of. A refusal changes nothing about the error that is on its way.
void FileReplacement::KeepContent() {
  content_->Leave();
  disk_.ChangeOwner(content_->Descriptor(), geteuid(), getegid());
  if (disk_.ChangeMode(content_->Descriptor(), S_IRUSR | S_IWUSR) != 0) return;
  if (content_->Path() != temporaryPath_ && RenameNew(content_->Path(), temporaryPath_) == 0) {
    content_->Renamed(temporaryPath_);
  }
}

bool FileReplacement::TargetChanged() const {
  struct stat status = {};
  return stat(target_.c_str(), &status) != 0 || VersionFrom(status) != version_ ||
         Resolved(old_.Path()) != target_;
}

// Gives the content that name; zero or the system's error number.
int FileReplacement::Place(const std::string& name, bool overwrite) {
  ScratchFile& ready = staged_ ? *staged_ : *content_;
  // Nothing may fail between the rename and the caller's taking note of it, so this comes first.
  placed_ = name;
  const int error = overwrite ? Rename(ready.Path(), name) : RenameNew(ready.Path(), name);
  if (error == 0) ready.Leave();
  return error;
}

int FileReplacement::Rename(const std::string& from, const std::string& to) const {
  return Uninterrupted([&] { return disk_.Rename(from, to); }) == 0 ? 0 : errno;
}

// Not every file system can refuse to overwrite while it renames; there a second name is made, which always
// refuses, and the first one deleted.
int FileReplacement::RenameNew(const std::string& from, const std::string& to) const {
  if (Uninterrupted([&] { return disk_.RenameNew(from, to); }) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  if (Uninterrupted([&] { return disk_.Link(from, to); }) != 0) return errno;
  if (Uninterrupted([&] { return disk_.Delete(from); }) != 0) disk_.Delete(from);
  return 0;
}

void FileReplacement::SyncFolder() const {
  const int error = SyncFolderOf(disk_, placed_);
  if (error == 0) return;
  RunTimeError failure = RunTimeErrorFromErrno(error, placed_);
  failure.note = "The file holds the new content, but a power cut may still undo that.";
  throw failure;
}

}  // namespace bwp
