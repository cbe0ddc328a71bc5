#include "support/temp_folder.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace bwp::test {

namespace fs = std::filesystem;

TempFolder::TempFolder(const std::string& under) {
  const std::string stem = (under.empty() ? fs::temp_directory_path().string() : under) + "/bytewarp-test-";
  // Part names take the first digit of a path for their number, so the folder's name has none.
  std::string name;
  for (bool digit = true; digit;) {
    name = stem + "XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test: " + name);
    digit = name.find_first_of("0123456789", stem.size()) != std::string::npos;
    if (digit) fs::remove(name);
  }
  path_ = name + "/";
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TempFolder::Write(const std::string& name, std::string_view bytes) const {
  std::string path = path_ + name;
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  EXPECT_TRUE(file.flush().good()) << path;
  return path;
}

std::vector<std::string> TempFolder::Names() const {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(path_)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string PatternBytes(std::size_t count) {
  std::string bytes(count, '\0');
  std::uint32_t state = 12345;
  for (char& byte : bytes) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<char>(state >> 24U);
  }
  return bytes;
}

}  // namespace bwp::test
