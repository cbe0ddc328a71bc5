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

using bwp::CutChunk;
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

TEST(Cut, FromTheMiddleTakesThreeSteps) {
  Workplace place("0123456789");
  place.Mark(3, 5);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Story(), (Transcript{"show",
                                       "events",
                                       "caption Step  1 of  3",
                                       "label Copying from  0 to MarkStart-1",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "bar 0",
                                       "caption Step  2 of  3",
                                       "label Cutting to Buffer from MarkStart to MarkEnd",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "bar 0",
                                       "caption Step  3 of  3",
                                       "label Copying from MarkEnd to end of file",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "bar 0",
                                       "hide",
                                       "refresh",
                                       "clear abort"}));
  EXPECT_EQ(place.Bytes(), "0126789");
  EXPECT_EQ(place.state.BufferData, "345");
  EXPECT_TRUE(place.state.BufferIsCut);
  EXPECT_EQ(place.state.FLen, 7);
  EXPECT_EQ(place.state.MarkStart, 3);
  EXPECT_EQ(place.state.MarkEnd, 5);
  EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(Cut, AtTheVeryStartHasNoHeadStep) {
  Workplace place("0123456789");
  place.Mark(0, 2);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Story(),
            (Transcript{"show", "events", "caption Step  1 of  2",
                        "label Cutting to Buffer from MarkStart to MarkEnd", "events", "bar 100", "events",
                        "bar 0", "caption Step  2 of  2", "label Copying from MarkEnd to end of file",
                        "events", "events", "bar 100", "events", "bar 0", "hide", "refresh", "clear abort"}));
  EXPECT_EQ(place.Bytes(), "3456789");
  EXPECT_EQ(place.state.BufferData, "012");
}

TEST(Cut, UpToTheLastByteHasNoTailStep) {
  Workplace place("0123456789");
  place.Mark(9, 9);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Story(),
            (Transcript{"show", "events", "caption Step  1 of  2", "label Copying from  0 to MarkStart-1",
                        "events", "events", "bar 100", "events", "bar 0", "caption Step  2 of  2",
                        "label Cutting to Buffer from MarkStart to MarkEnd", "events", "bar 100", "events",
                        "bar 0", "hide", "refresh", "clear abort"}));
  EXPECT_EQ(place.Bytes(), "012345678");
}

TEST(Cut, OfEverythingHasOneStepAndLeavesAnEmptyFile) {
  Workplace place("0123456789");
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Story(), (Transcript{"show", "events", "caption Step  1 of  1",
                                       "label Cutting to Buffer from MarkStart to MarkEnd", "events",
                                       "bar 100", "events", "bar 0", "hide", "refresh", "clear abort"}));
  EXPECT_EQ(place.Bytes(), "");
  EXPECT_EQ(place.state.FLen, 0);
  EXPECT_EQ(place.state.BufferData, "0123456789");
  EXPECT_EQ(place.state.MarkEnd, 9);
}

TEST(Cut, KeepsThePageStartWhereTheFileStillReaches) {
  Workplace place(PatternBytes(5000));
  place.Mark(4000, 4099);
  place.state.SWStart = 1024;
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.state.SWStart, 1024);
}

class CancelledCut : public testing::TestWithParam<const char*> {};

TEST_P(CancelledCut, AtAnyMomentLeavesFileAndBufferAndNoTemporaryFile) {
  const std::string bytes = PatternBytes(4 * kBlock + 5);
  const std::string rest = bytes.substr(0, kBlock + 7) + bytes.substr(2 * kBlock + 8);
  const auto expectNoOtherFile = [](const Workplace& place) {
    EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
    EXPECT_EQ(place.temporary.Names(), kNothing);
  };
  const bwp::test::Cancelling<Workplace> cut{
      .make =
          [&] {
            auto place = std::make_unique<Workplace>(bytes, Workplace::RealDisk(), kMemory, GetParam());
            place->Mark(kBlock + 7, 2 * kBlock + 7);
            place->state.BufferData = "before";
            return place;
          },
      .run = [](Workplace& place) { CutChunk(place.state, place.services); },
      .expectCancelled =
          [&](Workplace& place, const Transcript& story) {
            EXPECT_EQ(EndOf(story, 4), (Transcript{"bar 0", "hide", "tell Cut Aborted", "clear abort"}));
            expectNoOtherFile(place);
            EXPECT_TRUE(place.Bytes() == bytes);
            EXPECT_EQ(place.state.BufferData, "before");
            EXPECT_FALSE(place.state.BufferIsCut);
          },
      .expectDone =
          [&](Workplace& place) {
            expectNoOtherFile(place);
            EXPECT_TRUE(place.Bytes() == rest);
            EXPECT_TRUE(place.state.BufferData == bytes.substr(kBlock + 7, kBlock + 1));
          }};
  // The window; the head, the chunk and the tail, each with two blocks; four blocks of staging. What is
  // copied from file to file lets events run once more before its first block.
  EXPECT_EQ(CancelInEveryRound(cut), GetParam() == std::string(kMemory) ? 12 : 17);
}

INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, CancelledCut, testing::Values(kMemory));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, CancelledCut, testing::Values(kOnDisk));

TEST(Cut, OfAFewBytesGivesBackTheMemoryOfALargeBuffer) {
  Workplace place("0123456789");
  place.state.BufferData = PatternBytes(kBlock);
  place.Mark(3, 5);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.state.BufferData, "345");
  EXPECT_LT(place.state.BufferData.capacity(), 100U);
}

TEST(Cut, CancelledInTheHeadStillAnnouncesTheOtherSteps) {
  Workplace place("0123456789");
  place.Mark(3, 5);
  place.progress.CancelAtEvents(4);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Story(), (Transcript{"show",
                                       "events",
                                       "caption Step  1 of  3",
                                       "label Copying from  0 to MarkStart-1",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "bar 0",
                                       "caption Step  2 of  3",
                                       "label Cutting to Buffer from MarkStart to MarkEnd",
                                       "events",
                                       "bar 0",
                                       "caption Step  3 of  3",
                                       "label Copying from MarkEnd to end of file",
                                       "events",
                                       "bar 0",
                                       "hide",
                                       "tell Cut Aborted",
                                       "clear abort"}));
}

TEST(Cut, AcrossFileSystemsShowsHowTheNewContentIsBroughtThere) {
  Workplace place("0123456789", Workplace::RealDisk(), kOnDisk, kMemory);
  place.Mark(0, 2);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Story(), (Transcript{"show",
                                       "events",
                                       "caption Step  1 of  2",
                                       "label Cutting to Buffer from MarkStart to MarkEnd",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "bar 0",
                                       "caption Step  2 of  2",
                                       "label Copying from MarkEnd to end of file",
                                       "events",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "bar 0",
                                       "events",
                                       "bar 100",
                                       "events",
                                       "bar 0",
                                       "hide",
                                       "refresh",
                                       "clear abort"}));
  EXPECT_EQ(place.Bytes(), "3456789");
}

