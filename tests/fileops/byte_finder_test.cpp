#include "fileops/byte_finder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "fileops/byte_pair_scan.h"
#include "support/temp_folder.h"
#include "viewer/code_page.h"

namespace {

using FileSystem::ByteFinder;
using FileSystem::BytePair;
using FileSystem::PairScan;

char FoldedChar(char byte) {
  return static_cast<char>(code_page::Fold(static_cast<std::uint8_t>(byte)));
}

std::string FoldedText(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), FoldedChar);
  return text;
}

std::size_t NaiveFind(std::string text, std::string pattern, std::size_t from, bool ignoreCase) {
  if (ignoreCase) {
    text = FoldedText(text);
    pattern = FoldedText(pattern);
  }
  return text.find(pattern, from);
}

std::size_t Find(const std::string& text, const std::string& pattern, std::size_t from = 0,
                 bool ignoreCase = false) {
  return ByteFinder(pattern, ignoreCase).Find(text, from);
}

rc::Gen<std::string> TextOf(const std::string& alphabet, std::size_t longest) {
  return rc::gen::mapcat(rc::gen::inRange<std::size_t>(0, longest + 1), [alphabet](std::size_t length) {
    return rc::gen::container<std::string>(length, rc::gen::elementOf(alphabet));
  });
}

TEST(PairScans, EqualALookAtEveryPosition) {
  EXPECT_TRUE(rc::check([] {
    const auto text = *TextOf("aAbB\xFF", 700);
    RC_PRE(text.size() > 40U);
    const BytePair pair = {
        {*rc::gen::inRange<std::size_t>(0, 40), 'a', 0},
        {*rc::gen::inRange<std::size_t>(0, 40), 'b', *rc::gen::element<unsigned char>(0, 0x20)}};
    const auto from = *rc::gen::inRange<std::size_t>(0, text.size() - 40);
    const std::size_t end = text.size() - 40;
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    std::size_t expected = from;
    while (expected < end && !pair.FitsAt(bytes + expected)) ++expected;
    for (const PairScan scan : FileSystem::PairScans()) {
      RC_ASSERT(scan(pair, bytes, from, end) == expected);
    }
  }));
}

TEST(PairScans, FindALonePairAtEveryPosition) {
  const BytePair pair = {{3, 'x', 0}, {0, 'y', 0}};
  for (const PairScan scan : FileSystem::PairScans()) {
    for (std::size_t length = 4; length < 300; ++length) {
      for (std::size_t place = 0; place + 4 <= length; ++place) {
        std::string text(length, '.');
        text[place + 3] = 'x';
        text[place] = 'y';
        const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
        ASSERT_EQ(scan(pair, bytes, 0, length - 3), place);
        ASSERT_EQ(scan(pair, bytes, place + 1, length - 3), length - 3);
      }
    }
  }
}

TEST(ByteFinder, FindsAtBothEnds) {
  EXPECT_EQ(Find("abc", "abc"), 0U);
  EXPECT_EQ(Find("abc", "a"), 0U);
  EXPECT_EQ(Find("abc", "c"), 2U);
  EXPECT_EQ(Find("abc", "bc"), 1U);
}

TEST(ByteFinder, FindsNothingInATextThatIsTooShort) {
  EXPECT_EQ(Find("", "a"), ByteFinder::kNone);
  EXPECT_EQ(Find("ab", "abc"), ByteFinder::kNone);
  EXPECT_EQ(Find("abc", "abc", 1), ByteFinder::kNone);
  EXPECT_EQ(Find("abc", "c", 3), ByteFinder::kNone);
  EXPECT_EQ(Find("abc", "c", 4), ByteFinder::kNone);
}

TEST(ByteFinder, FindsOverlappingMatches) {
  EXPECT_EQ(Find("aaaa", "aa", 0), 0U);
  EXPECT_EQ(Find("aaaa", "aa", 1), 1U);
  EXPECT_EQ(Find("aaaa", "aa", 2), 2U);
  EXPECT_EQ(Find("aaaa", "aa", 3), ByteFinder::kNone);
}

TEST(ByteFinder, ComparesWithoutCaseByTheFoldingOfTheCodePage) {
  for (int one = 0; one < 256; ++one) {
    for (int two = 0; two < 256; ++two) {
      const std::string text(40, static_cast<char>(one));
      const std::string pattern(2, static_cast<char>(two));
      const bool equal = FoldedChar(text[0]) == FoldedChar(pattern[0]);
      ASSERT_EQ(Find(text, pattern, 0, true), equal ? 0 : ByteFinder::kNone) << one << " " << two;
      ASSERT_EQ(Find(text, pattern, 0, false), one == two ? 0 : ByteFinder::kNone) << one << " " << two;
    }
  }
}

