#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <sys/types.h>

#include "viewer/descriptor.h"

namespace bwp {

/// The longest file that is opened: positions are signed 32-bit values.
inline constexpr std::int64_t kMaxFileLength = 2'147'483'647;

/// Identifies a file whatever its name: device and inode.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The page display's handle on the open file: positioned reads of a regular file, no writes.
class ViewFile {
 public:
  /// Opens the path after closing the previous file. Throws RunTimeError, number 75 if the path is not a
  /// regular file.
  void Open(const std::string& path);
  void Close() { descriptor_.Close(); }
  bool IsOpen() const { return descriptor_.IsOpen(); }

  /// The file's current length in bytes. Throws RunTimeError.
  std::int64_t Length() const;
  /// Which file is open. Throws RunTimeError.
  FileIdentity Identity() const;

  /// Reads up to count bytes at the offset and returns how many were read, fewer only at the end of the file.
  /// Throws RunTimeError.
  std::size_t ReadAt(std::int64_t offset, void* bytes, std::size_t count) const;

 private:
  Descriptor descriptor_;
  std::string path_;
};

FileIdentity IdentityOf(const struct stat& status);

/// The identity of the file at a path, links followed or not; nothing if there is no file.
std::optional<FileIdentity> IdentityOf(const std::string& path, bool followLinks = true);

}  // namespace bwp
