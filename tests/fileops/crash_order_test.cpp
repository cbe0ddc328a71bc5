#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <vector>

#include "fileops/buffer_operations.h"
#include "support/workplace.h"
#include "viewer/view_file.h"

// What a power cut can leave depends on the order in which the disk is changed and waited for: the new
// content has to be on the disk before it gets the file's name, and the name before the operation is over.
namespace {

using bwp::FileIdentity;
using bwp::test::PatternBytes;
using bwp::test::Workplace;

FileIdentity IdentityOf(int descriptor) {
  struct stat status = {};
  EXPECT_EQ(fstat(descriptor, &status), 0);
  return {status.st_dev, status.st_ino};
}

FileIdentity IdentityOf(const std::string& path) {
  return bwp::IdentityOf(path, false).value_or(FileIdentity{});
}

enum class Kind { kChange, kSync, kName, kDelete };

/// One call that came through, told by what it was done to, whatever name that has.
struct Call {
  Kind kind;
  FileIdentity file;
  std::string name;  // The name that the file gets or loses.
};

/// Writes down every call that changes the disk. Where it is told to, it gives up no name that is taken.
class OrderedDisk : public bwp::Disk {
 public:
  explicit OrderedDisk(bool givesUpNames) : givesUpNames_(givesUpNames) {}

  int Open(const std::string& path, int flags, mode_t mode) const override {
    if ((flags & O_TRUNC) != 0) calls.push_back({Kind::kChange, IdentityOf(path), {}});
    return Disk::Open(path, flags, mode);
  }
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) const override {
    return Changed(descriptor, Disk::Write(descriptor, bytes, count));
  }
  ssize_t PositionedWrite(int descriptor, const void* bytes, std::size_t count, off_t offset) const override {
    return Changed(descriptor, Disk::PositionedWrite(descriptor, bytes, count, offset));
  }
  ssize_t CopyRange(int from, int to, std::size_t count) const override {
    return Changed(to, Disk::CopyRange(from, to, count));
  }
  int Truncate(int descriptor, off_t length) const override {
    return Changed(descriptor, Disk::Truncate(descriptor, length));
  }
  int ChangeMode(int descriptor, mode_t mode) const override {
    return Changed(descriptor, Disk::ChangeMode(descriptor, mode));
  }
  int ChangeOwner(int descriptor, uid_t owner, gid_t group) const override {
    return Changed(descriptor, Disk::ChangeOwner(descriptor, owner, group));
  }
  int SetAttribute(int descriptor, const char* name, const void* value, std::size_t size) const override {
    return Changed(descriptor, Disk::SetAttribute(descriptor, name, value, size));
  }
  int RemoveAttribute(int descriptor, const char* name) const override {
    return Changed(descriptor, Disk::RemoveAttribute(descriptor, name));
  }
  // Nothing waits for the disk here; what matters is when it would.
  int Sync(int descriptor) const override {
    calls.push_back({Kind::kSync, IdentityOf(descriptor), {}});
    return 0;
  }
  int Rename(const std::string& from, const std::string& to) const override {
    const bool hidden = to.find("/.bytewarp-") != std::string::npos;
    if (!givesUpNames_ && !hidden) {
      errno = EPERM;
      return -1;
    }
    return Named(from, to, [&] { return Disk::Rename(from, to); });
  }
  int RenameNew(const std::string& from, const std::string& to) const override {
    return Named(from, to, [&] { return Disk::RenameNew(from, to); });
  }
  int Link(const std::string& from, const std::string& to) const override {
    return Named(from, to, [&] { return Disk::Link(from, to); });
  }
  int Delete(const std::string& path) const override {
    calls.push_back({Kind::kDelete, IdentityOf(path), path});
    return Disk::Delete(path);
  }

  mutable std::vector<Call> calls;

 private:
  template <typename Result>
  Result Changed(int descriptor, Result result) const {
    if (result >= 0) calls.push_back({Kind::kChange, IdentityOf(descriptor), {}});
    return result;
  }
  template <typename Rename>
  int Named(const std::string& from, const std::string& to, Rename rename) const {
    const FileIdentity file = IdentityOf(from);
    const int result = rename();
    if (result == 0) calls.push_back({Kind::kName, file, to});
    return result;
  }

