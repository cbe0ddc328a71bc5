#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

namespace bwp {

/// Every system call that changes the disk, in one table, so that a test can make any one of them fail. The
/// calls answer as the system's own do: a negative result and errno on failure. Reading goes past it.
class Disk {
 public:
  virtual ~Disk() = default;

  /// open(2) for a file that is to be written; O_CLOEXEC is added.
  virtual int Open(const std::string& path, int flags, mode_t mode) const;
  virtual ssize_t Write(int descriptor, const void* bytes, std::size_t count) const;
  virtual ssize_t PositionedWrite(int descriptor, const void* bytes, std::size_t count, off_t offset) const;
  /// copy_file_range(2) from the reading to the writing descriptor, at their own positions.
  virtual ssize_t CopyRange(int from, int to, std::size_t count) const;
  virtual int Truncate(int descriptor, off_t length) const;
  virtual int Sync(int descriptor) const;
  virtual int Close(int descriptor) const;
  /// flock(2), exclusive, without waiting.
  virtual int Lock(int descriptor) const;
  virtual int ChangeMode(int descriptor, mode_t mode) const;
  virtual int ChangeOwner(int descriptor, uid_t owner, gid_t group) const;
  virtual int SetAttribute(int descriptor, const char* name, const void* value, std::size_t size) const;
  virtual int RemoveAttribute(int descriptor, const char* name) const;
  virtual int Rename(const std::string& from, const std::string& to) const;
  /// renameat2(2) with RENAME_NOREPLACE: fails with EEXIST when `to` exists.
  virtual int RenameNew(const std::string& from, const std::string& to) const;
  /// link(2): a further name for the file; fails with EEXIST when `to` exists.
  virtual int Link(const std::string& from, const std::string& to) const;
  virtual int Delete(const std::string& path) const;
};

}  // namespace bwp
