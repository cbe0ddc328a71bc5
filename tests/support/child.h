#pragma once

#include <functional>
#include <string>
#include <sys/types.h>

namespace bwp::test {

/// Starts a process that does the work and ends with 0, or 1 when a check of the test failed in it.
pid_t StartChild(const std::function<void()>& work);

/// Waits for the process and returns its status as waitpid gives it.
int WaitFor(pid_t child);

/// Does the work in a child process, for changes that cannot be undone: another user, a limit, a mount. The
/// test fails if a check fails there.
void InChild(const std::function<void()>& work);

/// As InChild, in a namespace of its own, where any user is the administrator and can mount file systems that
/// no other process sees.
void InOwnMounts(const std::function<void()>& work);

/// Mounts an empty file system of that size, in bytes, on a folder.
void MountMemory(const std::string& folder, long bytes);

/// Mounts a file or folder on another one.
void MountOnto(const std::string& what, const std::string& where);

/// Makes the process an ordinary user that owns nothing; only the administrator can do this.
void BecomeNobody();

inline constexpr unsigned kNobody = 65534;

}  // namespace bwp::test