  bool givesUpNames_;
};

struct Case {
  const char* name;
  const char* temporaryUnder;
  bool givesUpNames;
  void (*run)(Workplace&);
};

void PrintTo(const Case& tried, std::ostream* out) {
  *out << tried.name;
}

class CrashOrder : public testing::TestWithParam<Case> {
 protected:
  CrashOrder()
      : disk_(GetParam().givesUpNames),
        place_(PatternBytes(3'000), disk_, bwp::test::kMemory, GetParam().temporaryUnder),
        data_(place_.state.OpenFile),
        old_(IdentityOf(data_)) {
    // Attributes are changes too.
    EXPECT_EQ(chmod(data_.c_str(), 0640), 0);
    setxattr(data_.c_str(), "user.colour", "blue", 4, 0);
    place_.Mark(1'000, 1'019);
    place_.state.BufferData = "xyz";
    GetParam().run(place_);
    const std::string name = GetParam().givesUpNames ? data_ : data_ + ".new";
    content_ = IdentityOf(name);
    for (std::size_t i = 0; i < disk_.calls.size(); ++i) {
      if (disk_.calls[i].kind == Kind::kName && disk_.calls[i].name == name) renames_.push_back(i);
    }
  }

  // The place of the last such call about that file before the end; -1 where there is none.
  int LastBefore(std::size_t end, Kind kind, const FileIdentity& file) const {
    for (std::size_t i = end; i > 0; --i) {
      const Call& call = disk_.calls[i - 1];
      if (call.kind == kind && call.file == file) return static_cast<int>(i - 1);
    }
    return -1;
  }
  std::size_t End() const { return disk_.calls.size(); }

  OrderedDisk disk_;
  Workplace place_;
  std::string data_;
  FileIdentity old_;
  FileIdentity content_;
  std::vector<std::size_t> renames_;  // Those that gave the content its name.
};

TEST_P(CrashOrder, TheContentIsOnTheDiskBeforeItGetsItsNameAndIsNotChangedAfterwards) {
  ASSERT_EQ(renames_.size(), 1U);
  EXPECT_EQ(disk_.calls[renames_[0]].file, content_);
  const int change = LastBefore(End(), Kind::kChange, content_);
  const int sync = LastBefore(renames_[0], Kind::kSync, content_);
  ASSERT_GE(change, 0);
  EXPECT_GT(sync, change);
  EXPECT_LT(sync, static_cast<int>(renames_[0]));
}

TEST_P(CrashOrder, TheFolderIsOnTheDiskBeforeTheOperationIsOver) {
  ASSERT_EQ(renames_.size(), 1U);
  EXPECT_GT(LastBefore(End(), Kind::kSync, IdentityOf(place_.folder.Path())), static_cast<int>(renames_[0]));
}

TEST_P(CrashOrder, TheOldFileIsNeitherChangedNorDeleted) {
  EXPECT_EQ(LastBefore(End(), Kind::kChange, old_), -1);
  EXPECT_EQ(LastBefore(End(), Kind::kDelete, old_), -1);
  EXPECT_TRUE(std::none_of(disk_.calls.begin(), disk_.calls.end(), [this](const Call& call) {
    return call.kind == Kind::kDelete && call.name == data_;
  }));
}

void Cut(Workplace& place) {
  CutChunk(place.state, place.services);
}

void Insert(Workplace& place) {
  InsertBuffer(place.state, place.services, "bms");
}

INSTANTIATE_TEST_SUITE_P(Of, CrashOrder,
                         testing::Values(Case{"CutOnOneFileSystem", bwp::test::kMemory, true, Cut},
                                         Case{"CutAcrossTwo", bwp::test::kOnDisk, true, Cut},
                                         Case{"CutThatGetsTheNewName", bwp::test::kMemory, false, Cut},
                                         Case{"CutAcrossTwoThatGetsTheNewName", bwp::test::kOnDisk, false,
                                              Cut},
                                         Case{"InsertOnOneFileSystem", bwp::test::kMemory, true, Insert},
                                         Case{"InsertAcrossTwo", bwp::test::kOnDisk, true, Insert},
                                         Case{"InsertThatGetsTheNewName", bwp::test::kMemory, false, Insert}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
