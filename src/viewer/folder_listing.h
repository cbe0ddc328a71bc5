#pragma once

#include <string>
#include <vector>

/// The contents of folders. Names are byte strings as the operating system stores them.
namespace bwp {

struct FolderListing {
  int error = 0;                     ///< 0, or the errno value of the failed read.
  std::vector<std::string> folders;  ///< Names of the subfolders, in the order of NameLess.
  std::vector<std::string> files;    ///< Names of the regular files, in the same order; links count as what
                                     ///< they lead to.
};

/// Reads a folder; an error is only noted in the result.
FolderListing ListFolder(const std::string& folder);

/// The order of names in a list: the case of A to Z is ignored, except between names that are otherwise
/// equal.
bool NameLess(const std::string& left, const std::string& right);

/// The folder as an absolute path without "." and "..", ending with a separator.
std::string FullFolder(const std::string& folder);

/// The folders from the root down to the full folder itself, each ending with a separator.
std::vector<std::string> ChainOf(const std::string& fullFolder);

/// The folder itself or its nearest ancestor that can be read; the root if none can.
std::string NearestReadable(const std::string& folder);

}  // namespace bwp
