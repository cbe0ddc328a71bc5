#include "app/linker_pages.h"

#include <cstdint>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

namespace bwp {
namespace {

// Segments that were changed (relocated data), or may have been (code, by a debugger), keep their pages.
int ReleaseReadOnly(dl_phdr_info* library, std::size_t /*size*/, void* /*data*/) {
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  for (int i = 0; i < library->dlpi_phnum; ++i) {
    const ElfW(Phdr)& segment = library->dlpi_phdr[i];
    if (segment.p_type != PT_LOAD || segment.p_flags != PF_R) continue;
    const std::uintptr_t start = (library->dlpi_addr + segment.p_vaddr) / page * page;
    const std::uintptr_t end = library->dlpi_addr + segment.p_vaddr + segment.p_filesz;
    // If the system does not follow the advice, only more memory is taken.
    static_cast<void>(madvise(reinterpret_cast<void*>(start), end - start, MADV_DONTNEED));
  }
  return 0;
}

}  // namespace

void ReleaseLinkerPages() {
  dl_iterate_phdr(ReleaseReadOnly, nullptr);
}

}  // namespace bwp
