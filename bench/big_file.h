#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <unistd.h>

namespace bench {

/// A file of many blocks of the same length, in the page cache, that is deleted with this object.
class BigFile {
 public:
  static constexpr std::size_t kBlock = 1 << 20;

  BigFile(std::int64_t length, const std::function<void(std::string& block)>& fill,
          const std::string& folder = "/var/tmp")
      : path_(folder + "/bytewarp-bench-XXXXXX") {
    const int descriptor = mkstemp(path_.data());
    std::string block(kBlock, '\0');
    for (std::int64_t done = 0; done < length; done += static_cast<std::int64_t>(kBlock)) {
      fill(block);
      if (write(descriptor, block.data(), kBlock) != static_cast<ssize_t>(kBlock)) Stop("write");
    }
    close(descriptor);
  }
  BigFile(const BigFile&) = delete;
  BigFile& operator=(const BigFile&) = delete;
  ~BigFile() { unlink(path_.c_str()); }

  const std::string& Path() const { return path_; }

  [[noreturn]] static void Stop(const char* what) {
    std::perror(what);
    std::exit(1);
  }

 private:
  std::string path_;
};

/// The length of the files in bytes: the first argument in MiB, or 1 GiB.
inline std::int64_t LengthFrom(int argc, char** argv) {
  return (argc > 1 ? std::atoll(argv[1]) : 1024) * static_cast<std::int64_t>(BigFile::kBlock);
}

/// How often each job runs: the second argument, or 7 times.
inline int RoundsFrom(int argc, char** argv) {
  return argc > 2 ? std::atoi(argv[2]) : 7;
}

/// Pseudo-random bytes, different in every block.
inline void FillMixed(std::string& block) {
  static std::uint64_t mix = 88172645463325252U;
  for (char& byte : block) {
    mix ^= mix << 13U;
    mix ^= mix >> 7U;
    mix ^= mix << 17U;
    byte = static_cast<char>(mix >> 32U);
  }
}

}  // namespace bench
