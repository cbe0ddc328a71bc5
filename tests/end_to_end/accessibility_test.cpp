#include <algorithm>
#include <set>

#include "end_to_end/support/real_program.h"

namespace {

using bwp::test::Control;
using bwp::test::PatternBytes;
using bwp::test::Until;

// What a screen reader calls the kinds of control that a person works with.
const std::set<std::string> kWorkable = {"push button", "radio button", "check box", "combo box",
                                         "text",        "entry",        "slider",    "spin button",
                                         "list",        "table",        "menu item", "progress bar"};

bool IsWorkable(const Control& control) {
  return kWorkable.contains(control.role);
}

class Accessibility : public bwp::test::RealProgram {
 protected:
  void SetUp() override {
    RememberFolderOfFiles();
    desktop_.Files().Write("a.bin", PatternBytes(2000));
    StartOn("a.bin");
    ExpectFocusOnMainWindow();
  }

  std::vector<Control> ControlsOf(const std::string& title) const {
    for (const Control& window : controls_->Windows()) {
      if (window.name.rfind(title, 0) == 0) return controls_->In(window.name);
    }
    return {};
  }

  /// Every control has a name, lies whole in its window and is big enough to be hit.
  void ExpectWellMade(const std::string& title) const {
    const std::vector<Control> controls = ControlsOf(title);
    ASSERT_GT(controls.size(), 3U) << title;
    const Control& window = controls.front();
    for (const Control& control : controls) {
      if (control.depth == 0 || !IsWorkable(control)) continue;
      SCOPED_TRACE(title + ": " + control.role + " '" + control.name + "'");
      EXPECT_FALSE(control.name.empty());
      EXPECT_GE(control.width, 10);
      EXPECT_GE(control.height, 10);
      EXPECT_GE(control.x, window.x);
      EXPECT_GE(control.y, window.y);
      EXPECT_LE(control.x + control.width, window.x + window.width);
      EXPECT_LE(control.y + control.height, window.y + window.height);
    }
  }

  /// The Tab key reaches every control of the window that can be worked by keys; of a group of options, one.
  void ExpectTabReachesAll(const std::string& title) const {
    std::set<std::string> wanted;
    std::set<std::string> options;
    for (const Control& control : ControlsOf(title)) {
      if (!control.enabled || !control.focusable || !IsWorkable(control)) continue;
      (control.role == "radio button" ? options : wanted).insert(control.name);
    }
    std::set<std::string> reached;
    std::string last;
    for (std::size_t step = 0; step < 2 * (wanted.size() + options.size()) + 4; ++step) {
      desktop_.Key("Tab");
      // A stop may lie on what has no name of its own; then the next Tab goes on.
      Until(
          [&] {
            for (const Control& control : ControlsOf(title)) {
              if (control.focused && control.depth > 0 && control.name != last) {
                last = control.name;
                reached.insert(last);
                return true;
              }
            }
            return false;
          },
          std::chrono::seconds(2));
      if (std::includes(reached.begin(), reached.end(), wanted.begin(), wanted.end())) break;
    }
    for (const std::string& name : wanted)
      EXPECT_TRUE(reached.contains(name)) << title << ": no Tab to " << name;
    if (options.empty()) return;
    EXPECT_TRUE(std::any_of(options.begin(), options.end(),
                            [&reached](const std::string& option) { return reached.contains(option); }))
        << title << ": no Tab to an option";
  }
};

TEST_F(Accessibility, TheMainWindowIsHeardAndReachedByKeys) {
  ExpectWellMade("BYTEwarp | ");
  ExpectTabReachesAll("BYTEwarp | ");
}

TEST_F(Accessibility, AScreenReaderHearsEveryCell) {
  const std::string bytes = PatternBytes(2000);
  const Control page = FindNow("Bytes of the Show Window");
  EXPECT_EQ(controls_->CellText(page, 3, 0), "Offset 00000030");
  const std::string value = Cell(3, 6);
  EXPECT_EQ(std::stoul(value, nullptr, 16), static_cast<unsigned char>(bytes[3 * 16 + 5]));
  EXPECT_EQ(controls_->CellText(page, 3, 6), value + ", byte 5 of row 00000030");
}

TEST_F(Accessibility, KeysAloneOpenTheMenusAndChoose) {
  desktop_.Key("alt+f");
  EXPECT_TRUE(Until([&] { return FindNow("Save Chunk").width > 0; }));
  desktop_.Key("Escape");
  desktop_.Key("Escape");
  desktop_.Key("alt+t");
  EXPECT_TRUE(Until([&] { return FindNow("Split&Join").width > 0; }));
  desktop_.Key("Return");
  ExpectWindow("Split and Join Tool");
}

}  // namespace
