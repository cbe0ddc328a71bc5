#include "support/failing_disk.h"

#include <cerrno>

namespace bwp::test {
namespace {

int ErrnoOf(Fault fault) {
  switch (fault) {
    case Fault::kNoSpace:
      return ENOSPC;
    case Fault::kInterrupted:
      return EINTR;
    case Fault::kNoPermission:
      return EPERM;
    case Fault::kDeviceError:
    case Fault::kShortWrite:
      break;
  }
  return EIO;
}

}  // namespace

const char* NameOf(Fault fault) {
  static const char* const kNames[] = {"no space", "device error", "short write", "interrupted",
                                       "no permission"};
  return kNames[static_cast<int>(fault)];
}

void FailingDisk::FailAt(int number, Fault fault) {
  calls_ = 0;
  failed_.clear();
  failAt_ = number;
  fault_ = fault;
}

bool FailingDisk::Fails(const std::string& call) const {
  if (++calls_ != failAt_) return false;
  failed_ = call;
  errno = ErrnoOf(fault_);
  return fault_ != Fault::kShortWrite;
}

// A short write writes half of the bytes; a single byte is written as it is.
std::size_t FailingDisk::Allowed(const std::string& call, std::size_t count) const {
  if (Fails(call)) return 0;
  return failed_ == call && calls_ == failAt_ && count > 1 ? count / 2 : count;
}

int FailingDisk::Open(const std::string& path, int flags, mode_t mode) const {
  return Fails("open " + path) ? -1 : Disk::Open(path, flags, mode);
}

ssize_t FailingDisk::Write(int descriptor, const void* bytes, std::size_t count) const {
  const std::size_t allowed = Allowed("write", count);
  return allowed == 0 ? -1 : Disk::Write(descriptor, bytes, allowed);
}

ssize_t FailingDisk::PositionedWrite(int descriptor, const void* bytes, std::size_t count,
                                     off_t offset) const {
  const std::size_t allowed = Allowed("positioned write", count);
  return allowed == 0 ? -1 : Disk::PositionedWrite(descriptor, bytes, allowed, offset);
}

ssize_t FailingDisk::CopyRange(int from, int to, std::size_t count) const {
  const std::size_t allowed = Allowed("copy range", count);
  return allowed == 0 ? -1 : Disk::CopyRange(from, to, allowed);
}

int FailingDisk::Truncate(int descriptor, off_t length) const {
  return Fails("truncate") ? -1 : Disk::Truncate(descriptor, length);
}

int FailingDisk::Sync(int /*descriptor*/) const {
  return Fails("sync") ? -1 : 0;
}

// A close that fails closes the descriptor nevertheless.
int FailingDisk::Close(int descriptor) const {
  const int result = Disk::Close(descriptor);
  return Fails("close") ? -1 : result;
}

int FailingDisk::Lock(int descriptor) const {
  return Fails("lock") ? -1 : Disk::Lock(descriptor);
}

int FailingDisk::ChangeMode(int descriptor, mode_t mode) const {
  return Fails("change mode") ? -1 : Disk::ChangeMode(descriptor, mode);
}

int FailingDisk::ChangeOwner(int descriptor, uid_t owner, gid_t group) const {
  return Fails("change owner") ? -1 : Disk::ChangeOwner(descriptor, owner, group);
}

int FailingDisk::SetAttribute(int descriptor, const char* name, const void* value, std::size_t size) const {
  return Fails("set attribute") ? -1 : Disk::SetAttribute(descriptor, name, value, size);
}

int FailingDisk::RemoveAttribute(int descriptor, const char* name) const {
  return Fails("remove attribute") ? -1 : Disk::RemoveAttribute(descriptor, name);
}

int FailingDisk::Rename(const std::string& from, const std::string& to) const {
  return Fails("rename " + to) ? -1 : Disk::Rename(from, to);
}

int FailingDisk::RenameNew(const std::string& from, const std::string& to) const {
  return Fails("rename new " + to) ? -1 : Disk::RenameNew(from, to);
}

int FailingDisk::Link(const std::string& from, const std::string& to) const {
  return Fails("link " + to) ? -1 : Disk::Link(from, to);
}

int FailingDisk::Delete(const std::string& path) const {
  return Fails("delete " + path) ? -1 : Disk::Delete(path);
}

}  // namespace bwp::test
