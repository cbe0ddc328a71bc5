#include "viewer/open_view_file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/errors.h"
#include "viewer/mark_cells.h"
#include "viewer/viewer_fixture.h"

namespace {

class OpenViewFileTest : public bwp::test::ViewerTest {
 protected:
  bwp::test::RecordedNotices notices{transcript};
};

TEST_F(OpenViewFileTest, MarksTheWholeFileAndGoesToItsStart) {
  OpenPattern(5000);
  ShowAt(1000);
  state.ScrollStep = 16;
  bwp::OpenViewFile(state, folder.Write("other", std::string(100, 'x')));
  EXPECT_EQ(state.OpenFile, folder / "other");
  EXPECT_EQ(state.FLen, 100);
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_EQ(state.MarkStart, 0);
  EXPECT_EQ(state.MarkEnd, 99);
  EXPECT_EQ(state.ScrollStep, 0);
}

TEST_F(OpenViewFileTest, SizesTheThumbAndPutsItAtTheTop) {
  OpenPattern(5000);
  ShowAt(1000);
  bwp::OpenViewFile(state, folder.Write("other", std::string(1024, 'x')));
  EXPECT_DOUBLE_EQ(state.thumb.top, 0);
  EXPECT_DOUBLE_EQ(state.thumb.height, kTrack / 2);
  EXPECT_DOUBLE_EQ(state.thumb.ThumbTravel, kTrack / 2);
}

TEST_F(OpenViewFileTest, AnEmptyFileLeavesMarksAndPageStart) {
  OpenPattern(5000);
  ShowAt(1000);
  bwp::MoveMarks(state, 20, 30);
  bwp::OpenViewFile(state, folder.Write("empty", ""));
  EXPECT_EQ(state.FLen, 0);
  EXPECT_EQ(state.SWStart, 1000);
  EXPECT_EQ(state.MarkStart, 20);
  EXPECT_EQ(state.MarkEnd, 30);
}

TEST_F(OpenViewFileTest, NothingOfTheFileBeforeStaysOnThePage) {
  OpenPattern(5000);
  bwp::ShowHit(state, 10, 5);
  Open(std::string(20, 'x'));
  for (int position = 0; position < bwp::kPageBytes; ++position) {
    const int row = position / 16;
    if (position >= 20) {
      EXPECT_EQ(Text(row, position % 16 + 1), "") << position;
    }
    if (position != 0 && position != 19) {
      EXPECT_EQ(ValueColour(position), bwp::kValueColour) << position;
      EXPECT_EQ(CharColour(position), bwp::kCharColour) << position;
    }
  }
  EXPECT_EQ(Text(2, 0), "");
  EXPECT_EQ(state.hit.length, 0);
}

TEST_F(OpenViewFileTest, AFileThatCannotBeOpenedIsThePlatformsError) {
  const bwp::RunTimeError error = bwp::test::ErrorOf([&] { bwp::OpenViewFile(state, folder / "missing"); });
  EXPECT_EQ(error.number, bwp::kFileNotFound);
  EXPECT_EQ(error.path, folder / "missing");
}

TEST_F(OpenViewFileTest, ReopeningKeepsTheMarksAndThePageStart) {
  OpenPattern(5000);
  ShowAt(3000);
  bwp::MoveMarks(state, 3100, 4900);
  state.HexMode = false;
  folder.Write("file", std::string(4000, 'x'));
  bwp::ReopenViewFile(state);
  EXPECT_EQ(state.FLen, 4000);
  EXPECT_EQ(state.SWStart, 3000);
  EXPECT_EQ(state.MarkStart, 3100);
  EXPECT_EQ(state.MarkEnd, 4900);
  EXPECT_DOUBLE_EQ(state.thumb.top, state.thumb.TopOf(3000));
  Show();
  EXPECT_EQ(Text(0, 17), "x");
  EXPECT_EQ(ValueColour(100), bwp::kMarkStartColour);
}

TEST_F(OpenViewFileTest, ReopeningTakesTheFileThatIsThereNow) {
  OpenPattern(5000);
  std::filesystem::remove(folder / "file");
  folder.Write("file", std::string(600, 'y'));
  bwp::ReopenViewFile(state);
  Show();
  EXPECT_EQ(Text(31, 32), "y");
}

TEST_F(OpenViewFileTest, AnOfferedFileIsOpened) {
  EXPECT_EQ(bwp::OfferFile(state, notices, folder.Write("a file", "x")), bwp::FileOffer::kOpened);
  EXPECT_EQ(state.FLen, 1);
  EXPECT_EQ(bwp::OfferFile(state, notices, folder.Write("empty", "")), bwp::FileOffer::kOpened);
  EXPECT_EQ(state.FLen, 0);
  EXPECT_TRUE(transcript.empty());
}

TEST_F(OpenViewFileTest, WhatIsNoRegularFileChangesNothing) {
  OpenPattern(700);
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder / "missing", folder.Path(), folder / "pipe", std::string()}) {
    EXPECT_EQ(bwp::OfferFile(state, notices, path), bwp::FileOffer::kNoFile) << path;
  }
  EXPECT_EQ(state.OpenFile, folder / "file");
  EXPECT_EQ(state.FLen, 700);
  EXPECT_TRUE(transcript.empty());
}

TEST_F(OpenViewFileTest, AFileOverTheLimitIsToldAndNotOpened) {
  OpenPattern(700);
  const std::string path = folder.Write("large", "");
  ASSERT_EQ(truncate(path.c_str(), bwp::kMaxFileLength + 1), 0);
  EXPECT_EQ(bwp::OfferFile(state, notices, path), bwp::FileOffer::kTooLarge);
  EXPECT_EQ(
      transcript,
      (bwp::test::Transcript{"tell [Error !] File is too large (the limit is 2.147.483.647 bytes) (x)"}));
  EXPECT_EQ(state.FLen, 700);
  ASSERT_EQ(truncate(path.c_str(), bwp::kMaxFileLength), 0);
  EXPECT_EQ(bwp::OfferFile(state, notices, path), bwp::FileOffer::kOpened);
  ShowAt(bwp::kMaxFileLength);
  EXPECT_EQ(Text(31, 0), "7FFFFFEF");
  EXPECT_EQ(display.chunk.MHSize, "7FFFFFFF");
}

TEST_F(OpenViewFileTest, AnotherTrackHeightKeepsThePage) {
  OpenPattern(2048);
  ShowAt(768);
  bwp::FitThumb(state, 8000);
  EXPECT_DOUBLE_EQ(state.thumb.height, 2000);
  EXPECT_DOUBLE_EQ(state.thumb.top, 3000);
  EXPECT_EQ(state.SWStart, 768);
}

}  // namespace
