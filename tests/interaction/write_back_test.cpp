#include "interaction/write_back.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "interaction/edit_mode.h"
#include "support/errors.h"
#include "support/interaction_bench.h"
#include "viewer/refresh.h"
#include "viewer/run_time_error.h"

namespace {

using bwp::EditMode;
using bwp::WriteBackPage;
using bwp::test::OpenedFile;
using bwp::test::ReadFile;

/// Notes every call, and lets the one of the given number fail or come out short.
class WatchedDisk : public bwp::Disk {
 public:
  int Open(const std::string& path, int flags, mode_t mode) const override {
    return Fails("open") ? -1 : Disk::Open(path, flags, mode);
  }
  ssize_t PositionedWrite(int descriptor, const void* bytes, std::size_t count, off_t offset) const override {
    if (Fails("write")) return -1;
    return Disk::PositionedWrite(descriptor, bytes, std::min(count, largestWrite), offset);
  }
  int Sync(int descriptor) const override { return Fails("sync") ? -1 : Disk::Sync(descriptor); }
  int Close(int descriptor) const override {
    const bool fails = Fails("close");
    const int result = Disk::Close(descriptor);
    if (fails) errno = EIO;
    return fails ? -1 : result;
  }

  std::string failing;  // the kind of call that fails, and which of them
  int failingCall = 1;
  std::size_t largestWrite = 1'000'000;
  mutable std::vector<std::string> calls;

 private:
  mutable int seen = 0;
  bool Fails(const std::string& call) const {
    calls.push_back(call);
    const bool fails = call == failing && ++seen == failingCall;
    if (fails) errno = EIO;
    return fails;
  }
};

struct Page : OpenedFile {
  explicit Page(std::size_t length, std::int64_t start = 0, bool hex = true) : OpenedFile(length) {
    state.HexMode = hex;
    state.SWStart = start;
    bwp::Refresh(state, display);
    edit.Enter({0, 1});
  }
  void Type(const std::string& keys) {
    for (const char key : keys) edit.TypeKey(static_cast<std::uint8_t>(key));
  }

