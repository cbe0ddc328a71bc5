#pragma once

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace bench {

/// Runs a program of the system to its end. Its output goes to that file or, if none is named, nowhere.
/// Returns its exit status, or -1 if it could not be started or crashed.
inline int RunProgram(std::vector<std::string> words, const std::string& output = {}) {
  // Not the null device: grep would notice and stop at the first match.
  const std::string file = output.empty() ? "/var/tmp/bytewarp-bench-output" : output;
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  pid_t child = 0;
  int status = -1;
  if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0) {
    waitpid(child, &status, 0);
  }
  posix_spawn_file_actions_destroy(&actions);
  if (output.empty()) unlink(file.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The same, but ends the benchmark if the program fails: its figures would be worthless.
inline void MustRun(const std::vector<std::string>& words, const std::string& output = {}) {
  if (RunProgram(words, output) == 0) return;
  std::fprintf(stderr, "failed:");
  for (const std::string& word : words) std::fprintf(stderr, " %s", word.c_str());
  std::fprintf(stderr, "\n");
  std::exit(1);
}

}  // namespace bench
