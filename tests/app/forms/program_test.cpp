#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/wait.h>

namespace {

struct Answer {
  std::string output;
  int status = -1;
};

// The output of the real program for these arguments.
Answer Ask(const std::string& arguments) {
  const std::string command = std::string("timeout 20 " BYTEWARP_PROGRAM " ") + arguments + " 2>&1";
  std::FILE* const pipe = popen(command.c_str(), "r");
  Answer answer;
  std::array<char, 4096> piece{};
  while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), pipe)) {
    answer.output.append(piece.data(), got);
  }
  const int status = pclose(pipe);
  if (WIFEXITED(status)) answer.status = WEXITSTATUS(status);
  return answer;
}

TEST(Program, SaysItsVersion) {
  const Answer answer = Ask("--version");
  EXPECT_EQ(answer.status, 0);
  EXPECT_TRUE(answer.output.starts_with("bytewarp ")) << answer.output;
  EXPECT_EQ(answer.output.find('\n'), answer.output.size() - 1);
}

TEST(Program, SaysHowItIsCalled) {
  const Answer answer = Ask("--help");
  EXPECT_EQ(answer.status, 0);
  EXPECT_TRUE(answer.output.starts_with("Usage: bytewarp [FILE]\n")) << answer.output;
  for (const char* word : {"--help", "--version", "Bytewarp.cfg"}) {
    EXPECT_NE(answer.output.find(word), std::string::npos) << word;
  }
}

}  // namespace
