#pragma once

#include <string>
#include <vector>

/// What stands in a folder. Names are bytes as the operating system has them.
namespace bwp {

struct FolderListing {
  int error = 0;                     ///< 0, or the errno value that tells why the folder cannot be read.
  std::vector<std::string> folders;  ///< Names of the subfolders, in the order of NameLess.
  std::vector<std::string> files;    ///< Names of the regular files, in the same order; links count as what
                                     ///< they lead to.
};

/// Reads a folder.
FolderListing ListFolder(const std::string& folder);

/// The order of names in a list: the case of A to Z does not count, except between names that are else equal.
bool NameLess(const std::string& left, const std::string& right);

/// The folder as an absolute path without "." and "..", ending with a separator.
std::string FullFolder(const std::string& folder);

/// The way from the root to the full folder, itself last, each ending with a separator.
std::vector<std::string> ChainOf(const std::string& fullFolder);

/// The folder itself or the first on its way up that can be read; the root when none can.
std::string NearestReadable(const std::string& folder);

}  // namespace bwp
