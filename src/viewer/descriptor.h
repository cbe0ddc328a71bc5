#pragma once

#include <cerrno>
#include <cstddef>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <utility>

#include "viewer/run_time_error.h"
#include "viewer/uninterrupted.h"

namespace bwp {

/// Owns a file descriptor that is only read from; it is closed with this object.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { Close(); }

  /// Negative when none is open.
  int Number() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }
  void Close();

 private:
  int number_ = -1;
};

/// Opens a regular file for reading. Throws RunTimeError, number 75 if the path is not a regular file.
Descriptor OpenForReading(const std::string& path);

/// The status of an open file; the path is only for the error report. Throws RunTimeError.
struct stat StatusOf(int descriptor, const std::string& path);

/// Reads up to count bytes and returns how many were read, fewer only at the end of the file. `readSome` gets
/// the address for the next bytes, how many are missing and how many have been read. Throws RunTimeError.
template <typename ReadSome>
std::size_t ReadUntilFull(const std::string& path, void* bytes, std::size_t count, ReadSome readSome) {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got =
        Uninterrupted([&] { return readSome(static_cast<char*>(bytes) + done, count - done, done); });
    if (got < 0) throw RunTimeErrorFromErrno(errno, path);
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

}  // namespace bwp
