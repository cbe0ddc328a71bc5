#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "fileops/byte_stream.h"
#include "fileops/disk.h"

namespace bwp {

/// A file that is written on the way to somewhere else: it is deleted with this object, whatever ends that,
/// unless Leave was called.
class ScratchFile {
 public:
  /// Takes over a file that was opened for writing, and its descriptor.
  ScratchFile(const Disk& disk, std::string path, int descriptor);
  ScratchFile(ScratchFile&& other) noexcept;
  ScratchFile& operator=(ScratchFile&&) = delete;
  ~ScratchFile();

  /// A new file that the user alone may read, under the prefix and letters that make the name unique. Throws
  /// RunTimeError.
  static ScratchFile Create(const Disk& disk, const std::string& prefix);
  /// The same, but returns nothing, with errno set, if the folder does not take it.
  static std::optional<ScratchFile> TryCreate(const Disk& disk, const std::string& prefix);

  const std::string& Path() const { return path_; }
  int Descriptor() const { return descriptor_; }
  std::int64_t Length() const;

  /// Writes on the file; it can be closed, and the close be checked, while the file's lock stays held here.
  FileSystem::WriteStream Writer() const;
  /// Returns when everything is on the disk. Throws RunTimeError.
  void Sync() const;
  /// Deletes it now. Throws RunTimeError.
  void Delete();
  /// Ends it before this object does: deletes it if it is still ours and gives up its lock.
  void Release();
  /// It has been renamed.
  void Renamed(const std::string& path) { path_ = path; }
  /// The file is no longer ours to delete: it has its own name now, or is to stay.
  void Leave() { ours_ = false; }
  /// It is ours to delete again.
  void Take() { ours_ = true; }

 private:
  const Disk* disk_;
  std::string path_;
  int descriptor_;
  bool ours_ = true;
};

}  // namespace bwp
