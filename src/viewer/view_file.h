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

/// Which file a path leads to, whatever its name: device and inode.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The open file's handle of the page display: positioned reads of a regular file, nothing written.
class ViewFile {
 public:
  /// Opens the path after closing what was open. Throws the platform's file error; 75 for what is no regular
  /// file.
  void Open(const std::string& path);
  void Close() { descriptor_.Close(); }
  bool IsOpen() const { return descriptor_.IsOpen(); }

  /// The file's length now, in bytes. Throws as Open does.
  std::int64_t Length() const;
  /// Which file is held open; throws as Open does.
  FileIdentity Identity() const;

  /// Reads up to count bytes at the offset; returns how many there were, fewer only at the end of the file.
  /// Throws the platform's file error.
  std::size_t ReadAt(std::int64_t offset, void* bytes, std::size_t count) const;

 private:
  Descriptor descriptor_;
  std::string path_;
};

FileIdentity IdentityOf(const struct stat& status);

/// The identity of what is at a path, links followed or not; nothing when there is nothing.
std::optional<FileIdentity> IdentityOf(const std::string& path, bool followLinks = true);

}  // namespace bwp
