#pragma once

namespace bwp {

/// Gives back to the system the pages that the dynamic linker has read: relocations and symbol tables of some
/// forty libraries, about 6 MiB of resident memory that is hardly ever looked at again. What is needed after
/// all comes back from the system's file cache. Worth calling once, when all libraries are there.
void ReleaseLinkerPages();

}  // namespace bwp
