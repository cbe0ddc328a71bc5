#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "fileops/buffer_operations.h"
#include "fileops/rescue_buffer.h"
#include "fileops/save.h"
#include "support/child.h"
#include "support/errors.h"
#include "support/workplace.h"
#include "viewer/open_view_file.h"

// A file system of 64 KiB that really is full, and a limit that the kernel enforces.
namespace {

using bwp::CutChunk;
using bwp::InsertBuffer;
using bwp::test::ErrorOf;
using bwp::test::InChild;
using bwp::test::InOwnMounts;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::ScopedVariable;
using bwp::test::TempFolder;
using bwp::test::Workplace;
using Names = std::vector<std::string>;

constexpr long kTiny = 65'536;

// Both ways of rewriting fail with "Disk full" about something in that folder, and nothing has changed.
void ExpectNoRoom(Workplace& place, const std::string& folder) {
  const std::string bytes = place.Bytes();
  place.Mark(10, 20);
  const bwp::RunTimeError cut = ErrorOf([&] { CutChunk(place.state, place.services); });
  EXPECT_EQ(cut.number, 61);
  EXPECT_EQ(cut.path.find(folder), 0U) << cut.path;
  EXPECT_EQ(place.state.BufferData, "");
  EXPECT_TRUE(place.Bytes() == bytes);

  place.state.BufferData = "xyz";
  const bwp::RunTimeError insert = ErrorOf([&] { InsertBuffer(place.state, place.services, "ams"); });
  EXPECT_EQ(insert.number, 61);
  EXPECT_EQ(insert.path.find(folder), 0U) << insert.path;
  EXPECT_EQ(place.state.BufferData, "xyz");
  EXPECT_TRUE(place.Bytes() == bytes);
}

TEST(DiskFull, ForTheTemporaryFileIsError61AndNothingChanged) {
  const TempFolder tiny;
  Workplace place(PatternBytes(100'000));
  InOwnMounts([&] {
    bwp::test::MountMemory(tiny.Path(), kTiny);
    const ScopedVariable there("TMPDIR", tiny.Path().c_str());
    ExpectNoRoom(place, tiny.Path());
    EXPECT_EQ(tiny.Names(), Names{});
    EXPECT_EQ(place.folder.Names(), Names{"data"});
  });
}

TEST(DiskFull, WhileStagingBesideTheFileIsError61AndLeavesNothingThere) {
  const TempFolder tiny;
  Workplace place("");
  InOwnMounts([&] {
    bwp::test::MountMemory(tiny.Path(), kTiny);
    OpenViewFile(place.state, tiny.Write("data", PatternBytes(40'000)));
    ExpectNoRoom(place, tiny.Path());
    EXPECT_EQ(tiny.Names(), Names{"data"});
    EXPECT_EQ(place.temporary.Names(), Names{});
  });
}

TEST(DiskFull, WithFileAndTemporaryFileTogetherIsError61) {
  const TempFolder tiny;
  Workplace place("");
  InOwnMounts([&] {
    bwp::test::MountMemory(tiny.Path(), kTiny);
    const ScopedVariable there("TMPDIR", tiny.Path().c_str());
    OpenViewFile(place.state, tiny.Write("data", PatternBytes(40'000)));
    ExpectNoRoom(place, tiny.Path());
    EXPECT_EQ(tiny.Names(), Names{"data"});
  });
}

TEST(DiskFull, WhileSavingIsError61AndLeavesNoHalfFile) {
  const TempFolder tiny;
  Workplace place(PatternBytes(100'000));
  InOwnMounts([&] {
    bwp::test::MountMemory(tiny.Path(), kTiny);
    place.state.LastFolder = tiny.Path();
    const std::string open = place.state.OpenFile;
    const bwp::RunTimeError error =
        ErrorOf([&] { SaveUnderTypedName(place.state, place.services, SaveAsTask(place.state), "copy"); });
    EXPECT_EQ(error.number, 61);
    EXPECT_EQ(error.path, tiny / "copy");
    EXPECT_EQ(tiny.Names(), Names{});
    EXPECT_EQ(place.state.OpenFile, open);
    EXPECT_TRUE(place.Bytes() == PatternBytes(100'000));
  });
}

TEST(DiskFull, AtTheLimitForOneFileIsError61AndNothingChanged) {
  Workplace place(PatternBytes(100'000));
  place.state.LastFolder = place.folder.Path();
  InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{50'000, 50'000};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    ExpectNoRoom(place, place.temporary.Path());
    const bwp::RunTimeError error =
        ErrorOf([&] { SaveUnderTypedName(place.state, place.services, SaveAsTask(place.state), "copy"); });
    EXPECT_EQ(error.number, 61);
    EXPECT_EQ(place.temporary.Names(), Names{});
    EXPECT_EQ(place.folder.Names(), Names{"data"});
  });
}

TEST(DiskFull, DoesNotKeepCutBytesFromTheirRescue) {
  const TempFolder tiny;
  const TempFolder home;
  Workplace place("0123456789");
  place.state.BufferData = PatternBytes(100'000);
  place.state.BufferIsCut = true;
  InOwnMounts([&] {
    bwp::test::MountMemory(tiny.Path(), kTiny);
    const ScopedVariable there("TMPDIR", tiny.Path().c_str());
    bwp::test::MountOnto(home.Path(), "/var/tmp");
    const std::string note = bwp::RescueBuffer(place.state, place.services.disk);
    EXPECT_EQ(tiny.Names(), Names{});
    ASSERT_EQ(home.Names().size(), 1U);
    EXPECT_EQ(note, "The bytes that were cut into the Buffer are kept in /var/tmp/" + home.Names().front());
    EXPECT_TRUE(ReadFile(home / home.Names().front()) == place.state.BufferData);
  });
}

}  // namespace
