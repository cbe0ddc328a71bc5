#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

#include "fileops/buffer_operations.h"
#include "fileops/file_system.h"
#include "fileops/temporary_file.h"
#include "support/cancelling.h"
#include "support/errors.h"
#include "support/workplace.h"
#include "viewer/open_view_file.h"

namespace {

using bwp::InsertBuffer;
using bwp::test::EndOf;
using bwp::test::ErrorOf;
using bwp::test::kMemory;
using bwp::test::kNothing;
using bwp::test::kOnDisk;
using bwp::test::kOnlyTheFile;
using bwp::test::PatternBytes;
using bwp::test::Transcript;
using bwp::test::Workplace;

constexpr auto kBlock = static_cast<std::size_t>(FileSystem::kCopyBlock);

struct Filled : Workplace {
  explicit Filled(std::string_view bytes, std::string buffer = "xyz", const std::string& under = {},
                  const std::string& temporaryUnder = {})
      : Workplace(bytes, RealDisk(), under, temporaryUnder) {
    state.BufferData = std::move(buffer);
  }
  void Insert(const std::string& mode) { InsertBuffer(state, services, mode); }
};

TEST(Insert, BeforeMarkStartTakesThreeSteps) {
  Filled place("0123456789");
  place.Mark(3, 5);
  place.Insert("bms");
  EXPECT_EQ(place.Story(), (Transcript{"caption Insert Buffer",
                                       "show",
                                       "events",
                                       "caption Insert Buffer, Step  1 of  3",
                                       "label Copying from  0 to MarkStart-1",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "caption Insert Buffer, Step  2 of  3",
                                       "label Copying Buffer to BEFORE MarkStart",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "caption Insert Buffer, Step  3 of  3",
                                       "label Copying from MarkStart to end of file",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "hide",
                                       "refresh",
                                       "tell Insert Successful",
                                       "clear abort"}));
  EXPECT_EQ(place.Bytes(), "012xyz3456789");
  EXPECT_EQ(place.state.FLen, 13);
  EXPECT_EQ(place.state.MarkStart, 3);
  EXPECT_EQ(place.state.MarkEnd, 5);
  EXPECT_EQ(place.state.BufferData, "xyz");
  EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(Insert, BeforeTheVeryStartHasNoHeadStep) {
  Filled place("0123456789");
  place.Insert("bms");
  EXPECT_EQ(place.Story(),
            (Transcript{"caption Insert Buffer", "show", "events", "caption Insert Buffer, Step  1 of  2",
                        "label Copying Buffer to BEFORE MarkStart", "events", "bar 100", "events",
                        "caption Insert Buffer, Step  2 of  2", "label Copying from MarkStart to end of file",
                        "events", "events", "bar 100", "events", "hide", "refresh", "tell Insert Successful",
                        "clear abort"}));
  EXPECT_EQ(place.Bytes(), "xyz0123456789");
}

TEST(Insert, AfterMarkStartGoesBehindIt) {
  Filled place("0123456789");
  place.Mark(3, 5);
  place.Insert("ams");
  EXPECT_EQ(place.Story(), (Transcript{"caption Insert Buffer",
                                       "show",
                                       "events",
                                       "caption Insert Buffer, Step  1 of  3",
                                       "label Copying from  0 to MArkStart",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "caption Insert Buffer, Step  2 of  3",
                                       "label Copying Buffer to AFTER MarkStart",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "caption Insert Buffer, Step  3 of  3",
                                       "label Copying from MarkStart+1 to end of file",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "hide",
                                       "refresh",
                                       "tell Insert Successful",
                                       "clear abort"}));
  EXPECT_EQ(place.Bytes(), "0123xyz456789");
}

TEST(Insert, AfterTheLastByteHasNoTailStep) {
  Filled place("0123456789");
  place.Mark(9, 9);
  place.Insert("ams");
  EXPECT_EQ(
      place.Story(),
      (Transcript{"caption Insert Buffer", "show", "events", "caption Insert Buffer, Step  1 of  2",
                  "label Copying from  0 to MArkStart", "events", "events", "bar 100", "events",
                  "caption Insert Buffer, Step  2 of  2", "label Copying Buffer to AFTER MarkStart", "events",
                  "bar 100", "events", "hide", "refresh", "tell Insert Successful", "clear abort"}));
  EXPECT_EQ(place.Bytes(), "0123456789xyz");
}

TEST(Insert, AppendTakesTwoSteps) {
  Filled place("0123456789");
  place.Insert("app");
  EXPECT_EQ(
      place.Story(),
      (Transcript{"caption Insert Buffer", "show", "events", "caption Insert Buffer, Step  1 of  2",
                  "label Copying from  0 to End Of File", "events", "events", "bar 100", "events",
                  "caption Insert Buffer, Step  2 of  2", "label Copying Buffer to End Of File", "events",
                  "bar 100", "events", "hide", "refresh", "tell Insert Successful", "clear abort"}));
  EXPECT_EQ(place.Bytes(), "0123456789xyz");
}

TEST(Insert, IntoAnEmptyFileTakesOneStepInEveryMode) {
  for (const char* const mode : {"bms", "ams", "app"}) {
    Filled place("");
    place.Insert(mode);
    const Transcript story = place.Story();
    EXPECT_EQ(story.at(3), "caption Insert Buffer, Step  1 of  1");
    EXPECT_EQ(place.Bytes(), "xyz");
    EXPECT_EQ(place.state.FLen, 3);
  }
}

TEST(Insert, WithAnyOtherModePutsTheBufferFirstUnderEmptyLabels) {
  Filled place("0123456789");
  place.Mark(3, 5);
  place.Insert("BMS");
  EXPECT_EQ(place.Story(),
            (Transcript{"caption Insert Buffer", "show", "events", "caption Insert Buffer, Step  1 of  2",
                        "label Copying Buffer to ", "events", "bar 100", "events",
                        "caption Insert Buffer, Step  2 of  2", "label Copying from  to end of file",
                        "events", "events", "bar 100", "events", "hide", "refresh", "tell Insert Successful",
                        "clear abort"}));
  EXPECT_EQ(place.Bytes(), "xyz0123456789");
}

TEST(Insert, AtAMarkPastTheEndAppends) {
  for (const char* const mode : {"bms", "ams"}) {
    Filled place("0123456789");
    place.Mark(50, 60);
    place.Insert(mode);
    EXPECT_EQ(place.Bytes(), "0123456789xyz");
    EXPECT_EQ(place.state.MarkStart, 50);
  }
}

TEST(Insert, MayBeRepeated) {
  Filled place("0123456789");
  place.Mark(5, 5);
  place.Insert("bms");
  place.Insert("ams");
  EXPECT_EQ(place.Bytes(), "01234xxyzyz56789");
}

TEST(Insert, OfAnEmptyBufferIsAnArithmeticErrorAndTheFileIsWhole) {
  Filled place("0123456789", "");
  place.Mark(3, 5);
  const bwp::RunTimeError error = ErrorOf([&] { place.Insert("bms"); });
  EXPECT_EQ(error.number, 11);
  EXPECT_EQ(place.Bytes(), "0123456789");
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

class CancelledInsert : public testing::TestWithParam<const char*> {};

TEST_P(CancelledInsert, AtAnyMomentLeavesTheFileAndNoTemporaryFile) {
  const std::string bytes = PatternBytes(4 * kBlock + 5);
  const std::string buffer = PatternBytes(kBlock + 1);
  const std::string result = bytes.substr(0, 2 * kBlock) + buffer + bytes.substr(2 * kBlock);
  const auto expectNothingElse = [&](const Workplace& place) {
    EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
    EXPECT_EQ(place.temporary.Names(), kNothing);
    EXPECT_TRUE(place.state.BufferData == buffer);
  };
  const bwp::test::Cancelling<Filled> insert{
      .make =
          [&] {
            auto place = std::make_unique<Filled>(bytes, buffer, kMemory, GetParam());
            place->Mark(2 * kBlock, 2 * kBlock);
            return place;
          },
      .run = [](Filled& place) { place.Insert("bms"); },
      .expectCancelled =
          [&](Filled& place, const Transcript& story) {
            EXPECT_EQ(EndOf(story, 3), (Transcript{"hide", "tell Insert aborted", "clear abort"}));
            expectNothingElse(place);
            EXPECT_TRUE(place.Bytes() == bytes);
          },
      .expectDone =
          [&](Filled& place) {
            expectNothingElse(place);
            EXPECT_TRUE(place.Bytes() == result);
          }};
  // The window; the head and the Buffer with two blocks each, the tail with three; six blocks of staging.
  // What is copied from file to file lets events run once more before its first block.
  EXPECT_EQ(CancelInEveryRound(insert), GetParam() == std::string(kMemory) ? 13 : 20);
}

INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, CancelledInsert, testing::Values(kMemory));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, CancelledInsert, testing::Values(kOnDisk));

TEST(Insert, CancelledInTheHeadStillAnnouncesTheOtherSteps) {
  Filled place("0123456789");
  place.Mark(3, 5);
  place.progress.CancelAtEvents(3);
  place.Insert("bms");
  EXPECT_EQ(place.Story(),
            (Transcript{"caption Insert Buffer", "show", "events", "caption Insert Buffer, Step  1 of  3",
                        "label Copying from  0 to MarkStart-1", "events", "events", "bar 100", "events",
                        "caption Insert Buffer, Step  2 of  3", "label Copying Buffer to BEFORE MarkStart",
                        "events", "caption Insert Buffer, Step  3 of  3",
                        "label Copying from MarkStart to end of file", "events", "hide",
                        "tell Insert aborted", "clear abort"}));
  EXPECT_EQ(place.Bytes(), "0123456789");
}

TEST(Insert, AcrossFileSystemsShowsHowTheNewContentIsBroughtThere) {
  Filled place("0123456789", "xyz", kOnDisk, kMemory);
  place.Insert("app");
  EXPECT_EQ(place.Story(), (Transcript{"caption Insert Buffer",
                                       "show",
                                       "events",
                                       "caption Insert Buffer, Step  1 of  2",
                                       "label Copying from  0 to End Of File",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "caption Insert Buffer, Step  2 of  2",
                                       "label Copying Buffer to End Of File",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "bar 0",
                                       "hide",
                                       "refresh",
                                       "tell Insert Successful",
                                       "clear abort"}));
  EXPECT_EQ(place.Bytes(), "0123456789xyz");
}

TEST(Insert, AcrossFileSystemsKeepsNoTemporaryFileWhileItTellsOfItsSuccess) {
  Filled place("0123456789", "xyz", kOnDisk, kMemory);
  bool told = false;
  place.notices.onTell = [&] {
    told = true;
    EXPECT_EQ(place.temporary.Names(), kNothing);
    const bwp::Disk disk;
    EXPECT_NO_THROW(bwp::OpenTemporaryFile(disk)) << "the lock is free again";
  };
  place.Insert("app");
  EXPECT_TRUE(told);
}

TEST(Insert, UpToTheLimitIsAccepted) {
  Filled place("0123456789");
  std::filesystem::resize_file(place.state.OpenFile, bwp::kMaxFileLength - 3);
  bwp::OpenViewFile(place.state, place.state.OpenFile);
  place.progress.CancelAtEvents(1);
  place.Insert("bms");
  EXPECT_EQ(EndOf(place.Story(), 3), (Transcript{"hide", "tell Insert aborted", "clear abort"}));
}

TEST(Insert, PastTheLimitIsRefusedBeforeAnythingIsWritten) {
  Filled place("0123456789");
  std::filesystem::resize_file(place.state.OpenFile, bwp::kMaxFileLength - 2);
  bwp::OpenViewFile(place.state, place.state.OpenFile);
  place.Insert("app");
  EXPECT_EQ(place.Story(),
            Transcript{"tell [Error !] File is too large (the limit is 2.147.483.647 bytes) (x)"});
  EXPECT_EQ(std::filesystem::file_size(place.state.OpenFile), 2'147'483'645U);
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(Insert, IntoAFileThatAnotherProgramChangedTellsAndShowsItAnew) {
  for (const std::string now : {"grown by a few", "shrunk"}) {
    Filled place("0123456789");
    place.folder.Write("data", now);
    place.Insert("app");
    EXPECT_EQ(place.Story(),
              (Transcript{"tell [Error !] The file was changed by another program (x)", "refresh"}));
    EXPECT_EQ(place.Bytes(), now);
    EXPECT_EQ(place.state.FLen, static_cast<std::int64_t>(now.size()));
    EXPECT_EQ(place.temporary.Names(), kNothing);
  }
}

TEST(Insert, IntoAFileThatShrinksMeanwhileIsError62) {
  Filled place(PatternBytes(3 * kBlock));
  place.progress.onEvents = [&] { place.folder.Write("data", "short"); };
  const bwp::RunTimeError error = ErrorOf([&] { place.Insert("app"); });
  EXPECT_EQ(error.number, 62);
  EXPECT_EQ(place.Bytes(), "short");
  EXPECT_EQ(place.state.BufferData, "xyz");
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(Insert, WithoutTheFolderOfTheTemporaryFileIsError76) {
  Filled place("0123456789");
  const bwp::test::ScopedVariable missing("TMPDIR", (place.folder / "missing").c_str());
  EXPECT_EQ(ErrorOf([&] { place.Insert("app"); }).number, 76);
  EXPECT_EQ(place.Story(), (Transcript{"caption Insert Buffer", "show"}));
  EXPECT_EQ(place.Bytes(), "0123456789");
}

}  // namespace
