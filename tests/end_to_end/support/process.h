#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace bwp::test {

/// How long a test waits for what must happen; far above what a busy machine needs.
constexpr std::chrono::seconds kPatience{20};

/// Asks again and again until the condition holds; false when it did not within the time.
bool Until(const std::function<bool()>& condition, std::chrono::milliseconds patience = kPatience);

/// A process of the test's own: killed when this object goes, or when the test itself is killed.
class Process {
 public:
  using Environment = std::map<std::string, std::string>;

  struct Start {
    std::vector<std::string> command;
    /// Set on top of the test's own environment.
    Environment environment;
    /// The folder that it runs in.
    std::string folder = "/";
    /// The file that gets what it prints.
    std::string output = "/dev/null";
  };

  explicit Process(const Start& start);
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process();

  pid_t Pid() const { return pid_; }
  bool Running() { return !Status(); }
  /// The exit status, or 128 + N after signal N; nothing while it runs.
  std::optional<int> Status();
  /// Waits for its end; -1 when it does not end.
  int WaitForEnd();
  void Kill(int signal) const;

 private:
  pid_t pid_ = -1;
  std::optional<int> status_;
};

/// Runs a command to its end and gives what it printed on standard output, without the last line end.
std::string OutputOf(const std::vector<std::string>& command, const Process::Environment& environment);

/// From now on whoever loses its parent among the processes started here becomes this process' child, so
/// that EndStrayProcesses finds it.
void AdoptStrayProcesses();

/// Kills every process that was started from here, directly or by one of those, and still runs.
void EndStrayProcesses();

}  // namespace bwp::test
