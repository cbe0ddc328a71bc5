#include "app/linker_pages.h"

#include <fstream>
#include <gtest/gtest.h>
#include <link.h>
#include <string>
#include <string_view>

namespace {

// The read-only data of the first library that has some.
std::string_view ReadOnlyData() {
  std::string_view data;
  const auto look = [](dl_phdr_info* library, std::size_t /*size*/, void* found) {
    const std::string_view name = library->dlpi_name;
    for (int i = 0; i < library->dlpi_phnum && name.find(".so") != name.npos; ++i) {
      const ElfW(Phdr)& segment = library->dlpi_phdr[i];
      if (segment.p_type != PT_LOAD || segment.p_flags != PF_R) continue;
      *static_cast<std::string_view*>(found) = {
          reinterpret_cast<const char*>(library->dlpi_addr + segment.p_vaddr), segment.p_filesz};
      return 1;
    }
    return 0;
  };
  dl_iterate_phdr(look, &data);
  return data;
}

// The resident KiB of the mapping that begins at that address.
long ResidentAt(const char* start) {
  char address[32];
  std::snprintf(address, sizeof address, "%lx-", reinterpret_cast<unsigned long>(start));
  std::ifstream mappings("/proc/self/smaps");
  bool here = false;
  for (std::string line; std::getline(mappings, line);) {
    here = here || line.starts_with(address);
    if (here && line.starts_with("Rss:")) return std::stol(line.substr(4));
  }
  return -1;
}

TEST(LinkerPages, AreGivenBackAndReadTheSameAfterwards) {
  const std::string_view data = ReadOnlyData();
  ASSERT_FALSE(data.empty());
  const std::string before(data);
  const long resident = ResidentAt(data.data());
  bwp::ReleaseLinkerPages();
  // Not zero: reading smaps brings some pages back.
  EXPECT_LT(ResidentAt(data.data()), resident / 2);
  EXPECT_TRUE(data == before);
}

}  // namespace