TEST(ByteFinder, EqualsThePlainSearchOnSmallAlphabets) {
  EXPECT_TRUE(rc::check([] {
    const auto alphabet =
        *rc::gen::element<std::string>("a", "ab", "aA", "aAbB", "abcdefgh", "\x8A\x9A\xC0\xE0");
    const auto text = *TextOf(alphabet, 400);
    const auto pattern = *rc::gen::nonEmpty(TextOf(alphabet, 6));
    const auto from = *rc::gen::inRange<std::size_t>(0, text.size() + 2);
    const auto ignoreCase = *rc::gen::arbitrary<bool>();
    RC_ASSERT(Find(text, pattern, from, ignoreCase) == NaiveFind(text, pattern, from, ignoreCase));
  }));
}

TEST(ByteFinder, FindsEveryPieceOfATextWhereItStandsFirst) {
  EXPECT_TRUE(rc::check([] {
    const auto text = *TextOf("aAbB", 600);
    RC_PRE(!text.empty());
    const auto start = *rc::gen::inRange<std::size_t>(0, text.size());
    const auto length = *rc::gen::inRange<std::size_t>(1, text.size() - start + 1);
    const auto ignoreCase = *rc::gen::arbitrary<bool>();
    const std::string pattern = text.substr(start, length);
    RC_ASSERT(Find(text, pattern, 0, ignoreCase) == NaiveFind(text, pattern, 0, ignoreCase));
  }));
}

// Patterns that nearly match nearly everywhere: here the finder gives up comparing candidates.
TEST(ByteFinder, EqualsThePlainSearchWhereCandidatesAbound) {
  EXPECT_TRUE(rc::check([] {
    const auto gap = *rc::gen::inRange<std::size_t>(1, 60);
    const auto length = *rc::gen::inRange<std::size_t>(2, 300);
    std::string text(30'000, 'a');
    for (std::size_t i = gap; i < text.size(); i += gap) text[i] = i % 7 == 0 ? 'B' : 'b';
    std::string pattern = text.substr(gap, length);
    const auto changed = *rc::gen::inRange<std::size_t>(0, length);
    pattern[changed] = pattern[changed] == 'a' ? 'b' : 'a';
    const auto place = *rc::gen::inRange<std::size_t>(0, text.size() - length);
    if (*rc::gen::arbitrary<bool>()) text.replace(place, length, pattern);
    const auto ignoreCase = *rc::gen::arbitrary<bool>();
    ByteFinder finder(pattern, ignoreCase);
    std::size_t from = 0;
    for (int hit = 0; hit < 3 && from != ByteFinder::kNone; ++hit) {
      const std::size_t expected = NaiveFind(text, pattern, from, ignoreCase);
      RC_ASSERT(finder.Find(text, from) == expected);
      from = expected == ByteFinder::kNone ? expected : expected + 1;
    }
  }));
}

TEST(ByteFinder, FindsALongPatternOfOneByte) {
  const std::string pattern(4096, 'x');
  std::string text(100'000, 'x');
  for (std::size_t i = 4000; i < text.size() - 5000; i += 4000) text[i] = 'y';
  EXPECT_EQ(Find(text, pattern), text.find(pattern));
  text[text.size() - 100] = 'y';
  EXPECT_EQ(Find(text, pattern), text.find(pattern));
}

TEST(ByteFinder, KeepsToBytesThatDoNotFoldApart) {
  // Bits that an upper and a lower case differ in let other bytes pass the first look, never the comparison.
  EXPECT_EQ(Find(std::string(100, '\x07') + "\x9F\xBF\xDF\xFF", "\xFF\xFF", 0, true), ByteFinder::kNone);
  EXPECT_EQ(Find("\x9F\xBF\xDF\xFF", "\x9F", 1, true), 3U);
  EXPECT_EQ(Find("@[`{aA", "`", 0, true), 2U);
}

TEST(ByteFinder, FindsInRandomBytes) {
  const std::string text = bwp::test::PatternBytes(200'000);
  ByteFinder absent("a pattern that random bytes do not hold", false);
  EXPECT_EQ(absent.Find(text, 0), ByteFinder::kNone);
  for (std::size_t place = 0; place + 8 < text.size(); place += 9973) {
    EXPECT_EQ(Find(text, text.substr(place, 8)), place);
  }
}

}  // namespace
