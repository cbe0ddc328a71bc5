#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fileops/disk.h"
#include "viewer/descriptor.h"

/// The streams that every long file operation moves bytes through, and the steps it moves them in.
namespace FileSystem {

/// A regular file, read from its start on. Nothing but Skip moves the position without reading.
class ReadStream {
 public:
  /// Opens the path. Throws RunTimeError; 75 for what is no regular file.
  explicit ReadStream(const std::string& path);

  /// Reads the next count bytes; returns how many there were, fewer only at the end of the file. Throws
  /// RunTimeError.
  std::size_t Read(void* bytes, std::size_t count);
  /// As Read, but throws 62 when there were fewer: for bytes that the known length promised.
  void ReadAll(void* bytes, std::size_t count);
  /// Moves the position on without reading a byte. Past the end nothing is read any more.
  void Skip(std::int64_t count);
  void Close() { descriptor_.Close(); }

  /// The file's length now, in bytes.
  std::int64_t Length() const;
  int Descriptor() const { return descriptor_.Number(); }
  const std::string& Path() const { return path_; }

 private:
  bwp::Descriptor descriptor_;
  std::string path_;
};

/// A file that is written from its start on. Every change goes through the table of disk calls.
class WriteStream {
 public:
  /// Creates the file, or empties the one that is there. Throws RunTimeError; 75 for what is no regular
  /// file.
  WriteStream(const bwp::Disk& disk, const std::string& path);
  /// Takes over a descriptor that was opened for writing; the path is for the reports.
  WriteStream(const bwp::Disk& disk, int descriptor, std::string path);
  WriteStream(WriteStream&& other) noexcept;
  WriteStream& operator=(WriteStream&&) = delete;
  /// Closes without a check; a caller that needs one calls Close.
  ~WriteStream();

  /// Writes all of the bytes. Throws RunTimeError; 61 when the disk takes no more.
  void Write(std::string_view bytes);
  /// Writes the source's next count bytes, inside the kernel where it can. Throws as Write does, and 62 when
  /// the source holds fewer.
  void WriteFrom(ReadStream& source, std::size_t count);
  /// Returns when the content is on the disk. Throws RunTimeError.
  void Sync();
  /// Throws when the system says only now that something was not written; the stream is closed all the same.
  void Close();

  int Descriptor() const { return descriptor_; }
  const std::string& Path() const { return path_; }

 private:
  std::size_t CopyRange(ReadStream& source, std::size_t count);

  const bwp::Disk* disk_;
  int descriptor_;
  std::string path_;
  bool rangeCopyWorks_ = true;
  std::string scratch_;  ///< Between reading and writing, where the kernel cannot copy by itself.
};

}  // namespace FileSystem
