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

/// Owns a file descriptor that nothing is written through; it is closed with this object.
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

/// Opens the regular file for reading. Throws the platform's file error; 75 for what is no regular file.
Descriptor OpenForReading(const std::string& path);

/// What the system knows of an open file; the path is for the report. Throws the platform's file error.
struct stat StatusOf(int descriptor, const std::string& path);

/// Reads up to count bytes; returns how many there were, fewer only at the end of the file. `readSome` is
/// given where the next bytes go, how many are missing and how many were read. Throws the platform's file
/// error.
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
