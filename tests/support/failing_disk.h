#pragma once

#include <optional>
#include <string>
#include <utility>

#include "fileops/disk.h"

namespace bwp::test {

/// How a call fails.
enum class Fault { kNoSpace, kDeviceError, kShortWrite, kInterrupted, kNoPermission };

const char* NameOf(Fault fault);

/// The real disk, except that one call fails and that Sync does nothing.
class FailingDisk : public Disk {
 public:
  /// Makes the call of that number (1 is the first) fail; 0 lets all succeed. Only a call that writes can be
  /// cut short; kShortWrite makes no other call fail.
  void FailAt(int number, Fault fault);
  /// The name of the call that failed, followed by its path if it has one; empty until then.
  const std::string& Failed() const { return failed_; }

  int Open(const std::string& path, int flags, mode_t mode) const override;
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) const override;
  ssize_t PositionedWrite(int descriptor, const void* bytes, std::size_t count, off_t offset) const override;
  ssize_t CopyRange(int from, int to, std::size_t count) const override;
  int Truncate(int descriptor, off_t length) const override;
  int Sync(int descriptor) const override;
  int Close(int descriptor) const override;
  int Lock(int descriptor) const override;
  int ChangeMode(int descriptor, mode_t mode) const override;
  int ChangeOwner(int descriptor, uid_t owner, gid_t group) const override;
  int SetAttribute(int descriptor, const char* name, const void* value, std::size_t size) const override;
  int RemoveAttribute(int descriptor, const char* name) const override;
  int Rename(const std::string& from, const std::string& to) const override;
  int RenameNew(const std::string& from, const std::string& to) const override;
  int Link(const std::string& from, const std::string& to) const override;
  int Delete(const std::string& path) const override;

 private:
  bool Fails(const std::string& call) const;
  std::size_t Allowed(const std::string& call, std::size_t count) const;

  mutable int calls_ = 0;
  mutable std::string failed_;
  int failAt_ = 0;
  Fault fault_ = Fault::kDeviceError;
};

}  // namespace bwp::test
