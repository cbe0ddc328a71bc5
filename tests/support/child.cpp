#include "support/child.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include "viewer/run_time_error.h"

namespace bwp::test {
namespace {

void Require(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what + ": " + std::strerror(errno));
}

void WriteText(const std::string& path, const std::string& text) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  Require(descriptor >= 0, path);
  const ssize_t written = write(descriptor, text.data(), text.size());
  close(descriptor);
  Require(written == static_cast<ssize_t>(text.size()), path);
}

// An ordinary user may mount only in a user namespace that makes it the administrator.
void EnterOwnMounts() {
  const uid_t user = geteuid();
  const gid_t group = getegid();
  Require(unshare(CLONE_NEWNS | (user == 0 ? 0 : CLONE_NEWUSER)) == 0,
          "this system lets the test make no mounts of its own");
  if (user != 0) {
    WriteText("/proc/self/setgroups", "deny");
    WriteText("/proc/self/uid_map", "0 " + std::to_string(user) + " 1");
    WriteText("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
  }
  Require(mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) == 0, "private mounts");
}

}  // namespace

pid_t StartChild(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child != 0) return child;
  try {
    work();
  } catch (const RunTimeError& error) {
    ADD_FAILURE() << error.Report();
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  } catch (...) {
    // The child must never go on to run the parent's tests.
    ADD_FAILURE() << "an unknown exception";
  }
  _exit(testing::Test::HasFailure() ? 1 : 0);
}

int WaitFor(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

void InChild(const std::function<void()>& work) {
  EXPECT_EQ(WaitFor(StartChild(work)), 0) << "a check failed in the child";
}

void InOwnMounts(const std::function<void()>& work) {
  InChild([&] {
    EnterOwnMounts();
    work();
  });
}

void MountMemory(const std::string& folder, long bytes) {
  const std::string options = "size=" + std::to_string(bytes);
  Require(mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0, "mount on " + folder);
}

void MountOnto(const std::string& what, const std::string& where) {
  Require(mount(what.c_str(), where.c_str(), "none", MS_BIND, nullptr) == 0, "mount on " + where);
}

void BecomeNobody() {
  Require(setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0,
          "only the administrator can become another user");
}

}  // namespace bwp::test
