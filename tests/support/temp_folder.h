#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bwp::test {

/// A folder of the test's own, removed with its contents at the end.
class TempFolder {
 public:
  /// Under the given folder, or where the system keeps temporary files.
  explicit TempFolder(const std::string& under = {});
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  /// The folder's path, ending in a separator.
  const std::string& Path() const { return path_; }
  /// The path of a name in it.
  std::string operator/(const std::string& name) const { return path_ + name; }
  /// Writes a file into it and returns its path.
  std::string Write(const std::string& name, std::string_view bytes) const;
  /// The names in it, sorted.
  std::vector<std::string> Names() const;

 private:
  std::string path_;
};

/// The bytes of a file; the test fails when it cannot be read.
std::string ReadFile(const std::string& path);

/// Pseudo-random bytes, always the same ones, in which blocks do not repeat soon.
std::string PatternBytes(std::size_t count);

}  // namespace bwp::test
