#include "end_to_end/support/real_program.h"

namespace {

using bwp::test::Control;
using bwp::test::PatternBytes;
using bwp::test::Until;

constexpr std::chrono::milliseconds kLongerThanAHold{700};
constexpr const char* kUp = "Scroll up one line";
constexpr const char* kDown = "Scroll down one line";
constexpr const char* kTrack = "Scroll one page";
constexpr const char* kThumb = "Scroll thumb";

class Scrolling : public bwp::test::RealProgram {
 protected:
  static constexpr std::size_t kLength = 1 << 20;

  void SetUp() override {
    desktop_.Files().Write("a.bin", PatternBytes(kLength));
    StartOn("a.bin");
    ExpectCell(0, 0, "00000000");
    ExpectFocusOnMainWindow();
  }

  Control FindWindow() const {
    const std::vector<Control> windows = controls_->Windows();
    return windows.empty() ? Control{} : windows.front();
  }

  /// The first offset on the page.
  unsigned long Offset() const { return std::stoul("0" + Cell(0, 0), nullptr, 16); }
  void ExpectOffset(unsigned long offset) const {
    EXPECT_TRUE(Until([&] { return Offset() == offset; })) << Offset() << ", wanted " << offset;
  }
  void ExpectMoves(unsigned long beyond) const {
    EXPECT_TRUE(Until([&] { return Offset() > beyond; })) << "stays at " << Offset();
  }
  void ExpectStands() const {
    // What was on its way when the key or button came up.
    unsigned long last = Offset();
    Until([&] { return std::exchange(last, Offset()) == last; });
    const unsigned long before = Offset();
    EXPECT_FALSE(Until([&] { return Offset() != before; }, kLongerThanAHold)) << "goes on to " << Offset();
  }
};

TEST_F(Scrolling, AClickOnAnArrowMovesOneLine) {
  ClickOn(kDown);
  ExpectOffset(16);
  ClickOn(kDown);
  ExpectOffset(32);
  ClickOn(kUp);
  ExpectOffset(16);
}

TEST_F(Scrolling, AClickBelowTheThumbMovesOnePage) {
  ClickOn(kTrack);
  ExpectOffset(512);
}

TEST_F(Scrolling, ADoubleClickBelowTheThumbMovesTwoPages) {
  const Control track = Find(kTrack);
  desktop_.DoubleClick(track.CentreX(), track.CentreY());
  ExpectOffset(1024);
}

TEST_F(Scrolling, AHeldArrowGoesOnUntilItIsLetGo) {
  const Control arrow = Find(kDown);
  desktop_.MoveTo(arrow.CentreX(), arrow.CentreY());
  desktop_.Press();
  ExpectMoves(160);
  desktop_.Release();
  ExpectStands();
}

TEST_F(Scrolling, DraggingTheThumbShowsTheEndAndTheStart) {
  const Control track = Find(kTrack);
  const Control thumb = Find(kThumb);
  desktop_.MoveTo(thumb.CentreX(), thumb.CentreY());
  desktop_.Press();
  desktop_.MoveTo(thumb.CentreX(), thumb.CentreY() + 5);
  desktop_.MoveTo(thumb.CentreX(), track.y + track.height + 200);
  ExpectOffset(kLength - 512);
  desktop_.MoveTo(thumb.CentreX(), track.y - 100);
  ExpectOffset(0);
  desktop_.Release();
  ExpectStands();
}

TEST_F(Scrolling, AShortPressOfAKeyMovesOnce) {
  desktop_.Key("Page_Down");
  ExpectOffset(512);
  desktop_.Key("Down");
  ExpectOffset(528);
  desktop_.Key("Up");
  ExpectOffset(512);
  desktop_.Key("Page_Up");
  ExpectOffset(0);
  desktop_.Key("End");
  ExpectOffset(kLength - 512);
  desktop_.Key("Home");
  ExpectOffset(0);
}

TEST_F(Scrolling, AHeldKeyGoesOnUntilItComesUp) {
  desktop_.KeyDown("Page_Down");
  ExpectMoves(5 * 512);
  desktop_.KeyUp("Page_Down");
  ExpectStands();
}

TEST_F(Scrolling, AWindowThatLosesTheFocusLetsGoOfTheKey) {
  desktop_.KeyDown("Page_Down");
  ExpectMoves(512);
  const bwp::test::Process other({.command = {BYTEWARP_DRAG_SOURCE}, .environment = desktop_.Environment()});
  EXPECT_TRUE(Until([&] { return !FindWindow().active; })) << "the other window does not get the focus";
  ExpectStands();
  desktop_.KeyUp("Page_Down");
}

TEST_F(Scrolling, TypedPositionsMoveThePage) {
  Fill("Show Window start, hexadecimal", "100");
  ExpectOffset(0x100);
  Fill("Show Window end, hexadecimal", "7FF");
  ExpectOffset(0x600);
  Fill("Show Window start, decimal", "1000");
  ExpectOffset(1000);
  ExpectText("Show Window end, hexadecimal", "000005E7");
  Fill("Show Window end, decimal", "2047");
  ExpectOffset(1536);
  Fill("Show Window start, decimal", "99999999");
  ExpectOffset(kLength - 512);
  ExpectText("Show Window end, decimal", "1.048.575");
}

TEST_F(Scrolling, EscapeGivesBackWhatWasTypedOver) {
  Fill("Show Window end, decimal", "77", "Escape");
  ExpectText("Show Window end, decimal", "511");
  ExpectOffset(0);
}

TEST_F(Scrolling, TheBaseChangesEveryNumberAndIsKept) {
  const std::string bytes = PatternBytes(2);
  ClickOn("Show bytes in decimal");
  ExpectCell(31, 0, "496");
  ExpectCell(0, 2, std::to_string(static_cast<unsigned char>(bytes[1])));
  EXPECT_EQ(Quit(), 0);
  EXPECT_EQ(bwp::test::ReadFile(File("Bytewarp.cfg")), "#FALSE#,4,\"/\"\n");
  StartOn("a.bin");
  ExpectCell(31, 0, "496");
}

TEST_F(Scrolling, TheAccelerationIsChosenInTheMenuAndKept) {
  Choose("Scroll Options", "Accelerated up to 4X");
  desktop_.Key("Page_Down");
  ExpectOffset(512);
  EXPECT_EQ(Quit(), 0);
  EXPECT_EQ(bwp::test::ReadFile(File("Bytewarp.cfg")), "#TRUE#,2,\"/\"\n");
}

}  // namespace
