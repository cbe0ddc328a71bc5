#pragma once

#include <functional>
#include <string>
#include <sys/types.h>

namespace bwp::test {

/// Starts a process that does the work and ends with 0, or 1 when a check of the test failed in it.
pid_t StartChild(const std::function<void()>& work);

/// Waits for the process; what waitpid says of it.
int WaitFor(pid_t child);

/// Does the work in a process of its own, for what cannot be taken back: another user, a limit, a mount. The
/// test fails when a check fails there.
void InChild(const std::function<void()>& work);

/// As InChild, where file systems can be mounted that nobody else sees; for any user, by a namespace of its
/// own. There the user is the administrator.
void InOwnMounts(const std::function<void()>& work);

/// Mounts an empty file system of that size, in bytes, on a folder.
void MountMemory(const std::string& folder, long bytes);

/// Mounts a file or folder on another one.
void MountOnto(const std::string& what, const std::string& where);

/// From now on the process is an ordinary user who owns nothing; only the administrator can do this.
void BecomeNobody();

inline constexpr unsigned kNobody = 65534;

}  // namespace bwp::test
