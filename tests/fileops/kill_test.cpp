#include <chrono>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <thread>

#include "fileops/buffer_operations.h"
#include "fileops/byte_stream.h"
#include "support/child.h"
#include "support/workplace.h"
#include "viewer/open_view_file.h"

// The program is killed at random moments of cuts and inserts; the file's name must always hold one of the
// two contents, whole.
namespace {

using bwp::CutChunk;
using bwp::InsertBuffer;
using bwp::test::PatternBytes;
using bwp::test::Workplace;

constexpr int kKills = 60;
constexpr std::int64_t kStart = 5'000'000;
constexpr std::int64_t kLength = 3'000'000;
constexpr std::size_t kTotal = 24'000'000;

bool Holds(const std::string& path, const std::string& bytes) {
  FileSystem::ReadStream file(path);
  if (file.Length() != static_cast<std::int64_t>(bytes.size())) return false;
  std::string found(bytes.size(), '\0');
  file.ReadAll(found.data(), found.size());
  return found == bytes;
}

class Killed : public testing::TestWithParam<const char*> {
 protected:
  Killed()
      : place_("", Workplace::RealDisk(), bwp::test::kMemory, GetParam()),
        whole_(PatternBytes(kTotal)),
        chunk_(whole_.substr(kStart, kLength)),
        rest_(std::string(whole_).erase(kStart, kLength)) {}

  // A cut or an insert, whichever leads to the other content.
  void Turn() {
    OpenViewFile(place_.state, place_.state.OpenFile);
    place_.Mark(kStart, kStart + kLength - 1);
    if (place_.state.FLen == static_cast<std::int64_t>(whole_.size())) {
      CutChunk(place_.state, place_.services);
    } else {
      place_.state.BufferData = chunk_;
      InsertBuffer(place_.state, place_.services, "bms");
    }
  }

  std::chrono::microseconds TimeOfATurn() {
    const auto start = std::chrono::steady_clock::now();
    Turn();
    Turn();
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start) /
           2;
  }

  // What the killed process left beside the file; nothing but its staging file may lie there.
  void ClearUp() {
    for (const std::string& name : place_.folder.Names()) {
      if (name == "data") continue;
      EXPECT_TRUE(name.starts_with(".bytewarp-")) << name;
      std::filesystem::remove(place_.folder / name);
    }
  }

  Workplace place_;
  std::string whole_, chunk_, rest_;
};

TEST_P(Killed, AtRandomMomentsLeavesTheWholeOldOrTheWholeNewContent) {
  std::mt19937 random(20'261'120);
  const std::string data = place_.folder.Write("data", whole_);
  const auto turn = TimeOfATurn();
  int wholeFound = 0;
  for (int kill = 0; kill < kKills; ++kill) {
    const pid_t child = bwp::test::StartChild([&] {
      for (;;) Turn();
    });
    std::this_thread::sleep_for(turn * (random() % 2000) / 1000);
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ASSERT_TRUE(WIFSIGNALED(bwp::test::WaitFor(child))) << "the child ended by itself";
    const bool whole = Holds(data, whole_);
    ASSERT_TRUE(whole || Holds(data, rest_)) << "after kill " << kill;
    wholeFound += whole ? 1 : 0;
    ClearUp();
  }
  // The kills met both contents, or they came at no random moments.
  EXPECT_GT(wholeFound, 0);
  EXPECT_LT(wholeFound, kKills);
  // And the next operation is a normal one.
  Turn();
  EXPECT_TRUE(Holds(data, whole_) || Holds(data, rest_));
  EXPECT_EQ(place_.folder.Names(), std::vector<std::string>{"data"});
  EXPECT_EQ(place_.temporary.Names(), std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, Killed, testing::Values(bwp::test::kMemory));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, Killed, testing::Values(bwp::test::kOnDisk));

}  // namespace
