#include "interaction/edit_mode.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

#include "support/interaction_bench.h"
#include "viewer/mark_cells.h"
#include "viewer/number_text.h"
#include "viewer/refresh.h"

namespace {

using bwp::EditMode;
using bwp::GridCell;
using bwp::test::OpenedFile;

struct Edit : OpenedFile {
  explicit Edit(std::size_t length, bool hex = true) : OpenedFile(length) {
    state.HexMode = hex;
    bwp::Refresh(state, display);
  }

  void Type(const std::string& keys) {
    for (const char key : keys) edit.TypeKey(static_cast<std::uint8_t>(key));
  }
  std::string Text(int row, int column) const { return std::string(state.tabe.Text(row, column)); }
  bwp::Colour Colour(int row, int column) const { return state.tabe.Background(row, column); }

  EditMode edit{state};
};

TEST(EditModeSwitch, EnteringHoldsThePageBackAndStandsOnTheGivenCell) {
  Edit e(5000);
  e.edit.Enter({3, 7});
  EXPECT_TRUE(e.edit.On());
  EXPECT_TRUE(e.state.FieldTyping);
  EXPECT_TRUE(e.state.EditMode);
  EXPECT_EQ(e.edit.Current(), (GridCell{3, 7}));
  e.edit.Leave();
  EXPECT_FALSE(e.edit.On());
  EXPECT_FALSE(e.state.FieldTyping);
  EXPECT_FALSE(e.state.EditMode);
}

TEST(EditModeSwitch, NoRefreshTouchesThePageMeanwhileWhateverEndsTheTyping) {
  Edit e(5000);
  e.edit.Enter({0, 1});
  e.Type("4");
  e.state.FieldTyping = false;
  e.state.ForceRefresh = true;
  e.state.SWStart = 1000;
  bwp::Refresh(e.state, e.display);
  EXPECT_EQ(e.Text(0, 1), "4");
  EXPECT_EQ(e.state.SWPrev, 0);
}

TEST(EditModeSwitch, TheOffsetColumnIsNeverTheCurrentOne) {
  Edit e(5000);
  e.edit.Enter({3, 0});
  EXPECT_EQ(e.edit.Current(), (GridCell{3, 1}));
}

TEST(EditModeSwitch, NeedsAFileWithAByteOnThePage) {
  Edit e(5000);
  e.state.OpenFile.clear();
  e.edit.Enter({0, 1});
  EXPECT_FALSE(e.edit.On());
  Edit empty(0);
  empty.edit.Enter({0, 1});
  EXPECT_FALSE(empty.edit.On());
  EXPECT_FALSE(empty.state.FieldTyping);
}

TEST(EditModeSwitch, OffItTakesNoKey) {
  Edit e(5000);
  e.Type("AB\r");
  EXPECT_FALSE(e.edit.ButtonKey(40));
  e.edit.MoveTo({4, 4});
  EXPECT_EQ(e.Text(0, 1), funzioni::HexByte(static_cast<std::uint8_t>(e.bytes[0])));
  EXPECT_EQ(e.edit.Current(), GridCell{});
}

TEST(EditTyping, TwoHexadecimalDigitsAreAByteAndMoveOn) {
  Edit e(5000);
  e.edit.Enter({0, 1});
  e.Type("a");
  EXPECT_EQ(e.Text(0, 1), "A");
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 1}));
  e.Type("B");
  EXPECT_EQ(e.Text(0, 1), "AB");
  EXPECT_EQ(e.Text(0, 17), "\xAB");
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 2}));
}

TEST(EditTyping, ThreeDecimalDigitsAreAByteAndMoveOn) {
  Edit e(5000, false);
  e.edit.Enter({0, 1});
  e.Type("065");
  EXPECT_EQ(e.Text(0, 1), "065");
  EXPECT_EQ(e.Text(0, 17), "A");
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 2}));
}

TEST(EditTyping, AboveTwoHundredFiftyFiveIsCapped) {
  Edit e(5000, false);
  e.edit.Enter({0, 1});
  e.Type("300");
  EXPECT_EQ(e.Text(0, 1), "255");
  EXPECT_EQ(e.Text(0, 17), "\xFF");
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 2}));
}

TEST(CellByte, IsAtMostTwoHundredFiftyFiveAndZeroForWhatIsNoNumber) {
  EXPECT_EQ(bwp::CellByte("999", false), 255);
  EXPECT_EQ(bwp::CellByte("FFF", true), 255);
  EXPECT_EQ(bwp::CellByte("", false), 0);
  EXPECT_EQ(bwp::CellByte("x", false), 0);
}

TEST(EditTyping, WhatIsNoDigitOfTheBaseIsIgnored) {
  Edit e(5000);
  e.edit.Enter({0, 1});
  const std::string before = e.Text(0, 1);
  e.Type("Gg z.*)\x1B\x08");
  EXPECT_EQ(e.Text(0, 1), before);
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 1}));
  Edit decimal(5000, false);
  decimal.edit.Enter({0, 1});
  decimal.Type("A");
  EXPECT_EQ(decimal.Text(0, 1), std::to_string(static_cast<std::uint8_t>(decimal.bytes[0])));
}

