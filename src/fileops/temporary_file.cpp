#include "fileops/temporary_file.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

#include "viewer/descriptor.h"
#include "viewer/paths.h"
#include "viewer/run_time_error.h"
#include "viewer/uninterrupted.h"
#include "viewer/view_file.h"

namespace bwp {
namespace {

constexpr mode_t kUserOnly = 0600;
constexpr int kOpenAttempts = 100;

struct Opened {
  int descriptor;
  bool created;  // By us, just now.
};

// Never follows a link and never waits for the other end of a pipe.
Opened Open(const Disk& disk, const std::string& path) {
  const auto open = [&](int flags) {
    return Uninterrupted(
        [&] { return disk.Open(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK | flags, kUserOnly); });
  };
  const int descriptor = open(O_CREAT | O_EXCL);
  if (descriptor >= 0 || errno != EEXIST) return {descriptor, true};
  return {open(0), false};
}

// What an open says of a link, a folder, a socket or a device.
bool IsNoFile(int errnoValue) {
  return errnoValue == ELOOP || errnoValue == EISDIR || errnoValue == ENXIO || errnoValue == ENODEV;
}

void RefuseUnlessTheUsersOwn(const ScratchFile& file) {
  const struct stat status = StatusOf(file.Descriptor(), file.Path());
  // With a second hard link it is a file of some other use too.
  if (!S_ISREG(status.st_mode) || status.st_uid != geteuid() || status.st_nlink > 1) {
    throw MakeRunTimeError(kPermissionDenied, file.Path());
  }
}

bool StillHasItsName(const ScratchFile& file) {
  return IdentityOf(file.Path(), false) == IdentityOf(StatusOf(file.Descriptor(), file.Path()));
}

void Lock(const Disk& disk, ScratchFile& file) {
  if (Uninterrupted([&] { return disk.Lock(file.Descriptor()); }) == 0) return;
  // In use by another copy of the program, it is that copy's to delete.
  if (errno == EWOULDBLOCK) file.Leave();
  throw RunTimeErrorFromErrno(errno, file.Path());
}

// A rewrite that was cut off may have given it a mode that lets not even its owner write. False when it
// cannot be looked at either.
bool MakeWritable(const Disk& disk, const std::string& path) {
  const int descriptor =
      Uninterrupted([&] { return disk.Open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK, kUserOnly); });
  if (descriptor < 0) return false;
  ScratchFile file(disk, path, descriptor);
  file.Leave();
  RefuseUnlessTheUsersOwn(file);
  // Another copy of the program may be about to rename it, with just this mode.
  Lock(disk, file);
  if (StillHasItsName(file) && Uninterrupted([&] { return disk.ChangeMode(descriptor, kUserOnly); }) != 0) {
    throw RunTimeErrorFromErrno(errno, path);
  }
  return true;
}

// Nothing when it takes another attempt: another copy of the program moved or deleted the file between the
// steps, or it had to be made writable first. Until it is locked and looked at again it must not be touched:
// it may have become the file that the other copy rewrote.
std::optional<ScratchFile> TryOpen(const Disk& disk, const std::string& path) {
  const Opened opened = Open(disk, path);
  if (opened.descriptor < 0) {
    const int error = errno;
    if (!opened.created && error == ENOENT) return std::nullopt;
    if (!opened.created && error == EACCES && MakeWritable(disk, path)) return std::nullopt;
    throw IsNoFile(error) ? MakeRunTimeError(kPermissionDenied, path) : RunTimeErrorFromErrno(error, path);
  }
  ScratchFile file(disk, path, opened.descriptor);
  if (!opened.created) file.Leave();
  RefuseUnlessTheUsersOwn(file);
  Lock(disk, file);
  file.Leave();
  if (!StillHasItsName(file)) return std::nullopt;
  file.Take();
  return file;
}

}  // namespace

std::string TemporaryFolder() {
  const char* const chosen = std::getenv("TMPDIR");
  return funzioni::WithSeparator(chosen != nullptr && *chosen != '\0' ? chosen : "/var/tmp");
}

std::string TemporaryPath() {
  return TemporaryFolder() + "bytewarp-" + std::to_string(geteuid()) + ".ttt";
}

ScratchFile OpenTemporaryFile(const Disk& disk) {
  const std::string path = TemporaryPath();
  for (int attempt = 0; attempt < kOpenAttempts; ++attempt) {
    std::optional<ScratchFile> file = TryOpen(disk, path);
    if (!file) continue;
    const int descriptor = file->Descriptor();
    if (Uninterrupted([&] { return disk.ChangeMode(descriptor, kUserOnly); }) != 0 ||
        Uninterrupted([&] { return disk.Truncate(descriptor, 0); }) != 0) {
      throw RunTimeErrorFromErrno(errno, path);
    }
    return std::move(*file);
  }
  throw MakeRunTimeError(kPermissionDenied, path);
}

}  // namespace bwp
