#pragma once

#include <optional>
#include <string>

/// Paths are byte strings as the operating system uses them; they need not be UTF-8.
namespace funzioni {

/// The platform's folder separator.
inline constexpr char kSeparator = '/';

/// True when the path names a regular file, links followed.
bool FileExists(const std::string& path);

/// True when the path leads to a folder, links followed.
bool FolderExists(const std::string& path);

/// The folder part of a path, up to and including its last separator; empty when there is none.
std::string FolderOf(const std::string& path);

/// The name part of a path: what follows its last separator.
std::string NameOf(const std::string& path);

/// The folder with a separator appended when it does not already end with one.
std::string WithSeparator(std::string folder);

/// The folder as system calls need it: "." for an empty one, as FolderOf returns it for a bare name.
std::string FolderOrHere(const std::string& folder);

/// The absolute path with all links resolved; nothing, with errno set, if it cannot be resolved.
std::optional<std::string> ResolvedPath(const std::string& path);

/// The path of a name relative to the folder, which ends with a separator; an absolute name stays as it is.
std::string PathIn(const std::string& folder, const std::string& name);

/// The path that a command-line text names: the text without surrounding double quotes.
std::string CommandLinePath(const std::string& text);

}  // namespace funzioni
