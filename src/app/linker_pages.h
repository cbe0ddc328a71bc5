#pragma once

namespace bwp {

/// Returns to the system the pages that the dynamic linker has read: relocations and symbol tables of some
/// forty libraries, about 6 MiB of resident memory that is hardly ever used again. Pages that are needed
/// again come from the system's file cache. Call it once, when most libraries are loaded.
void ReleaseLinkerPages();

}  // namespace bwp
