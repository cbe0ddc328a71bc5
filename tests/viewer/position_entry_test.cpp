#include "viewer/position_entry.h"

#include <gtest/gtest.h>

#include "viewer/viewer_fixture.h"

namespace {

const bwp::test::Transcript kRefresh{"redraw off", "thumb",        "title",
                                     "ruler hex",  "window texts", "chunk texts",
                                     "redraw on",  "focus grid",   "display events"};

bwp::test::Transcript After(bwp::test::Transcript first) {
  first.insert(first.end(), kRefresh.begin(), kRefresh.end());
  return first;
}

class PositionEntryTest : public bwp::test::ViewerTest {
 protected:
  PositionEntryTest() {
    OpenPattern(4096);
    state.FieldTyping = true;
  }
};

TEST_F(PositionEntryTest, HStartLetsEventsRunAndThenRefreshes) {
  bool typing = false;
  display.onEvents = [&] { typing = typing || state.FieldTyping; };
  bwp::EnterHStart(state, display, "00000123");
  EXPECT_EQ(transcript, After({"display events"}));
  EXPECT_TRUE(typing);  // while the events ran
  EXPECT_EQ(state.SWStart, 0x123);
  EXPECT_FALSE(state.FieldTyping);
}

TEST_F(PositionEntryTest, HEndMovesTheThumbAndThenRefreshes) {
  bwp::EnterHEnd(state, display, "400");
  EXPECT_EQ(transcript, After({"thumb"}));
  EXPECT_EQ(state.SWStart, 1024 - 511);
  EXPECT_FALSE(state.FieldTyping);
}

TEST_F(PositionEntryTest, DendMovesTheThumbAndThenRefreshes) {
  bwp::EnterDend(state, display, "1024");
  EXPECT_EQ(transcript, After({"thumb"}));
  EXPECT_EQ(state.SWStart, 1024 - 511);
  EXPECT_FALSE(state.FieldTyping);
}

TEST_F(PositionEntryTest, DstartMovesTheThumbAndLeavesTheOldPage) {
  bwp::EnterDstart(state, display, "1024");
  EXPECT_EQ(transcript, (bwp::test::Transcript{"thumb"}));
  EXPECT_DOUBLE_EQ(state.thumb.top, state.thumb.TopOf(1024));
  EXPECT_EQ(Text(0, 0), "00000000");
  EXPECT_EQ(state.SWStart, 1024);
  EXPECT_FALSE(state.FieldTyping);
  Show();
  EXPECT_EQ(Text(0, 0), "00000400");
}

TEST_F(PositionEntryTest, DstartShowsThePageAfterASearch) {
  state.ForceRefresh = true;
  bwp::EnterDstart(state, display, "1024");
  EXPECT_EQ(transcript, After({"thumb"}));
  EXPECT_EQ(Text(0, 0), "00000400");
}

TEST_F(PositionEntryTest, EscapePutsTheValuesBack) {
  bwp::AbandonTyping(state, display);
  EXPECT_EQ(transcript, kRefresh);
  EXPECT_FALSE(state.FieldTyping);
  EXPECT_EQ(display.window.HStart, "00000000");
}

TEST_F(PositionEntryTest, AnEndBelow511ShowsThePageFromTheStart) {
  for (const char* const text : {"0", "1FE", "1FF"}) {
    state.SWStart = 700;
    bwp::EnterHEnd(state, display, text);
    EXPECT_EQ(state.SWStart, 0) << text;
  }
  state.SWStart = 700;
  bwp::EnterDend(state, display, "510");
  EXPECT_EQ(state.SWStart, 0);
  bwp::EnterDend(state, display, "512");
  EXPECT_EQ(state.SWStart, 1);
}

TEST_F(PositionEntryTest, PlacesBeyondTheEndShowTheLastPage) {
  using Entry = void (*)(bwp::ViewState&, bwp::Display&, std::string_view);
  for (const Entry enter : {bwp::EnterHStart, bwp::EnterHEnd, bwp::EnterDstart, bwp::EnterDend}) {
    state.SWStart = 0;
    enter(state, display, "99999999999999999999");
    EXPECT_EQ(state.SWStart, 3584);
  }
}

TEST_F(PositionEntryTest, FourHexadecimalDigitsFrom8000OnAreNegative) {
  state.SWStart = 700;
  bwp::EnterHStart(state, display, "FFFF");
  EXPECT_EQ(state.SWStart, 0);
  bwp::EnterHStart(state, display, "0FFFF");
  EXPECT_EQ(state.SWStart, 3584);
}

TEST_F(PositionEntryTest, AGroupedDecimalIsReadToItsFirstPoint) {
  bwp::EnterDend(state, display, "3.000");
  EXPECT_EQ(state.SWStart, 0);
  bwp::EnterDstart(state, display, "2.000");
  EXPECT_EQ(state.SWStart, 2);
}

TEST_F(PositionEntryTest, ATextThatIsNoNumberIsTheStart) {
  bwp::EnterHStart(state, display, "xyz");
  EXPECT_EQ(state.SWStart, 0);
}

TEST_F(PositionEntryTest, AShortFileStaysAtItsStart) {
  OpenPattern(100);
  bwp::EnterHStart(state, display, "32");
  EXPECT_EQ(state.SWStart, 0);
  bwp::EnterDend(state, display, "700");
  EXPECT_EQ(state.SWStart, 0);
}

TEST(PositionEntry, WithNoFileOpenOnlyTheTextsAreShown) {
  bwp::test::Transcript transcript;
  bwp::test::RecordedDisplay display(transcript);
  bwp::ViewState state;
  state.FieldTyping = true;
  bwp::EnterHStart(state, display, "1000");
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_EQ(display.window.HStart, "00000000");
}

}  // namespace
