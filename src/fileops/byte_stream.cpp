#include "fileops/byte_stream.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "viewer/run_time_error.h"
#include "viewer/uninterrupted.h"

namespace FileSystem {
namespace {

using bwp::MakeRunTimeError;
using bwp::RunTimeErrorFromErrno;

// Small enough to stay in the processor's cache between the read and the write.
constexpr std::size_t kScratchBytes = 262'144;

constexpr mode_t kNewFileMode = 0666;

}  // namespace

ReadStream::ReadStream(const std::string& path) : descriptor_(bwp::OpenForReading(path)), path_(path) {}

std::size_t ReadStream::Read(void* bytes, std::size_t count) {
  return bwp::ReadUntilFull(path_, bytes, count, [&](char* to, std::size_t missing, std::size_t) {
    return read(Descriptor(), to, missing);
  });
}

void ReadStream::ReadAll(void* bytes, std::size_t count) {
  if (Read(bytes, count) < count) throw MakeRunTimeError(bwp::kInputPastEnd, path_);
}

void ReadStream::Skip(std::int64_t count) {
  if (lseek(Descriptor(), count, SEEK_CUR) < 0) throw RunTimeErrorFromErrno(errno, path_);
}

std::int64_t ReadStream::Length() const {
  return bwp::StatusOf(Descriptor(), path_).st_size;
}

// Non-blocking for the same reason as a file that is read.
WriteStream::WriteStream(const bwp::Disk& disk, const std::string& path)
    : WriteStream(disk, bwp::Uninterrupted([&] {
                    return disk.Open(path, O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK, kNewFileMode);
                  }),
                  path) {
  if (descriptor_ < 0) throw RunTimeErrorFromErrno(errno, path);
  if (!S_ISREG(bwp::StatusOf(descriptor_, path).st_mode)) throw MakeRunTimeError(bwp::kPathFileAccess, path);
}

WriteStream::WriteStream(const bwp::Disk& disk, int descriptor, std::string path)
    : disk_(&disk), descriptor_(descriptor), path_(std::move(path)) {}

WriteStream::WriteStream(WriteStream&& other) noexcept
    : disk_(other.disk_),
      descriptor_(std::exchange(other.descriptor_, -1)),
      path_(std::move(other.path_)),
      rangeCopyWorks_(other.rangeCopyWorks_) {}

WriteStream::~WriteStream() {
  if (descriptor_ >= 0) disk_->Close(descriptor_);
}

void WriteStream::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written =
        bwp::Uninterrupted([&] { return disk_->Write(descriptor_, bytes.data(), bytes.size()); });
    if (written < 0) throw RunTimeErrorFromErrno(errno, path_);
    // A disk that takes nothing and gives no reason is full.
    if (written == 0) throw MakeRunTimeError(bwp::kDiskFull, path_);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

void WriteStream::WriteFrom(ReadStream& source, std::size_t count) {
  count -= CopyRange(source, count);
  while (count > 0) {
    scratch_.resize(kScratchBytes);
    const std::size_t piece = std::min(count, kScratchBytes);
    source.ReadAll(scratch_.data(), piece);
    Write({scratch_.data(), piece});
    count -= piece;
  }
}

// As much as the kernel moves by itself. Whatever stops it (the end of the source, two file systems, one that
// cannot do it, a full disk) is met again by plain reading and writing, which can tell whose fault it is.
std::size_t WriteStream::CopyRange(ReadStream& source, std::size_t count) {
  std::size_t done = 0;
  while (rangeCopyWorks_ && done < count) {
    const ssize_t copied =
        bwp::Uninterrupted([&] { return disk_->CopyRange(source.Descriptor(), descriptor_, count - done); });
    if (copied > 0) {
      done += static_cast<std::size_t>(copied);
    } else {
      rangeCopyWorks_ = false;
    }
  }
  return done;
}

void WriteStream::Sync() {
  if (bwp::Uninterrupted([&] { return disk_->Sync(descriptor_); }) != 0) {
    throw RunTimeErrorFromErrno(errno, path_);
  }
}

void WriteStream::Close() {
  if (descriptor_ < 0) return;
  // An interrupted close has closed; trying again could close somebody else's file.
  if (disk_->Close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) {
    throw RunTimeErrorFromErrno(errno, path_);
  }
}

}  // namespace FileSystem
