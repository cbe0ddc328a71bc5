#include "fileops/replace_file.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "fileops/file_attributes.h"
#include "fileops/file_system.h"
#include "fileops/uninterrupted.h"
#include "viewer/paths.h"
#include "viewer/run_time_error.h"

namespace bwp {
namespace {

FileVersion VersionFrom(const struct stat& status) {
  return {{status.st_dev, status.st_ino}, status.st_size, status.st_mtim};
}

// Where a rename leads to: one mount of one file system. Older systems tell file systems apart only.
struct Mount {
  std::uint32_t deviceMajor, deviceMinor;
  std::uint64_t number;
  friend bool operator==(const Mount&, const Mount&) = default;
};

Mount MountOf(const std::string& folder) {
  struct statx status = {};
  if (statx(AT_FDCWD, folder.empty() ? "." : folder.c_str(), 0, STATX_BASIC_STATS | STATX_MNT_ID, &status) !=
      0) {
    throw RunTimeErrorFromErrno(errno, folder);
  }
  const bool known = (status.stx_mask & STATX_MNT_ID) != 0;
  return {status.stx_dev_major, status.stx_dev_minor, known ? status.stx_mnt_id : 0};
}

std::string Resolved(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr), &std::free);
  if (!resolved) throw RunTimeErrorFromErrno(errno, path);
  return resolved.get();
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
  struct stat status = {};
  if (fstat(file.Descriptor(), &status) != 0) throw RunTimeErrorFromErrno(errno, file.Path());
  return VersionFrom(status);
}

FileReplacement::FileReplacement(const Disk& disk, const FileSystem::ReadStream& old)
    : disk_(disk), old_(old), target_(Resolved(old.Path())), version_(VersionOf(old)) {}

void FileReplacement::Prepare(Progress& progress, ScratchFile& content) {
  if (progress.Aborted()) return;
  content_ = &content;
  const std::string folder = funzioni::FolderOf(target_);
  if (MountOf(folder) != MountOf(funzioni::FolderOf(content.Path()))) {
    Stage(folder, &progress);
  } else {
    // The long wait for the disk comes before the mode that may let others read it.
    content.Sync();
    Finish(content);
  }
}

void FileReplacement::Discard(ScratchFile& content) {
  staged_.reset();
  content.Delete();
}

// Beside the target only complete content is renamed, so it is copied there under a name of its own first.
void FileReplacement::Stage(const std::string& folder, Progress* progress) {
  staged_.emplace(ScratchFile::Create(disk_, folder + ".bytewarp-"));
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
  const std::string newPath = old_.Path() + ".new";
  const std::optional<int> refusal = Move(target_, true);
  if (!refusal) return Outcome::kTargetChanged;
  if (*refusal == 0) return Outcome::kReplaced;
  if (!IsNameRefused(*refusal)) throw RunTimeErrorFromErrno(*refusal, old_.Path());

  const std::optional<int> failure = Move(newPath, false);
  if (!failure) return Outcome::kTargetChanged;
  if (*failure == 0) return Outcome::kStandsAsNew;
  RunTimeError error = RunTimeErrorFromErrno(*failure, newPath);
  if (*failure == EEXIST) {
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
  disk_.ChangeMode(content_->Descriptor(), S_IRUSR | S_IWUSR);
}

bool FileReplacement::TargetChanged() const {
  struct stat status = {};
  return stat(target_.c_str(), &status) != 0 || VersionFrom(status) != version_ ||
         Resolved(old_.Path()) != target_;
}

// Zero or the system's error number; nothing when the target was changed meanwhile. A link may stand on
// another file system than its target, and some systems show only now that no rename leads across.
std::optional<int> FileReplacement::Move(const std::string& to, bool overwrite) {
  const int error = TryMove(to, overwrite);
  if (error != EXDEV) return error;
  Stage(funzioni::FolderOf(to), nullptr);
  if (TargetChanged()) return std::nullopt;
  return TryMove(to, overwrite);
}

int FileReplacement::TryMove(const std::string& to, bool overwrite) {
  ScratchFile& ready = staged_ ? *staged_ : *content_;
  // Nothing may fail between the rename and the caller's taking note of it, so this comes first.
  placed_ = to;
  const int error = overwrite ? Rename(ready.Path(), to) : RenameNew(ready.Path(), to);
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
  const std::string folder = funzioni::FolderOf(placed_);
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;  // Writable but not readable: such a folder cannot be waited for.
  const int result = Uninterrupted([&] { return disk_.Sync(descriptor); });
  const int error = errno;
  close(descriptor);
  // Some network file systems know no waiting for a folder.
  if (result != 0 && error != EINVAL && error != ENOTSUP) {
    RunTimeError failure = RunTimeErrorFromErrno(error, placed_);
    failure.note = "The file holds the new content, but a power cut may still undo that.";
    throw failure;
  }
}

}  // namespace bwp