TEST(EditTyping, EnterEndsAByteEarly) {
  Edit e(5000);
  e.edit.Enter({0, 1});
  e.Type("7\r");
  EXPECT_EQ(e.Text(0, 1), "7");
  EXPECT_EQ(e.Text(0, 17), "\x07");
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 2}));
}

TEST(EditTyping, TheEightCharactersFromExclamationMarkToParenthesisEndAByteLikeEnter) {
  for (const char key : std::string("!\"#$%&'(")) {
    Edit e(5000);
    e.edit.Enter({0, 1});
    e.Type(std::string("7") + key);
    EXPECT_EQ(e.Text(0, 17), "\x07") << key;
    EXPECT_EQ(e.edit.Current(), (GridCell{0, 2})) << key;
  }
}

TEST(EditTyping, EnterOnAnUntouchedCellChangesNothingAndMovesOn) {
  Edit e(5000);
  e.edit.Enter({0, 1});
  const std::string before = e.Text(0, 1);
  e.Type("\r");
  EXPECT_EQ(e.Text(0, 1), before);
  EXPECT_FALSE(e.edit.IsChanged(0));
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 2}));
}

TEST(EditTyping, GoesFromTheLastColumnToTheNextRowAndFromTheLastCellToTheFirst) {
  Edit e(5000);
  e.edit.Enter({4, 16});
  e.Type("\r");
  EXPECT_EQ(e.edit.Current(), (GridCell{5, 1}));
  e.edit.MoveTo({31, 16});
  e.Type("00");
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 1}));
  EXPECT_EQ(e.state.SWStart, 0);
}

TEST(EditTyping, ACharacterCellTakesNoKey) {
  Edit e(5000);
  e.edit.Enter({0, 17});
  const std::string before = e.Text(0, 17);
  e.Type("AB\r");
  EXPECT_EQ(e.Text(0, 17), before);
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 17}));
}

TEST(EditTyping, ADigitLeftAloneStartsAnewWhereTheCellIsEnteredAgain) {
  Edit e(5000);
  e.edit.Enter({0, 1});
  e.Type("1");
  e.edit.MoveTo({0, 2});
  e.Type("A");
  EXPECT_EQ(e.Text(0, 1), "1");
  EXPECT_EQ(e.Text(0, 2), "A");
  e.edit.MoveTo({0, 1});
  e.Type("F");
  EXPECT_EQ(e.Text(0, 1), "F");
}

TEST(GridCells, TheCurrentCellStaysOnABytesOfTheFile) {
  Edit e(100);
  e.edit.Enter({31, 16});
  EXPECT_EQ(e.edit.Current(), (GridCell{6, 4}));
  e.edit.MoveTo({6, 5});
  EXPECT_EQ(e.edit.Current(), (GridCell{6, 4}));
  e.edit.MoveTo({10, 25});
  EXPECT_EQ(e.edit.Current(), (GridCell{6, 20}));
  e.edit.MoveTo({-1, 40});
  EXPECT_EQ(e.edit.Current(), (GridCell{0, 32}));
  e.edit.MoveTo({6, 4});
  e.Type("00");
  EXPECT_EQ(e.edit.Current(), (GridCell{6, 4}));
}

TEST(EditButtonKeys, FourCharactersMoveTheCellAroundInItsHalf) {
  struct Case {
    GridCell from;
    std::uint8_t key;
    GridCell to;
  };
  const Case cases[] = {
      {{5, 3}, '&', {4, 3}},    {{0, 3}, '&', {31, 3}},  {{5, 3}, '(', {6, 3}},    {{31, 3}, '(', {0, 3}},
      {{5, 3}, '%', {5, 4}},    {{5, 16}, '%', {5, 1}},  {{5, 17}, '%', {5, 18}},  {{5, 32}, '%', {5, 17}},
      {{5, 3}, '\'', {5, 2}},   {{5, 1}, '\'', {5, 16}}, {{5, 18}, '\'', {5, 17}}, {{5, 17}, '\'', {5, 32}},
      {{5, 32}, '\'', {5, 31}}, {{5, 3}, 'A', {5, 3}},   {{5, 3}, '!', {5, 3}},
  };
  for (const Case& c : cases) {
    Edit e(5000);
    e.edit.Enter(c.from);
    const bool taken = std::string_view("%&'(").find(static_cast<char>(c.key)) != std::string_view::npos;
    EXPECT_EQ(e.edit.ButtonKey(c.key), taken);
    EXPECT_EQ(e.edit.Current(), c.to) << c.key << " from " << c.from.row << "," << c.from.column;
  }
}

// Blue, green, red.
constexpr bwp::Colour kGreen = 0x00FF00;
constexpr bwp::Colour kRed = 0x0000FF;

