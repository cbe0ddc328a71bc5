#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace bench {

/// Runs a program of the system to its end, its output thrown away; its exit status, or -1 when it could not
/// be started.
inline int RunProgram(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  // Not the null device: grep sees it and stops at the first match.
  posix_spawn_file_actions_addopen(&actions, 1, "/var/tmp/bytewarp-bench-output",
                                   O_WRONLY | O_CREAT | O_TRUNC, 0600);
  pid_t child = 0;
  int status = -1;
  if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0) {
    waitpid(child, &status, 0);
  }
  posix_spawn_file_actions_destroy(&actions);
  unlink("/var/tmp/bytewarp-bench-output");
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace bench
