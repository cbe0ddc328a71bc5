#include "fileops/disk.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace bwp {

int Disk::Open(const std::string& path, int flags, mode_t mode) const {
  return open(path.c_str(), flags | O_CLOEXEC, mode);
}

ssize_t Disk::Write(int descriptor, const void* bytes, std::size_t count) const {
  return write(descriptor, bytes, count);
}

ssize_t Disk::PositionedWrite(int descriptor, const void* bytes, std::size_t count, off_t offset) const {
  return pwrite(descriptor, bytes, count, offset);
}

ssize_t Disk::CopyRange(int from, int to, std::size_t count) const {
  return copy_file_range(from, nullptr, to, nullptr, count, 0);
}

int Disk::Truncate(int descriptor, off_t length) const {
  return ftruncate(descriptor, length);
}

int Disk::Sync(int descriptor) const {
  return fsync(descriptor);
}

int Disk::Close(int descriptor) const {
  return close(descriptor);
}

int Disk::Lock(int descriptor) const {
  return flock(descriptor, LOCK_EX | LOCK_NB);
}

int Disk::ChangeMode(int descriptor, mode_t mode) const {
  return fchmod(descriptor, mode);
}

int Disk::ChangeOwner(int descriptor, uid_t owner, gid_t group) const {
  return fchown(descriptor, owner, group);
}

int Disk::SetAttribute(int descriptor, const char* name, const void* value, std::size_t size) const {
  return fsetxattr(descriptor, name, value, size, 0);
}

int Disk::RemoveAttribute(int descriptor, const char* name) const {
  return fremovexattr(descriptor, name);
}

int Disk::Rename(const std::string& from, const std::string& to) const {
  return std::rename(from.c_str(), to.c_str());
}

int Disk::RenameNew(const std::string& from, const std::string& to) const {
  return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
}

int Disk::Link(const std::string& from, const std::string& to) const {
  return link(from.c_str(), to.c_str());
}

int Disk::Delete(const std::string& path) const {
  return unlink(path.c_str());
}

}  // namespace bwp
