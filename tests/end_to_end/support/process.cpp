#include "end_to_end/support/process.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace bwp::test {
namespace {

int StatusOf(int waited) {
  constexpr int kSignalled = 128;
  return WIFEXITED(waited) ? WEXITSTATUS(waited) : kSignalled + WTERMSIG(waited);
}

std::vector<std::string> WholeEnvironment(const Process::Environment& environment) {
  std::vector<std::string> lines;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string line = *entry;
    if (!environment.contains(line.substr(0, line.find('=')))) lines.push_back(line);
  }
  for (const auto& [name, value] : environment) lines.emplace_back(name).append("=").append(value);
  return lines;
}

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

// Forks and runs a command whose standard output and error go to these descriptors.
pid_t Spawn(const Process::Start& start, int output, int error) {
  const std::vector<std::string> environment = WholeEnvironment(start.environment);
  const std::vector<char*> arguments = Pointers(start.command);
  const std::vector<char*> variables = Pointers(environment);
  const pid_t pid = fork();
  if (pid != 0) return pid;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int nothing = open("/dev/null", O_RDONLY);
  if (nothing < 0 || dup2(nothing, 0) < 0 || dup2(output, 1) < 0 || dup2(error, 2) < 0) _exit(127);
  if (chdir(start.folder.c_str()) != 0) _exit(127);
  execvpe(arguments[0], arguments.data(), variables.data());
  _exit(127);
}

// The children of this process, as the kernel lists them.
std::vector<pid_t> Children() {
  std::vector<pid_t> children;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    std::ifstream list(task.path() / "children");
    for (pid_t child = 0; list >> child;) children.push_back(child);
  }
  return children;
}

}  // namespace

bool Until(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
  constexpr std::chrono::milliseconds kPause{30};
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

Process::Process(const Start& start) {
  const int output = open(start.output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  if (output < 0) throw std::runtime_error("cannot write " + start.output);
  pid_ = Spawn(start, output, output);
  close(output);
  if (pid_ < 0) throw std::runtime_error("cannot start " + start.command.front());
}

Process::~Process() {
  if (!Running()) return;
  Kill(SIGKILL);
  waitpid(pid_, nullptr, 0);
}

std::optional<int> Process::Status() {
  int waited = 0;
  if (!status_ && waitpid(pid_, &waited, WNOHANG) == pid_) status_ = StatusOf(waited);
  return status_;
}

int Process::WaitForEnd() {
  return Until([this] { return !Running(); }) ? *status_ : -1;
}

void Process::Kill(int signal) const {
  kill(pid_, signal);
}

std::string OutputOf(const std::vector<std::string>& command, const Process::Environment& environment) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  const pid_t pid = Spawn({command, environment}, ends[1], nowhere);
  close(ends[1]);
  close(nowhere);
  std::string text;
  char buffer[4096];
  for (ssize_t count = 0; (count = read(ends[0], buffer, sizeof buffer)) > 0;) {
    text.append(buffer, static_cast<std::size_t>(count));
  }
  close(ends[0]);
  waitpid(pid, nullptr, 0);
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

void AdoptStrayProcesses() {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void EndStrayProcesses() {
  for (std::vector<pid_t> left = Children(); !left.empty(); left = Children()) {
    for (const pid_t child : left) {
      kill(child, SIGKILL);
      waitpid(child, nullptr, 0);
    }
  }
}

}  // namespace bwp::test