TEST(EditColours, TheCurrentCellIsGreenAsInTheFileAndRedOnceChanged) {
  Edit e(5000);
  e.edit.Enter({2, 3});
  EXPECT_EQ(e.Colour(2, 3), kGreen);
  const std::string own = e.Text(2, 3);
  e.Type("0");
  EXPECT_EQ(e.Colour(2, 3), kRed);
  e.Type("0");
  EXPECT_EQ(e.Colour(2, 3), bwp::kByteChangedColour);
  EXPECT_EQ(e.Colour(2, 19), bwp::kByteChangedColour);
  EXPECT_EQ(e.Colour(2, 4), kGreen);
  e.edit.MoveTo({2, 3});
  EXPECT_EQ(e.Colour(2, 3), kRed);
  EXPECT_EQ(e.Colour(2, 4), bwp::kValueColour);
  e.Type(own);
  EXPECT_EQ(e.Colour(2, 3), bwp::kValueColour) << "typed back to what the file holds";
}

TEST(EditColours, LeavingTheModeLeavesNoColourAndNoTextBehind) {
  Edit e(5000);
  bwp::MoveMarks(e.state, 5, 20);
  bwp::Refresh(e.state, e.display);
  bwp::ShowHit(e.state, 30, 4);
  const bwp::PageGrid before = e.state.tabe;
  e.edit.Enter({0, 1});
  for (int i = 0; i < 60; ++i) e.Type("5A");
  e.edit.Leave();
  for (int row = 0; row < bwp::kRows; ++row) {
    for (int column = 0; column < bwp::kColumns; ++column) {
      ASSERT_EQ(e.state.tabe.Background(row, column), before.Background(row, column)) << row << "," << column;
      ASSERT_EQ(e.state.tabe.Text(row, column), before.Text(row, column)) << row << "," << column;
    }
  }
}

TEST(EditColours, AMarksColourComesBackWhenTheCellIsLeftUnchanged) {
  Edit e(5000);
  e.edit.Enter({0, 1});
  EXPECT_EQ(e.Colour(0, 1), bwp::kCellAsInFileColour);
  e.edit.MoveTo({1, 1});
  EXPECT_EQ(e.Colour(0, 1), bwp::kMarkStartColour);
}

// The rules in their plainest form: one text a byte, one place, one count of digits.
struct PlainEdit {
  std::vector<std::string> texts;
  std::vector<std::string> characters;
  int place = 0;
  std::string typed;
  bool hex = true;

  void Commit() {
    if (!typed.empty()) texts[static_cast<std::size_t>(place)] = typed;
    std::string& text = texts[static_cast<std::size_t>(place)];
    long value = std::stol(text, nullptr, hex ? 16 : 10);
    if (value > 255) {
      text = hex ? "FF" : "255";
      value = 255;
    }
    characters[static_cast<std::size_t>(place)] = std::string(1, static_cast<char>(value));
    place = std::min((place + 1) % 512, static_cast<int>(texts.size()) - 1);
    typed.clear();
  }
  void Key(int code) {
    if (code == 13 || (code >= 33 && code <= 40)) return Commit();
    const int upper = std::toupper(code);
    if (!(hex ? std::isxdigit(upper) : std::isdigit(upper))) return;
    typed += static_cast<char>(upper);
    texts[static_cast<std::size_t>(place)] = typed;
    if (typed.size() == (hex ? 2U : 3U)) Commit();
  }
};

RC_GTEST_PROP(EditModel, AnySequenceOfKeysTypesWhatThePlainRulesSay, ()) {
  const auto length = *rc::gen::inRange<std::size_t>(1, 700);
  const bool hex = *rc::gen::arbitrary<bool>();
  Edit e(length, hex);
  const std::size_t count = std::min<std::size_t>(512, length);
  PlainEdit plain;
  plain.hex = hex;
  for (std::size_t i = 0; i < count; ++i) {
    const auto byte = static_cast<std::uint8_t>(e.bytes[i]);
    plain.texts.push_back(hex ? funzioni::HexByte(byte) : std::to_string(byte));
    plain.characters.emplace_back(1, static_cast<char>(byte));
  }
  e.edit.Enter({0, 1});
  const auto codes = *rc::gen::container<std::vector<int>>(
      rc::gen::oneOf(rc::gen::element(13, 33, 37, 40, 'g', ' '), rc::gen::inRange<int>('0', '9' + 1),
                     rc::gen::inRange<int>('a', 'g'), rc::gen::inRange<int>('A', 'G')));
  for (const int code : codes) {
    e.edit.TypeKey(static_cast<std::uint8_t>(code));
    plain.Key(code);
    if (*rc::gen::inRange(0, 8) == 0) {
      const int target = *rc::gen::inRange(0, 512);
      if (target != plain.place) plain.typed.clear();
      if (target == plain.place) continue;
      plain.place = std::min(target, static_cast<int>(count) - 1);
      plain.typed.clear();
      e.edit.MoveTo(bwp::ValueCell(target));
    }
  }
  RC_ASSERT(e.edit.Current().row * 16 + e.edit.Current().column - 1 == plain.place);
  for (std::size_t i = 0; i < count; ++i) {
    const int row = static_cast<int>(i) / 16;
    const int column = static_cast<int>(i) % 16;
    RC_ASSERT(e.Text(row, column + 1) == plain.texts[i]);
    RC_ASSERT(e.Text(row, column + 17) == plain.characters[i]);
  }
}

}  // namespace
