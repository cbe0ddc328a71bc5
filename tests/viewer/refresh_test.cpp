#include "viewer/refresh.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include "support/errors.h"
#include "viewer/mark_cells.h"
#include "viewer/viewer_fixture.h"

namespace {

using bwp::test::Transcript;

class RefreshTest : public bwp::test::ViewerTest {
 protected:
  int FilledCells() const {
    int count = 0;
    for (int row = 0; row < bwp::kRows; ++row) {
      for (int column = 0; column < bwp::kColumns; ++column) count += Text(row, column).empty() ? 0 : 1;
    }
    return count;
  }
};

const Transcript kAfterThePage{"title",     "ruler hex",  "window texts",  "chunk texts",
                               "redraw on", "focus grid", "display events"};

Transcript Joined(Transcript first, const Transcript& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST_F(RefreshTest, DoesItsStepsInOrder) {
  OpenPattern(2000);
  Show();
  EXPECT_EQ(transcript, Joined({"redraw off", "thumb"}, kAfterThePage));
}

TEST_F(RefreshTest, WithNoFileOpenLeavesTheGridAndShowsTheTexts) {
  state.tabe.SetText(0, 1, "41");
  state.ScrollStep = 16;
  Show();
  EXPECT_EQ(transcript, kAfterThePage);
  EXPECT_EQ(Text(0, 1), "41");
  EXPECT_EQ(display.title, "BYTEwarp | Filename:  (0 Bytes)  Bytes = 0 , 00000000 --  Buffer: 0 , 00000000");
}

TEST_F(RefreshTest, DoesNothingWhileAFieldIsTypedInto) {
  OpenPattern(2000);
  state.FieldTyping = true;
  ShowAt(600);
  EXPECT_TRUE(transcript.empty());
  EXPECT_EQ(state.SWPrev, 0);
}

TEST_F(RefreshTest, ASearchIsShownAlthoughAFieldIsTypedInto) {
  OpenPattern(2000);
  state.FieldTyping = true;
  state.ForceRefresh = true;
  ShowAt(600);
  EXPECT_EQ(Text(0, 0), "00000258");
  EXPECT_TRUE(state.FieldTyping);
  EXPECT_TRUE(state.ForceRefresh);
}

TEST_F(RefreshTest, FillsOffsetsValuesAndCharacters) {
  std::string bytes(600, '\0');
  bytes[0] = 'A';
  bytes[15] = '\x0A';
  bytes[16] = '\xFF';
  Open(bytes);
  EXPECT_EQ(Text(0, 0), "00000000");
  EXPECT_EQ(Text(1, 0), "00000010");
  EXPECT_EQ(Text(31, 0), "000001F0");
  EXPECT_EQ(Text(0, 1), "41");
  EXPECT_EQ(Text(0, 17), "A");
  EXPECT_EQ(Text(0, 16), "0A");
  EXPECT_EQ(Text(0, 32), "\x0A");
  EXPECT_EQ(Text(1, 1), "FF");
  EXPECT_EQ(Text(1, 17), "\xFF");
  EXPECT_EQ(Text(0, 2), "00");
  EXPECT_EQ(Text(0, 18), std::string(1, '\0'));
}

TEST_F(RefreshTest, SwitchingTheBaseRewritesOffsetsValuesAndRuler) {
  Open(std::string(600, '\x0A'));
  state.HexMode = false;
  Show();
  EXPECT_EQ(Text(31, 0), "496");
  EXPECT_EQ(Text(31, 16), "10");
  EXPECT_EQ(transcript[3], "ruler dec");
  state.HexMode = true;
  Show();
  EXPECT_EQ(Text(31, 0), "000001F0");
  EXPECT_EQ(Text(31, 16), "0A");
}

TEST_F(RefreshTest, AFileOf100BytesFillsSevenRowsOfWhichTheLastHoldsFourBytes) {
  Open(std::string(100, 'x'));
  ShowAt(50);
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_EQ(Text(6, 0), "00000060");
  EXPECT_EQ(Text(6, 4), "78");
  EXPECT_EQ(Text(6, 20), "x");
  EXPECT_EQ(Text(6, 5), "");
  EXPECT_EQ(Text(6, 21), "");
  EXPECT_EQ(Text(7, 0), "");
  EXPECT_EQ(FilledCells(), 7 + 200);
  EXPECT_EQ(state.MarkEnd, 99);
}

TEST_F(RefreshTest, AFileOf96BytesStillGetsTheSeventhOffset) {
  Open(std::string(96, 'x'));
  EXPECT_EQ(Text(6, 0), "00000060");
  EXPECT_EQ(FilledCells(), 7 + 192);
}

TEST_F(RefreshTest, AFileOf512BytesFillsEveryCell) {
  OpenPattern(512);
  ShowAt(1);
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_EQ(FilledCells(), 32 * 33);
  EXPECT_EQ(display.window.Dend, "511");
}

TEST_F(RefreshTest, AStartBeyondTheEndShowsTheLast512Bytes) {
  const std::string bytes = bwp::test::PatternBytes(1536);
  Open(bytes);
  ShowAt(1'000'000);
  EXPECT_EQ(state.SWStart, 1024);
  EXPECT_EQ(Text(31, 32), bytes.substr(1535));
  ShowAt(-7);
  EXPECT_EQ(state.SWStart, 0);
}

TEST_F(RefreshTest, AnEmptyFileShowsItsFirstOffsetAlone) {
  Open("");
  EXPECT_EQ(FilledCells(), 1);
  EXPECT_EQ(Text(0, 0), "00000000");
}

TEST_F(RefreshTest, CellsPastTheEndAreNotWritten) {
  Open(std::string(20, 'x'));
  state.tabe.SetText(5, 5, "7");
  Show();
  EXPECT_EQ(Text(5, 5), "7");
}

TEST_F(RefreshTest, AFileThatWasCutShortShowsNoStaleBytes) {
  OpenPattern(2000);
  ASSERT_EQ(truncate(state.OpenFile.c_str(), 100), 0);
  Show();
  EXPECT_EQ(Text(6, 4).size(), 2U);
  EXPECT_EQ(Text(6, 5), "");
  EXPECT_EQ(Text(6, 21), "");
  EXPECT_EQ(Text(31, 16), "");
  EXPECT_EQ(Text(31, 32), "");
  ShowAt(1000);
  EXPECT_EQ(FilledCells(), 32);  // the offsets
}

TEST_F(RefreshTest, AFileThatWasDeletedIsStillShown) {
  const std::string bytes = bwp::test::PatternBytes(2000);
  Open(bytes);
  std::filesystem::remove(state.OpenFile);
  ShowAt(16);
  EXPECT_EQ(Text(0, 17), bytes.substr(16, 1));
}

TEST_F(RefreshTest, AReadErrorIsNotCaught) {
  OpenPattern(2000);
  state.file.Close();
  EXPECT_EQ(bwp::test::ErrorNumberOf([&] { Show(); }), bwp::kBadFileName);
}

TEST_F(RefreshTest, TheThumbStandsAtTheStart) {
  OpenPattern(10'000);
  ShowAt(3000);
  EXPECT_DOUBLE_EQ(state.thumb.top, 3000 * state.thumb.ThumbScale);
  ShowAt(1'000'000);
  EXPECT_DOUBLE_EQ(state.thumb.top, state.thumb.ThumbTravel);
}

TEST_F(RefreshTest, TheLastPageIsRememberedBeforeEventsRun) {
  OpenPattern(2000);
  std::int64_t seen = -1;
  display.onEvents = [&] { seen = state.SWPrev; };
  ShowAt(600);
  EXPECT_EQ(seen, 600);
}

TEST_F(RefreshTest, TheTitleIsExact) {
  OpenPattern(1536);
  EXPECT_EQ(display.title,
            "BYTEwarp | Filename: file (1.5 KB)  Bytes = 1.536 , 00000600 --  Buffer: 0 , 00000000");
  state.BufferData = std::string(70'000, 'x');
  Show();
  EXPECT_EQ(display.title,
            "BYTEwarp | Filename: file (1.5 KB)  Bytes = 1.536 , 00000600 --  Buffer: 70.000 , 00011170");
}

TEST_F(RefreshTest, TheTextsOfTheWindowAndTheChunk) {
  OpenPattern(5000);
  bwp::MoveMarks(state, 1234, 4321);
  ShowAt(1000);
  EXPECT_EQ(display.window.Dstart, "1.000");
  EXPECT_EQ(display.window.Dend, "1.511");
  EXPECT_EQ(display.window.HStart, "000003E8");
  EXPECT_EQ(display.window.HEnd, "000005E7");
  EXPECT_EQ(display.chunk.mdstart, "1.234");
  EXPECT_EQ(display.chunk.mdend, "4.321");
  EXPECT_EQ(display.chunk.Mdsize, "3.088");
  EXPECT_EQ(display.chunk.MHStart, "000004D2");
  EXPECT_EQ(display.chunk.MHEnd, "000010E1");
  EXPECT_EQ(display.chunk.MHSize, "00000C10");
}

TEST_F(RefreshTest, AtTheEndOfAShortFileTheWindowEndsOnePastTheLastByte) {
  OpenPattern(100);
  EXPECT_EQ(display.window.Dend, "100");
  EXPECT_EQ(display.window.HEnd, "00000064");
}

TEST_F(RefreshTest, AHitStaysColouredWhileItsPageIsShown) {
  OpenPattern(2000);
  bwp::ShowHit(state, 20, 3);
  state.HexMode = false;
  Show();
  EXPECT_EQ(ValueColour(20), bwp::kHitColour);
  EXPECT_EQ(CharColour(22), bwp::kHitColour);
  EXPECT_EQ(ValueColour(23), bwp::kValueColour);
}

TEST_F(RefreshTest, AnotherStartEndsTheHit) {
  OpenPattern(2000);
  bwp::ShowHit(state, 20, 3);
  ShowAt(16);
  for (int position = 0; position < 30; ++position) EXPECT_EQ(ValueColour(position), bwp::kValueColour);
  EXPECT_EQ(CharColour(4), bwp::kCharColour);
  EXPECT_EQ(state.hit.length, 0);
}

TEST_F(RefreshTest, OtherContentEndsTheHit) {
  std::string bytes(2000, 'x');
  Open(bytes);
  bwp::ShowHit(state, 20, 3);
  bytes[300] = 'y';
  folder.Write("file", bytes);
  Show();
  EXPECT_EQ(ValueColour(20), bwp::kValueColour);
  EXPECT_EQ(CharColour(20), bwp::kCharColour);
}

TEST_F(RefreshTest, ContentThatWentAwayEndsTheHit) {
  OpenPattern(2000);
  bwp::ShowHit(state, 20, 3);
  ASSERT_EQ(truncate(state.OpenFile.c_str(), 15), 0);
  Show();
  EXPECT_EQ(ValueColour(20), bwp::kValueColour);
}

}  // namespace