TEST(Cut, OfAFileThatGrewPastTheLimitShowsItsBeginning) {
  Workplace place("0123456789");
  place.Mark(0, 1);
  std::filesystem::resize_file(place.state.OpenFile, 3'000'000'000);
  for (int times = 0; times < 2; ++times) {
    CutChunk(place.state, place.services);
    EXPECT_EQ(
        place.Story(),
        (Transcript{"tell [Error !] The file was changed by another program (x)",
                    "tell [Error !] File is too large (the limit is 2.147.483.647 bytes) (x)", "refresh"}));
    EXPECT_EQ(place.state.FLen, bwp::kMaxFileLength);
  }
  EXPECT_EQ(std::filesystem::file_size(place.state.OpenFile), 3'000'000'000U);
}

TEST(Cut, OfTheTemporaryFileItselfIsError70AndTheFileIsWhole) {
  Workplace place("");
  bwp::OpenViewFile(place.state, place.temporary.Write(std::filesystem::path(bwp::TemporaryPath()).filename(),
                                                       "0123456789"));
  place.Mark(0, 1);
  place.state.BufferData = "xyz";
  for (const auto& operation : {+[](Workplace& at) { CutChunk(at.state, at.services); },
                                +[](Workplace& at) { InsertBuffer(at.state, at.services, "app"); }}) {
    const bwp::RunTimeError error = ErrorOf([&] { operation(place); });
    EXPECT_EQ(error.number, 70);
    EXPECT_EQ(error.path, bwp::TemporaryPath());
    EXPECT_EQ(place.Bytes(), "0123456789");
  }
}

TEST(Cut, CancelledWhileStagingAcrossFileSystemsLeavesNothing) {
  const std::string bytes = PatternBytes(3 * kBlock);
  Workplace place(bytes, Workplace::RealDisk(), kOnDisk, kMemory);
  place.Mark(0, 0);
  // The tail's three blocks come before those of the staging.
  place.progress.CancelAtEvents(9);
  CutChunk(place.state, place.services);
  const Transcript story = place.Story();
  EXPECT_EQ(EndOf(story, 3), (Transcript{"hide", "tell Cut Aborted", "clear abort"}));
  EXPECT_EQ(place.Bytes(), bytes);
  EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(Cut, TakesTheBytesThatAreThereWhenMarkEndLiesPastTheEnd) {
  Workplace place("0123456789");
  place.Mark(8, 20);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Bytes(), "01234567");
  EXPECT_EQ(place.state.BufferData, "89");
}

TEST(Cut, OfAChunkPastTheEndTellsAndChangesNothing) {
  for (const std::string bytes : {"0123456789", ""}) {
    Workplace place(bytes);
    place.Mark(10, 10);
    place.state.BufferData = "before";
    CutChunk(place.state, place.services);
    EXPECT_EQ(place.Story(), Transcript{"tell [Error !] The chunk holds no byte of the file (x)"});
    EXPECT_EQ(place.Bytes(), bytes);
    EXPECT_EQ(place.state.BufferData, "before");
  }
}

TEST(Cut, OfAFileThatAnotherProgramChangedTellsAndShowsItAnew) {
  for (const std::string now : {"grown by a few", "shrunk"}) {
    Workplace place("0123456789");
    place.Mark(0, 1);
    place.folder.Write("data", now);
    CutChunk(place.state, place.services);
    EXPECT_EQ(place.Story(),
              (Transcript{"tell [Error !] The file was changed by another program (x)", "refresh"}));
    EXPECT_EQ(place.Bytes(), now);
    EXPECT_EQ(place.state.FLen, static_cast<std::int64_t>(now.size()));
    EXPECT_EQ(place.state.BufferData, "");
  }
}

TEST(Cut, OfANameThatHoldsAnotherFileByNowIsNoRewrite) {
  Workplace place("0123456789");
  std::filesystem::rename(place.folder.Write("other", "abcdefghij"), place.state.OpenFile);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Story(),
            (Transcript{"tell [Error !] The file was changed by another program (x)", "refresh"}));
  EXPECT_EQ(place.Bytes(), "abcdefghij");
}

TEST(Cut, OfAFileThatGrowsMeanwhileLeavesItAsItIs) {
  Workplace place("0123456789");
  place.Mark(0, 1);
  place.progress.onEvents = [&] { place.folder.Write("data", "0123456789 and more"); };
  CutChunk(place.state, place.services);
  const Transcript story = place.Story();
  EXPECT_EQ(EndOf(story, 3),
            (Transcript{"hide", "tell [Error !] The file was changed by another program (x)", "refresh"}));
  EXPECT_EQ(place.Bytes(), "0123456789 and more");
  EXPECT_EQ(place.state.FLen, 19);
  EXPECT_EQ(place.state.BufferData, "");
  EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(Cut, OfAFileThatShrinksMeanwhileIsError62) {
  Workplace place(PatternBytes(3 * kBlock));
  place.Mark(kBlock, kBlock + 5);
  place.state.BufferData = "before";
  place.progress.onEvents = [&] { place.folder.Write("data", "short"); };
  const bwp::RunTimeError error = ErrorOf([&] { CutChunk(place.state, place.services); });
  EXPECT_EQ(error.number, 62);
  EXPECT_EQ(error.path, place.state.OpenFile);
  EXPECT_EQ(place.Bytes(), "short");
  EXPECT_EQ(place.state.BufferData, "before");
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(Cut, WithoutTheFolderOfTheTemporaryFileIsError76BeforeAnythingHappens) {
  Workplace place("0123456789");
  const bwp::test::ScopedVariable missing("TMPDIR", (place.folder / "missing").c_str());
  const bwp::RunTimeError error = ErrorOf([&] { CutChunk(place.state, place.services); });
  EXPECT_EQ(error.number, 76);
  EXPECT_EQ(error.path.find(place.folder / "missing/bytewarp-"), 0U);
  EXPECT_EQ(place.Story(), Transcript{});
  EXPECT_EQ(place.Bytes(), "0123456789");
  EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
}

TEST(Cut, WorksOnAPathThatStartsAtTheCurrentFolder) {
  Workplace place("0123456789");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(place.folder.Path());
  place.state.OpenFile = "data";
  place.Mark(0, 4);
  CutChunk(place.state, place.services);
  EXPECT_EQ(place.Bytes(), "56789");
  std::filesystem::current_path(before);
}

}  // namespace