  EditMode edit{state};
  WatchedDisk disk;
};

TEST(WriteBack, WritesThePageAndNothingElse) {
  Page p(2000, 700);
  p.Type("0102030405");
  EXPECT_TRUE(WriteBackPage(p.state, p.disk));
  std::string expected = p.bytes;
  expected.replace(700, 5, "\x01\x02\x03\x04\x05");
  EXPECT_EQ(ReadFile(p.path), expected);
  EXPECT_EQ(p.disk.calls, (std::vector<std::string>{"open", "write", "sync", "close"}));
}

TEST(WriteBack, StopsAtTheEndOfTheFile) {
  Page p(100);
  p.edit.MoveTo({6, 4});
  p.Type("FFEE");
  EXPECT_EQ(bwp::PageBytes(p.state).size(), 100U);
  EXPECT_TRUE(WriteBackPage(p.state, p.disk));
  std::string expected = p.bytes;
  expected[99] = '\xEE';
  EXPECT_EQ(ReadFile(p.path), expected);
}

TEST(WriteBack, ReadsTheCellsInTheBaseThatIsShown) {
  Page p(600, 0, false);
  p.Type("010011300");
  EXPECT_EQ(bwp::PageBytes(p.state).substr(0, 3), "\x0A\x0B\xFF");
}

TEST(WriteBack, ACellThatWasNotFinishedCountsAsItStands) {
  Page p(600);
  p.Type("C");
  EXPECT_EQ(bwp::PageBytes(p.state)[0], '\x0C');
}

TEST(WriteBack, GoesOnAfterAShortWrite) {
  Page p(2000, 700);
  p.Type("0102030405");
  p.disk.largestWrite = 3;
  EXPECT_TRUE(WriteBackPage(p.state, p.disk));
  std::string expected = p.bytes;
  expected.replace(700, 5, "\x01\x02\x03\x04\x05");
  EXPECT_EQ(ReadFile(p.path), expected);
}

TEST(WriteBack, ADiskThatTakesNothingAndGivesNoReasonIsAtFault) {
  Page p(2000, 700);
  p.Type("0102");
  p.disk.largestWrite = 0;
  const bwp::RunTimeError error = bwp::test::ErrorOf([&p] { WriteBackPage(p.state, p.disk); });
  EXPECT_EQ(error.number, bwp::kDeviceError);
  EXPECT_EQ(error.path, p.path);
  EXPECT_EQ(ReadFile(p.path), p.bytes);
}

TEST(WriteBack, EveryFailureIsToldWithThePath) {
  for (const char* call : {"open", "write", "sync", "close"}) {
    Page p(2000, 700);
    p.Type("0102");
    p.disk.failing = call;
    try {
      WriteBackPage(p.state, p.disk);
      FAIL() << call;
    } catch (const bwp::RunTimeError& error) {
      EXPECT_EQ(error.number, bwp::kDeviceError) << call;
      EXPECT_EQ(error.path, p.path) << call;
    }
    const auto closes = std::count(p.disk.calls.begin(), p.disk.calls.end(), "close");
    EXPECT_EQ(closes, std::string(call) == "open" ? 0 : 1) << call;
    std::string expected = p.bytes;
    const bool written = std::string(call) == "sync" || std::string(call) == "close";
    if (written) expected.replace(700, 2, "\x01\x02");
    EXPECT_EQ(ReadFile(p.path), expected) << call;
  }
}

TEST(WriteBack, AWriteThatFailsAfterAShortOneHasChangedNothingButThePage) {
  Page p(2000, 700);
  p.Type("0102030405");
  p.disk.largestWrite = 3;
  p.disk.failing = "write";
  p.disk.failingCall = 2;
  EXPECT_THROW(WriteBackPage(p.state, p.disk), bwp::RunTimeError);
  EXPECT_EQ(p.disk.calls, (std::vector<std::string>{"open", "write", "write", "close"}));
  std::string expected = p.bytes;
  expected.replace(700, 3, "\x01\x02\x03");
  EXPECT_EQ(ReadFile(p.path), expected);
}

TEST(WriteBack, LeavesAFileAloneThatAnotherProgramChangedInLength) {
  Page p(600);
  p.Type("00");
  const std::string shorter = p.bytes.substr(0, 50);
  p.folder.Write("file", shorter);
  EXPECT_FALSE(WriteBackPage(p.state, p.disk));
  EXPECT_EQ(ReadFile(p.path), shorter);
}

TEST(WriteBack, LeavesAFileAloneThatTookTheOpenOnesName) {
  Page p(600);
  p.Type("00");
  const std::string other(600, 'x');
  ASSERT_EQ(std::rename(p.folder.Write("other", other).c_str(), p.path.c_str()), 0);
  EXPECT_FALSE(WriteBackPage(p.state, p.disk));
  EXPECT_EQ(ReadFile(p.path), other);
}

RC_GTEST_PROP(WriteBackModel, NoByteOutsideThePageEverChanges, ()) {
  const auto length = *rc::gen::inRange<std::int64_t>(1, 2000);
  const auto start = *rc::gen::inRange<std::int64_t>(0, 2000);
  const bool hex = *rc::gen::arbitrary<bool>();
  Page p(static_cast<std::size_t>(length), start, hex);
  const std::int64_t first = p.state.SWStart;
  std::string expected = p.bytes;
  const int edits = *rc::gen::inRange(0, 20);
  for (int i = 0; i < edits; ++i) {
    const auto place = *rc::gen::inRange<std::int64_t>(0, std::min<std::int64_t>(512, length));
    const int byte = *rc::gen::inRange(0, 256);
    std::array<char, 8> keys{};
    std::snprintf(keys.data(), keys.size(), hex ? "%02x" : "%03d", byte);
    p.edit.MoveTo(bwp::ValueCell(static_cast<int>(place)));
    p.Type(keys.data());
    expected[static_cast<std::size_t>(first + place)] = static_cast<char>(byte);
  }
  RC_ASSERT(WriteBackPage(p.state, p.disk));
  RC_ASSERT(ReadFile(p.path) == expected);
}

}  // namespace
