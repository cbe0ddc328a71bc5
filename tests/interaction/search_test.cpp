#include "interaction/search.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "interaction/edit_mode.h"
#include "interaction/write_back.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/refresh.h"

namespace {

using bwp::kHitColour;
using bwp::SearchFields;
using bwp::test::ReadFile;
using bwp::test::Transcript;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Search : public testing::Test {
 protected:
  void Open(const std::string& bytes, const std::string& name = "a") {
    OpenViewFile(state, folder.Write(name, bytes));
    Refresh(state, display);
    said.clear();
  }

  void Type(const std::string& text) {
    fields.Atext = text;
    MirrorAtext(fields);
    search.TermTyped(state);
  }

  /// Where the search found the term, -1 when it did not.
  std::int64_t Find(bool noCase = false) {
    said.clear();
    search.FindClicked(state, services, fields, noCase);
    return state.hit.length > 0 ? state.hit.start : -1;
  }

  std::vector<int> Coloured() const {
    std::vector<int> positions;
    for (int position = 0; position < bwp::kPageBytes; ++position) {
      const bool coloured = state.tabe.Background(bwp::ValueCell(position)) == kHitColour;
      EXPECT_EQ(state.tabe.Background(bwp::CharCell(position)) == kHitColour, coloured);
      if (coloured) positions.push_back(position);
    }
    return positions;
  }

  bwp::test::TempFolder folder;
  Transcript said;
  bwp::test::RecordedDisplay display{said};
  bwp::test::RecordedProgress progress{said};
  bwp::test::RecordedNotices notices{said};
  bwp::Disk disk;
  bwp::Services services{display, progress, notices, disk};
  bwp::ViewState state;
  SearchFields fields;
  bwp::Search search;
};

TEST_F(Search, ShowsItsWorkThenThePageThenTheHit) {
  Open(std::string(1000, '.') + "ab");
  Type("ab");
  Find();
  EXPECT_THAT(said,
              ElementsAre("caption Search", "label \nSearching String:  ab\nHEX:     61 62 \nDecimal: 97 98 ",
                          "show", "events", "bar 100", "events", "bar 0", "hide", "redraw off", "thumb",
                          "title", "ruler hex", "window texts", "chunk texts", "redraw on", "focus grid",
                          "display events", "redraw off", "redraw on", "clear abort"));
}

TEST_F(Search, ShowsTheTermInTheLabelAsTextOfAnyCharacter) {
  Open("x");
  Type("\x80\xE9");
  Find();
  EXPECT_THAT(progress.Label(),
              testing::StartsWith("\nSearching String:  \xE2\x82\xAC\xC3\xA9\nHEX:     80 E9 "));
}

TEST_F(Search, PutsTheHitAtThePagesTop) {
  Open(std::string(700, '.') + "abc" + std::string(2000, '.'));
  Type("abc");
  EXPECT_EQ(Find(), 700);
  EXPECT_EQ(state.SWStart, 700);
  EXPECT_THAT(Coloured(), ElementsAre(0, 1, 2));
}

TEST_F(Search, ShowsAHitNearTheEndInsideTheLastPage) {
  Open(std::string(1000, '.') + "abc" + std::string(10, '.'));
  Type("abc");
  EXPECT_EQ(Find(), 1000);
  EXPECT_EQ(state.SWStart, 1013 - 512);
  EXPECT_THAT(Coloured(), ElementsAre(499, 500, 501));
}

TEST_F(Search, ShowsAShortFileFromItsStart) {
  Open("..ab");
  Type("ab");
  EXPECT_EQ(Find(), 2);
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_THAT(Coloured(), ElementsAre(2, 3));
}

TEST_F(Search, ColoursNoByteOutsideThePage) {
  const std::string term(600, 'x');
  Open(term + std::string(600, '.'));
  Type(term);
  EXPECT_EQ(Find(), 0);
  EXPECT_EQ(Coloured().size(), 512U);
}

TEST_F(Search, FindsABlankInFrontOfTheFileAndColoursNothing) {
  Open(std::string(600, '.'));
  Type(" ");
  EXPECT_EQ(Find(), -1);
  EXPECT_EQ(state.hit.length, 1);
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_THAT(Coloured(), IsEmpty());
}

TEST_F(Search, DoesNothingForAnEmptyTerm) {
  Open("abc");
  fields.Dtext = "   ";
  Find();
  EXPECT_THAT(said, IsEmpty());
  EXPECT_TRUE(state.ForceRefresh);
}

TEST_F(Search, DoesNothingWithoutAFile) {
  Type("a");
  Find();
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(Search, FindsNothingInAnEmptyFile) {
  Open("");
  Type("a");
  EXPECT_EQ(Find(), -1);
  EXPECT_THAT(said, Contains("tell String not found"));
  EXPECT_FALSE(progress.Visible());
}

TEST_F(Search, TakesTheTermFromTheDecimalField) {
  Open(std::string("ab\xFF\x01", 4));
  fields = {"ab", "61 62 ", "300 1"};
  search.TermTyped(state);
  EXPECT_EQ(Find(), 2);
}

TEST_F(Search, IgnoresCaseWhereAskedAlsoForNumbers) {
  Open("..AB");
  fields = {"", "61 62", ""};
  MirrorHtext(fields);
  search.TermTyped(state);
  EXPECT_EQ(Find(false), -1);
  EXPECT_EQ(Find(true), 2);
}

TEST_F(Search, GoesFromHitToHitAndStartsOverAfterTheLast) {
  Open("ab.ab.ab.");
  Type("ab");
  EXPECT_EQ(Find(), 0);
  EXPECT_EQ(Find(), 3);
  EXPECT_EQ(Find(), 6);
  EXPECT_EQ(Find(), -1);
  EXPECT_THAT(said, Contains("tell String not found"));
  EXPECT_TRUE(search.NewSearch);
  EXPECT_EQ(Find(), 0);
  EXPECT_FALSE(search.NewSearch);
}

TEST_F(Search, ClearsTheTypingFlagWhenNothingIsFound) {
  Open("abc");
  Type("x");
  EXPECT_TRUE(state.FieldTyping);
  search.Run(state, services, fields, false);
  EXPECT_FALSE(state.FieldTyping);
}

TEST_F(Search, KeepsTheTypingFlagAfterEnterFoundSomething) {
  Open("abc");
  Type("b");
  search.Run(state, services, fields, false);
  EXPECT_TRUE(state.FieldTyping);
  EXPECT_TRUE(state.ForceRefresh);
  EXPECT_THAT(Coloured(), ElementsAre(1));
}

TEST_F(Search, ClearsTheTypingFlagAfterTheButton) {
  Open("abc");
  Type("b");
  Find();
  EXPECT_FALSE(state.FieldTyping);
}

TEST_F(Search, LetsGoOfTheHeldKey) {
  Open("abc");
  state.NavKeyHeld = true;
  Type("b");
  Find();
  EXPECT_FALSE(state.NavKeyHeld);
}

TEST_F(Search, StartsAtTheBeginningForAChangedTerm) {
  Open("abab");
  Type("ab");
  EXPECT_EQ(Find(), 0);
  EXPECT_EQ(Find(), 2);
  Type("a");
  EXPECT_EQ(Find(), 0);
}

TEST_F(Search, TellsOfCancelAndStartsOver) {
  Open("ab.ab");
  Type("ab");
  EXPECT_EQ(Find(), 0);
  progress.PressCancel();
  EXPECT_EQ(Find(), -1);
  EXPECT_THAT(said, ElementsAre("redraw off", "redraw on", testing::_, testing::_, "show", "events", "bar 0",
                                "hide", "tell Search aborted (i)", "clear abort"));
  EXPECT_FALSE(search.NewSearch);
  EXPECT_EQ(Find(), 0);
  EXPECT_EQ(Find(), 3);
}

TEST_F(Search, StopsAtTheBlockInWhichCancelCame) {
  Open(std::string(2'000'000, '.') + "ab");
  Type("ab");
  progress.CancelAtEvents(3);
  EXPECT_EQ(Find(), -1);
  EXPECT_EQ(std::count(said.begin(), said.end(), "events"), 3);
  EXPECT_THAT(said, Contains("tell Search aborted (i)"));
  EXPECT_FALSE(progress.Aborted());
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_EQ(Find(), 2'000'000);
}

TEST_F(Search, StartsAnewInAnotherFile) {
  Open("ab.ab", "a");
  Type("ab");
  EXPECT_EQ(Find(), 0);
  Open("....ab", "b");
  EXPECT_EQ(Find(), 4);
}

TEST_F(Search, StartsAnewAfterTheFileWasReopened) {
  Open("ab.ab");
  Type("ab");
  EXPECT_EQ(Find(), 0);
  EXPECT_EQ(Find(), 3);
  ReopenViewFile(state);
  EXPECT_EQ(Find(), 0);
}

TEST_F(Search, ShowsAFileThatAnotherProgramCutShortAsItIsNow) {
  for (const int blocksRead : {0, 1, 2}) {
    Open(std::string(3000, '.') + "ab" + std::string(1000, '.'));
    search = bwp::Search(900);
    Type("ab");
    int round = 0;
    progress.onEvents = [&] {
      if (round++ == blocksRead) folder.Write("a", std::string(1000, '.') + "ab");
    };
    EXPECT_EQ(Find(), -1) << blocksRead;
    progress.onEvents = nullptr;
    EXPECT_THAT(said, Contains("tell [Error !] The file was changed by another program (x)"));
    EXPECT_EQ(state.FLen, 1002);
    EXPECT_THAT(Coloured(), IsEmpty());
    EXPECT_FALSE(progress.Visible());
    EXPECT_EQ(Find(), 1000);
  }
}

TEST_F(Search, EndsTypingWhenTheFileWasCutShort) {
  Open(std::string(1000, '.'));
  Type("ab");
  folder.Write("a", "..");
  search.Run(state, services, fields, false);
  EXPECT_FALSE(state.FieldTyping);
  EXPECT_EQ(display.window.Dend, "2");
}

TEST_F(Search, GivesTheOldHitItsColoursBackFirst) {
  Open("..a.b.." + std::string(600, '.'));
  Type("a");
  search.Run(state, services, fields, false);
  EXPECT_THAT(Coloured(), ElementsAre(0));
  Type("none");
  bool clean = false;
  progress.onEvents = [&] { clean = Coloured().empty(); };
  search.Run(state, services, fields, false);
  EXPECT_TRUE(clean);
  EXPECT_THAT(said, Contains("tell String not found"));
}

TEST_F(Search, MovesTheColoursWhenThePageStays) {
  Open("..ab.ab");
  Type("ab");
  search.Run(state, services, fields, false);
  EXPECT_THAT(Coloured(), ElementsAre(2, 3));
  search.Run(state, services, fields, false);
  EXPECT_THAT(Coloured(), ElementsAre(5, 6));
}

TEST_F(Search, LosesTheColoursWithThePage) {
  Open(std::string(2000, '.') + "ab" + std::string(2000, '.'));
  Type("ab");
  Find();
  Refresh(state, display);
  EXPECT_THAT(Coloured(), ElementsAre(0, 1));
  state.SWStart -= 16;
  Refresh(state, display);
  EXPECT_THAT(Coloured(), IsEmpty());
}

TEST_F(Search, LeavesTheMarksTheirColours) {
  Open(std::string(100, '.') + "a" + std::string(500, '.'));
  state.MarkStart = state.MarkEnd = 100;
  Type("a");
  Find();
  const auto shown = static_cast<int>(100 - state.SWStart);
  EXPECT_THAT(Coloured(), ElementsAre(shown));
  Type("none");
  search.Run(state, services, fields, false);
  Type("a");
  search.Run(state, services, fields, false);
  Type("none");
  search.Run(state, services, fields, false);
  EXPECT_EQ(state.tabe.Background(bwp::ValueCell(shown)), bwp::kMarkEndColour);
}

TEST_F(Search, GoesOnInWhatTheEditedPageNowHolds) {
  Open("ab.ab.....ab");
  Type("ab");
  EXPECT_EQ(Find(), 0);
  bwp::EditMode edit(state);
  edit.Enter({0, 4});
  for (const char key : std::string("2E2E2E6162")) edit.TypeKey(static_cast<std::uint8_t>(key));
  EXPECT_TRUE(WriteBackPage(state, disk));
  edit.Leave();
  EXPECT_EQ(ReadFile(folder / "a"), "ab....ab..ab");
  EXPECT_EQ(Find(), 6);
  EXPECT_EQ(Find(), 10);
  EXPECT_EQ(Find(), -1);
}

// The bytes are changed where they are; the file stays the same one.
void Overwrite(const std::string& path, std::size_t place, std::string_view bytes) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(static_cast<std::streamoff>(place));
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ASSERT_TRUE(file.flush());
}

TEST_F(Search, FindsNextWhatTheFileHoldsByThen) {
  EXPECT_TRUE(rc::check([this] {
    const auto letter = rc::gen::element('a', 'b');
    auto text = *rc::gen::nonEmpty(rc::gen::container<std::string>(letter));
    const auto term = *rc::gen::nonEmpty(rc::gen::resize(3, rc::gen::container<std::string>(letter)));
    Open(text);
    search = bwp::Search(*rc::gen::inRange<std::int64_t>(1, 40));
    Type(term);
    std::int64_t last = Find();
    for (int call = 0; call < 12 && last >= 0; ++call) {
      const auto place = *rc::gen::inRange<std::size_t>(0, text.size());
      text[place] = text[place] == 'a' ? 'b' : 'a';
      Overwrite(state.OpenFile, place, text.substr(place, 1));
      const std::int64_t hit = Find();
      const std::size_t next = text.find(term, static_cast<std::size_t>(last) + 1);
      // A hit that ends with its block is reported once more, as long as it is still there.
      const bool again = hit == last && text.compare(static_cast<std::size_t>(last), term.size(), term) == 0;
      RC_ASSERT(again || hit == (next == std::string::npos ? -1 : static_cast<std::int64_t>(next)));
      last = hit;
    }
  }));
}

TEST_F(Search, ReadsOnAcrossBlocksAsThePlainModelDoes) {
  EXPECT_TRUE(rc::check([this] {
    const auto letter = rc::gen::element('a', 'b', 'A');
    const auto text = *rc::gen::nonEmpty(rc::gen::container<std::string>(letter));
    const auto term = *rc::gen::nonEmpty(rc::gen::resize(4, rc::gen::container<std::string>(letter)));
    const auto noCase = *rc::gen::arbitrary<bool>();
    const auto block = *rc::gen::inRange<std::int64_t>(1, 9);
    const auto folded = [noCase](std::string bytes) {
      std::replace(bytes.begin(), bytes.end(), noCase ? 'A' : 'a', 'a');
      return bytes;
    };
    Open(text);
    search = bwp::Search(block);
    Type(term);
    std::size_t from = 0;
    for (int call = 0; call < 12; ++call) {
      const std::size_t place = folded(text).find(folded(term), from);
      const std::int64_t expected = place == std::string::npos ? -1 : static_cast<std::int64_t>(place);
      RC_ASSERT(Find(noCase) == expected);
      from = place == std::string::npos ? 0 : place + 1;
      // A hit that ends with its block, but not with the file, is reported once more.
      const std::size_t end = place + term.size();
      if (place != std::string::npos && end % static_cast<std::size_t>(block) == 0 && end < text.size()) {
        RC_ASSERT(Find(noCase) == expected);
      }
    }
  }));
}

}  // namespace
