#include "interaction/search.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "interaction/search_fixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

using Search = bwp::test::SearchFixture;

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
