#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "fileops/buffer_operations.h"
#include "fileops/save.h"
#include "fileops/temporary_file.h"
#include "support/failing_disk.h"
#include "support/workplace.h"
#include "viewer/open_view_file.h"
#include "viewer/run_time_error.h"

// Every call that changes the disk fails once, one after the other, until the operation runs through; what
// must never be lost is looked at each time.
namespace {

using bwp::test::FailingDisk;
using bwp::test::Fault;
using bwp::test::NameOf;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::Workplace;

constexpr Fault kFaults[] = {Fault::kNoSpace, Fault::kDeviceError, Fault::kShortWrite, Fault::kInterrupted,
                             Fault::kNoPermission};
constexpr std::int64_t kStart = 1'000;
constexpr std::int64_t kLength = 20;
constexpr mode_t kMode = 0640;
constexpr uid_t kOwner = 1234;

const std::string& OldBytes() {
  static const std::string bytes = PatternBytes(3'000);
  return bytes;
}

const std::string kBuffer = "bytes that were cut before";

struct Operation {
  const char* name;
  void (*run)(Workplace&);
  std::string newBytes;   // What the open file may hold afterwards instead of the old bytes.
  std::string newBuffer;  // What the Buffer holds then.
};

// What the disk is like, all faults aside.
enum class Ground {
  kOneFileSystem,
  kTwoFileSystems,
  kTwoThatLookLikeOne,
  kNoNameGivenUp,
  kNoNameGivenUpAndNoRenameToANewOne,
  kFoldersWithAccessLists
};

bool GivesUpNames(Ground ground) {
  return ground != Ground::kNoNameGivenUp && ground != Ground::kNoNameGivenUpAndNoRenameToANewOne;
}

// Faults on top of that ground.
class GroundDisk : public FailingDisk {
 public:
  explicit GroundDisk(Ground ground) : ground_(ground) {}
  int Rename(const std::string& from, const std::string& to) const override {
    const bool hidden = to.find("/.bytewarp-") != std::string::npos;
    const bool refused = hidden ? ground_ == Ground::kTwoThatLookLikeOne : !GivesUpNames(ground_);
    if (!refused) return FailingDisk::Rename(from, to);
    errno = hidden ? EXDEV : EPERM;
    return -1;
  }
  int RenameNew(const std::string& from, const std::string& to) const override {
    if (ground_ != Ground::kNoNameGivenUpAndNoRenameToANewOne) return FailingDisk::RenameNew(from, to);
    errno = EINVAL;
    return -1;
  }
  void BecomeOrdinary() { ground_ = Ground::kOneFileSystem; }

 private:
  Ground ground_;
};

// Each new file in the folder lets user 1234 read it.
void GiveAccessListToNewFiles(const std::string& folder) {
  struct Entry {
    std::uint16_t tag, permissions;
    std::uint32_t id;
  };
  const struct {
    std::uint32_t version = 2;
    Entry entries[5] = {{1, 6, ~0U}, {2, 4, 1234}, {4, 4, ~0U}, {16, 4, ~0U}, {32, 0, ~0U}};
  } list;
  EXPECT_EQ(setxattr(folder.c_str(), "system.posix_acl_default", &list, sizeof list, 0), 0);
}

void PrintTo(const Operation& operation, std::ostream* out) {
  *out << operation.name;
}

std::vector<Operation> Operations() {
  const std::string& old = OldBytes();
  const std::string chunk = old.substr(kStart, kLength);
  const std::string without = std::string(old).erase(kStart, kLength);
  const std::string with = std::string(old).insert(kStart, kBuffer);
  return {
      {"Copy", [](Workplace& place) { CopyChunk(place.state, place.services); }, old, chunk},
      {"Cut", [](Workplace& place) { CutChunk(place.state, place.services); }, without, chunk},
      {"CancelledCut",
       [](Workplace& place) {
         place.progress.CancelAtEvents(5);
         CutChunk(place.state, place.services);
       },
       old, kBuffer},
      {"CancelledInsert",
       [](Workplace& place) {
         place.progress.CancelAtEvents(5);
         InsertBuffer(place.state, place.services, "bms");
       },
       old, kBuffer},
      {"Insert", [](Workplace& place) { InsertBuffer(place.state, place.services, "bms"); }, with, kBuffer},
      {"SaveAs",
       [](Workplace& place) {
         SaveUnderTypedName(place.state, place.services, SaveAsTask(place.state), "copy");
       },
       old, kBuffer},
      {"SaveChunk",
       [](Workplace& place) {
         SaveUnderTypedName(place.state, place.services, SaveChunkTask(place.state), "copy");
       },
       old, kBuffer},
  };
}

std::size_t OpenDescriptors() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

// One run with one fault.
class Trial {
 public:
  Trial(const Operation& operation, Ground ground, int number, Fault fault)
      : operation_(operation),
        ground_(ground),
        fault_(fault),
        disk_(ground),
        place_(OldBytes(), disk_, bwp::test::kMemory,
               ground == Ground::kTwoFileSystems ? bwp::test::kOnDisk : bwp::test::kMemory) {
    data_ = place_.state.OpenFile;
    EXPECT_EQ(chmod(data_.c_str(), kMode), 0);
    if (geteuid() == 0) {
      EXPECT_EQ(chown(data_.c_str(), kOwner, kOwner), 0);
    }
    attributes_ = setxattr(data_.c_str(), "user.colour", "blue", 4, 0) == 0;
    if (ground == Ground::kFoldersWithAccessLists) {
      GiveAccessListToNewFiles(place_.folder.Path());
      GiveAccessListToNewFiles(place_.temporary.Path());
    }
    place_.folder.Write("copy", "old");
    place_.state.LastFolder = place_.folder.Path();
    place_.state.BufferData = kBuffer;
    place_.state.BufferIsCut = true;
    place_.Mark(kStart, kStart + kLength - 1);
    disk_.FailAt(number, fault);
  }

  // The call that failed, its paths told by their folders; empty when the fault did not come to pass.
  std::string Run() {
    const std::size_t descriptors = OpenDescriptors();
    const bool wasOpen = place_.state.file.IsOpen();
    try {
      operation_.run(place_);
    } catch (const bwp::RunTimeError& error) {
      CheckReport(error);
    }
    const std::size_t closed = wasOpen && !place_.state.file.IsOpen() ? 1 : 0;
    EXPECT_EQ(OpenDescriptors() + closed, descriptors);
    const std::string failed = disk_.Failed();
    SCOPED_TRACE(failed);
    CheckFiles();
    CheckBuffer();
    CheckNextOperation();
    return Anonymous(failed);
  }

 private:
  std::string Anonymous(std::string call) const {
    const auto replace = [&](const std::string& what, const std::string& with) {
      const std::size_t at = call.find(what);
      if (at != std::string::npos) call.replace(at, what.size(), with);
    };
    replace(place_.folder.Path(), "");
    replace(bwp::TemporaryPath(), "temporary");
    const std::size_t letters = call.find(".bytewarp-");
    return letters == std::string::npos ? call : call.substr(0, letters) + "staged";
  }

  void CheckReport(const bwp::RunTimeError& error) {
    EXPECT_NE(fault_, Fault::kInterrupted) << error.Report();
    EXPECT_NE(fault_, Fault::kShortWrite) << error.Report();
    const int expected = fault_ == Fault::kNoSpace ? 61 : fault_ == Fault::kDeviceError ? 57 : 70;
    EXPECT_EQ(error.number, expected) << error.Report();
    EXPECT_TRUE(error.path.starts_with(place_.folder.Path()) ||
                error.path.starts_with(place_.temporary.Path()))
        << error.Report();
  }

  bool StandsAsNew() const { return place_.state.OpenFile == data_ + ".new"; }

  bool IsRewritten() const { return StandsAsNew() || ReadFile(data_) != OldBytes(); }

  void CheckFiles() {
    EXPECT_EQ(place_.temporary.Names(), std::vector<std::string>{});
    std::vector<std::string> names = place_.folder.Names();
    // Deleted for the save that then failed, or never touched, or saved whole.
    if (std::erase(names, "copy") == 1) {
      const std::string copy = ReadFile(place_.folder / "copy");
      EXPECT_TRUE(copy == "old" || copy == OldBytes() || copy == OldBytes().substr(kStart, kLength));
    }
    std::vector<std::string> expected{"data"};
    if (StandsAsNew()) {
      EXPECT_TRUE(fault_ == Fault::kNoPermission || !GivesUpNames(ground_));
      expected.emplace_back("data.new");
      EXPECT_EQ(ReadFile(data_), OldBytes());
      CheckNewContent(data_ + ".new");
    } else if (IsRewritten()) {
      CheckNewContent(data_);
    }
    EXPECT_EQ(names, expected);
  }

  void CheckNewContent(const std::string& path) {
    EXPECT_EQ(ReadFile(path), operation_.newBytes);
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    const bool ownerRefused = disk_.Failed() == "change owner" && fault_ == Fault::kNoPermission;
    EXPECT_EQ(status.st_mode & 07777U, kMode);
    if (geteuid() == 0 && !ownerRefused) {
      EXPECT_EQ(status.st_uid, kOwner);
    }
    if (geteuid() == 0) {
      EXPECT_EQ(status.st_gid, kOwner);
    }
    EXPECT_LT(getxattr(path.c_str(), "system.posix_acl_access", nullptr, 0), 0);
    char colour[8] = {};
    if (attributes_) {
      EXPECT_EQ(getxattr(path.c_str(), "user.colour", colour, sizeof colour), 4);
    }
  }

  void CheckBuffer() {
    const bool asBefore = place_.state.BufferData == kBuffer && place_.state.BufferIsCut;
    if (IsRewritten()) {
      EXPECT_EQ(place_.state.BufferData, operation_.newBuffer);
      EXPECT_TRUE(place_.state.BufferIsCut);
    } else if (operation_.newBytes != OldBytes()) {
      EXPECT_TRUE(asBefore);
    } else {
      EXPECT_TRUE(asBefore || place_.state.BufferData == operation_.newBuffer);
    }
  }

  void CheckNextOperation() {
    disk_.FailAt(0, fault_);
    disk_.BecomeOrdinary();
    place_.progress.ClearAbort();
    place_.progress.CancelAtEvents(0);
    OpenViewFile(place_.state, data_);
    place_.Mark(0, 9);
    const std::string bytes = ReadFile(data_);
    CutChunk(place_.state, place_.services);
    EXPECT_EQ(ReadFile(data_), bytes.substr(10));
    EXPECT_EQ(place_.state.BufferData, bytes.substr(0, 10));
  }

  const Operation& operation_;
  Ground ground_;
  Fault fault_;
  GroundDisk disk_;
  Workplace place_;
  std::string data_;
  bool attributes_ = false;
};

using Calls = std::set<std::string>;

Calls operator+(Calls some, const Calls& others) {
  some.insert(others.begin(), others.end());
  return some;
}

// The calls that it makes whatever the system is like and whoever runs the test.
Calls CertainCalls(const Operation& operation, Ground ground) {
  const std::string name = operation.name;
  if (name == "Copy") return {};
  if (name.starts_with("Save")) return {"delete copy", "open copy", "copy range", "close"};
  const Calls writing{"open temporary", "lock", "change mode", "truncate", "copy range", "close"};
  if (name == "CancelledStaging") {
    return writing + Calls{"open staged", "rename staged", "delete staged", "delete temporary"};
  }
  if (name.starts_with("Cancelled")) return writing + Calls{"delete temporary"};
  const Calls placing = writing + Calls{"open staged", "sync"};
  const Calls moving = placing + Calls{"rename staged"};
  switch (ground) {
    case Ground::kOneFileSystem:
      return moving + Calls{"rename data"};
    case Ground::kTwoFileSystems:
      return moving + Calls{"rename data", "delete temporary"};
    case Ground::kTwoThatLookLikeOne:
      return placing + Calls{"rename data", "delete temporary"};
    case Ground::kNoNameGivenUp:
      return moving + Calls{"rename new data.new"};
    case Ground::kNoNameGivenUpAndNoRenameToANewOne:
      return moving + Calls{"link data.new", "delete staged"};
    case Ground::kFoldersWithAccessLists:
      return moving + Calls{"remove attribute", "rename data"};
  }
  return {};
}

void FailOneCallAfterTheOther(const Operation& operation, Ground ground) {
  Calls calls;
  for (const Fault fault : kFaults) {
    for (int number = 1;; ++number) {
      SCOPED_TRACE(std::string(NameOf(fault)) + " at call " + std::to_string(number));
      const std::string failed = Trial(operation, ground, number, fault).Run();
      if (failed.empty()) break;
      calls.insert(failed);
      if (testing::Test::HasFailure()) return;
    }
  }
  // Only some systems keep attributes or copy from one disk to another by themselves; only the administrator
  // gives files away.
  for (const char* const uncertain : {"change owner", "set attribute", "write"}) calls.erase(uncertain);
  EXPECT_EQ(calls, CertainCalls(operation, ground));
}

class EveryFault : public testing::TestWithParam<Operation> {};

TEST_P(EveryFault, OnOneFileSystemLosesNothing) {
  FailOneCallAfterTheOther(GetParam(), Ground::kOneFileSystem);
}

TEST_P(EveryFault, AcrossTwoFileSystemsLosesNothing) {
  FailOneCallAfterTheOther(GetParam(), Ground::kTwoFileSystems);
}

TEST_P(EveryFault, WhereNoNameIsGivenUpLosesNothing) {
  FailOneCallAfterTheOther(GetParam(), Ground::kNoNameGivenUp);
}

TEST_P(EveryFault, WhereNoRenameRefusesToOverwriteLosesNothing) {
  FailOneCallAfterTheOther(GetParam(), Ground::kNoNameGivenUpAndNoRenameToANewOne);
}

TEST_P(EveryFault, InFoldersWithAccessListsLosesNothing) {
  FailOneCallAfterTheOther(GetParam(), Ground::kFoldersWithAccessLists);
}

TEST_P(EveryFault, WhereOneFileSystemTurnsOutToBeTwoLosesNothing) {
  FailOneCallAfterTheOther(GetParam(), Ground::kTwoThatLookLikeOne);
}

INSTANTIATE_TEST_SUITE_P(Of, EveryFault, testing::ValuesIn(Operations()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(EveryFaultOfACancelledStaging, LosesNothing) {
  const Operation cancelled{"CancelledStaging",
                            [](Workplace& place) {
                              place.progress.CancelAtEvents(10);
                              CutChunk(place.state, place.services);
                            },
                            OldBytes(), kBuffer};
  FailOneCallAfterTheOther(cancelled, Ground::kTwoFileSystems);
}

}  // namespace
