#include "viewer/number_text.h"

#include <algorithm>
#include <cctype>
#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <string>

#include "support/errors.h"

namespace {

std::string decimalSeparator = ".";

}  // namespace

// Replaces the C library's function, because a machine may not have the locales that the tests need.
extern "C" lconv* localeconv() noexcept {
  static lconv conventions = {};
  conventions.decimal_point = decimalSeparator.data();
  return &conventions;
}

namespace {

using bwp::test::ErrorNumberOf;
using funzioni::GroupThousands;
using funzioni::HexByte;
using funzioni::HexOffset;
using funzioni::IsNumberText;
using funzioni::ParseDecimal;
using funzioni::ParseHex;
using funzioni::SizeText;
using funzioni::StripEdgeJunk;
using funzioni::StripQuotes;

constexpr std::int64_t kMaxInt = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kMinInt = std::numeric_limits<std::int32_t>::min();

TEST(HexByte, HasAtLeastTwoDigits) {
  EXPECT_EQ(HexByte(0), "00");
  EXPECT_EQ(HexByte(10), "0A");
  EXPECT_EQ(HexByte(255), "FF");
  EXPECT_EQ(HexByte(256), "100");
}

TEST(HexOffset, HasEightDigits) {
  EXPECT_EQ(HexOffset(0), "00000000");
  EXPECT_EQ(HexOffset(255), "000000FF");
  EXPECT_EQ(HexOffset(4096), "00001000");
  EXPECT_EQ(HexOffset(kMaxInt), "7FFFFFFF");
}

TEST(HexOffset, ANegativeValueIsInTwosComplement) {
  EXPECT_EQ(HexOffset(-1), "FFFFFFFF");
  EXPECT_EQ(HexByte(-1), "FFFFFFFF");
  EXPECT_EQ(HexOffset(kMinInt), "80000000");
}

TEST(HexOffset, OutsideThirtyTwoBitsIsOverflow) {
  EXPECT_EQ(ErrorNumberOf([] { HexOffset(kMaxInt + 1); }), bwp::kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { HexOffset(kMinInt - 1); }), bwp::kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { HexByte(kMaxInt + 1); }), bwp::kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { HexByte(kMaxInt); }), 0);
}

TEST(ParseHex, NothingReadsAsZero) {
  EXPECT_EQ(ParseHex(""), 0);
  EXPECT_EQ(ParseHex(" "), 0);
  EXPECT_EQ(ParseHex("    "), 0);
  EXPECT_EQ(ParseHex("0"), 0);
  EXPECT_EQ(ParseHex("!\"#"), 0);
  EXPECT_EQ(ParseHex("xyz"), 0);
}

TEST(ParseHex, ReadsBothCases) {
  EXPECT_EQ(ParseHex("ff"), 255);
  EXPECT_EQ(ParseHex("aBc"), 0xABC);
}

TEST(ParseHex, FourDigitsAreSignedSixteenBit) {
  EXPECT_EQ(ParseHex("FFFF"), -1);
  EXPECT_EQ(ParseHex("8000"), -32768);
  EXPECT_EQ(ParseHex("7FFF"), 32767);
}

TEST(ParseHex, FiveToEightDigitsAreSignedThirtyTwoBit) {
  EXPECT_EQ(ParseHex("0FFFF"), 65535);
  EXPECT_EQ(ParseHex("10000"), 65536);
  EXPECT_EQ(ParseHex("0000FFFF"), 65535);
  EXPECT_EQ(ParseHex("7FFFFFFF"), kMaxInt);
  EXPECT_EQ(ParseHex("80000000"), kMinInt);
  EXPECT_EQ(ParseHex("FFFFFFFF"), -1);
}

TEST(ParseHex, StopsAtTheFirstCharacterThatIsNoDigit) {
  EXPECT_EQ(ParseHex("1G"), 1);
  EXPECT_EQ(ParseHex("12 34"), 0x12);
  EXPECT_EQ(ParseHex("FFFF.0"), -1);
}

TEST(ParseHex, DropsJunkAtTheEnds) {
  EXPECT_EQ(ParseHex("  1F  "), 0x1F);
  EXPECT_EQ(ParseHex("#1F\""), 0x1F);
}

TEST(ParseHex, ALongTextNeverOverflows) {
  EXPECT_GT(ParseHex("FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF"), kMaxInt);
  EXPECT_EQ(ParseHex("0000000000000000000000000000001F"), 0x1F);
}

TEST(ParseDecimal, ReadsLeadingBlanksThenDigits) {
  EXPECT_EQ(ParseDecimal(""), 0);
  EXPECT_EQ(ParseDecimal("   "), 0);
  EXPECT_EQ(ParseDecimal("  42"), 42);
  EXPECT_EQ(ParseDecimal("42abc"), 42);
  EXPECT_EQ(ParseDecimal("abc42"), 0);
  EXPECT_EQ(ParseDecimal("-5"), 0);
}

TEST(ParseDecimal, AGroupedNumberIsReadToItsFirstPoint) {
  EXPECT_EQ(ParseDecimal("1.234.567"), 1);
}

TEST(ParseDecimal, ALongTextNeverOverflows) {
  EXPECT_EQ(ParseDecimal("99999999999999999999999999"), funzioni::kTypedLimit);
}

TEST(IsNumberText, IsANonEmptyRunOfDigits) {
  EXPECT_FALSE(IsNumberText(""));
  EXPECT_FALSE(IsNumberText(" "));
  EXPECT_FALSE(IsNumberText("  "));
  EXPECT_TRUE(IsNumberText("0"));
  EXPECT_TRUE(IsNumberText("0123456789"));
  EXPECT_TRUE(IsNumberText(" 12 "));
  EXPECT_FALSE(IsNumberText("1 2"));
  EXPECT_FALSE(IsNumberText("1.234"));
  EXPECT_FALSE(IsNumberText("-1"));
}

TEST(IsNumberText, LettersCountOnlyWhenHexadecimalIsAllowed) {
  EXPECT_FALSE(IsNumberText("12AB"));
  EXPECT_TRUE(IsNumberText("12AB", true));
  EXPECT_TRUE(IsNumberText("abcdef", true));
  EXPECT_FALSE(IsNumberText("12AG", true));
  EXPECT_FALSE(IsNumberText("g", true));
  EXPECT_FALSE(IsNumberText("/", true));
  EXPECT_FALSE(IsNumberText(":", true));
  EXPECT_FALSE(IsNumberText("@", true));
}

TEST(StripEdgeJunk, DropsCharactersBelow38AndAbove165AtBothEnds) {
  EXPECT_EQ(StripEdgeJunk(" !\"#$%12%$#\"! "), "12");
  EXPECT_EQ(StripEdgeJunk("\xA6"
                          "12"
                          "\xFF"),
            "12");
  EXPECT_EQ(StripEdgeJunk("&12&"), "&12&");
  EXPECT_EQ(StripEdgeJunk("\xA5"
                          "12"
                          "\xA5"),
            "\xA5"
            "12"
            "\xA5");
  EXPECT_EQ(StripEdgeJunk("1 2"), "1 2");
}

TEST(StripEdgeJunk, ASingleCharacterStaysWhateverItIs) {
  EXPECT_EQ(StripEdgeJunk(" "), " ");
  EXPECT_EQ(StripEdgeJunk("!"), "!");
  EXPECT_EQ(StripEdgeJunk(""), "");
}

TEST(StripEdgeJunk, TwoJunkCharactersBecomeNothingInOneRoundAndThreeLeaveOne) {
  EXPECT_EQ(StripEdgeJunk("  "), "");
  EXPECT_EQ(StripEdgeJunk(" !#"), "!");
  EXPECT_EQ(StripEdgeJunk("    "), "");
}

TEST(StripEdgeJunk, OneSideAloneIsStrippedToASingleCharacter) {
  EXPECT_EQ(StripEdgeJunk("   A"), "A");
  EXPECT_EQ(StripEdgeJunk("A   "), "A");
}

TEST(SizeText, HasANumberForTheLongestSizeThatAFileSystemCanName) {
  EXPECT_EQ(SizeText(std::numeric_limits<std::int64_t>::max()), "8589934592 GB");
}

TEST(SizeText, IsWrittenWithTheSeparatorOfTheLocale) {
  for (const char* separator : {",", "\xD9\xAB", "."}) {
    decimalSeparator = separator;
    EXPECT_EQ(SizeText(1536), std::string("1") + separator + "5 KB");
    EXPECT_EQ(SizeText(3 * 1048576 / 2 + 10486), std::string("1") + separator + "51 MB");
    EXPECT_EQ(SizeText(2048), "2 KB");
    EXPECT_EQ(GroupThousands(1234567), "1.234.567") << "the groups' separator is always a point";
  }
}

TEST(SizeText, AUnitBeginsAboveItsSize) {
  EXPECT_EQ(SizeText(0), "0 Bytes");
  EXPECT_EQ(SizeText(1024), "1024 Bytes");
  EXPECT_EQ(SizeText(1025), "1 KB");
  EXPECT_EQ(SizeText(1048576), "1024 KB");
  EXPECT_EQ(SizeText(1048577), "1 MB");
  EXPECT_EQ(SizeText(1073741824), "1024 MB");
  EXPECT_EQ(SizeText(1073741825), "1 GB");
}

TEST(SizeText, HasUpToTwoDecimals) {
  EXPECT_EQ(SizeText(1536), "1.5 KB");
  EXPECT_EQ(SizeText(1280), "1.25 KB");
  EXPECT_EQ(SizeText(kMaxInt), "2 GB");
  EXPECT_EQ(SizeText(1085), "1.06 KB");
}

TEST(SizeText, TiesGoToTheEvenNeighbour) {
  EXPECT_EQ(SizeText(1152), "1.12 KB");  // 1.125
  EXPECT_EQ(SizeText(1408), "1.38 KB");  // 1.375
  EXPECT_EQ(SizeText(1664), "1.62 KB");  // 1.625
}

TEST(GroupThousands, PutsAPointBetweenGroupsOfThree) {
  EXPECT_EQ(GroupThousands(0), "0");
  EXPECT_EQ(GroupThousands(999), "999");
  EXPECT_EQ(GroupThousands(1000), "1.000");
  EXPECT_EQ(GroupThousands(123456), "123.456");
  EXPECT_EQ(GroupThousands(1234567), "1.234.567");
  EXPECT_EQ(GroupThousands(kMaxInt), "2.147.483.647");
}

TEST(GroupThousands, IsEmptyWithTheFlag) {
  EXPECT_EQ(GroupThousands(1000, true), "");
}

TEST(GroupThousands, TheSignCountsAsADigit) {
  EXPECT_EQ(GroupThousands(-12), "-12");
  EXPECT_EQ(GroupThousands(-123), "-.123");
  EXPECT_EQ(GroupThousands(-1234), "-1.234");
}

TEST(SignPadded, HasABlankInPlaceOfAPlus) {
  EXPECT_EQ(funzioni::SignPadded(0), " 0");
  EXPECT_EQ(funzioni::SignPadded(12), " 12");
  EXPECT_EQ(funzioni::SignPadded(-12), "-12");
}

TEST(MaxOf, IsTheLargest) {
  EXPECT_EQ(funzioni::MaxOf({5}), 5);
  EXPECT_EQ(funzioni::MaxOf({0, -7, 3, 2}), 3);
}

TEST(MinOf, IsTheSmallest) {
  EXPECT_EQ(funzioni::MinOf({5}), 5);
  EXPECT_EQ(funzioni::MinOf({0, -7, 3, 2}), -7);
}

TEST(StripQuotes, DropsOneQuoteAtEachEnd) {
  EXPECT_EQ(StripQuotes("\"/a b\""), "/a b");
  EXPECT_EQ(StripQuotes("\"\"/a\"\""), "\"/a\"");
  EXPECT_EQ(StripQuotes("\"/a"), "/a");
  EXPECT_EQ(StripQuotes("/a\""), "/a");
  EXPECT_EQ(StripQuotes("/a"), "/a");
  EXPECT_EQ(StripQuotes("\"\""), "");
  EXPECT_EQ(StripQuotes("\""), "\"");
  EXPECT_EQ(StripQuotes(""), "");
}

TEST(StripQuotes, TakesAnotherCharacter) {
  EXPECT_EQ(StripQuotes("'a'", '\''), "a");
  EXPECT_EQ(StripQuotes("\"a\"", '\''), "\"a\"");
}

RC_GTEST_PROP(HexOffset, ReadsBackAsItWas, ()) {
  const auto value = *rc::gen::arbitrary<std::int32_t>();
  RC_ASSERT(HexOffset(value).size() == 8U);
  RC_ASSERT(ParseHex(HexOffset(value)) == value);
}

RC_GTEST_PROP(HexByte, ReadsBackAsItWas, ()) {
  const auto byte = *rc::gen::inRange(0, 256);
  RC_ASSERT(HexByte(byte).size() == 2U);
  RC_ASSERT(ParseHex(HexByte(byte)) == byte);
}

RC_GTEST_PROP(GroupThousands, HasTheDigitsAndAPointForEveryThree, ()) {
  const auto value = *rc::gen::inRange<std::int64_t>(0, 4'000'000'000);
  const std::string plain = std::to_string(value);
  std::string grouped = GroupThousands(value);
  RC_ASSERT(grouped.size() == plain.size() + (plain.size() - 1) / 3);
  for (std::size_t fromRight = 3; fromRight < grouped.size(); fromRight += 4) {
    RC_ASSERT(grouped[grouped.size() - 1 - fromRight] == '.');
  }
  grouped.erase(std::remove(grouped.begin(), grouped.end(), '.'), grouped.end());
  RC_ASSERT(grouped == plain);
}

RC_GTEST_PROP(ParseDecimal, ReadsWhatWasWritten, ()) {
  const auto value = *rc::gen::inRange<std::int64_t>(0, 4'000'000'000);
  RC_ASSERT(ParseDecimal("  " + std::to_string(value) + "x") == value);
}

RC_GTEST_PROP(StripEdgeJunk, LeavesNoJunkAtTheEndsOfALongerText, ()) {
  const auto text = *rc::gen::arbitrary<std::string>();
  const std::string kept = StripEdgeJunk(text);
  RC_ASSERT(text.find(kept) != std::string::npos);
  const auto isJunk = [](char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 38 || code > 165;
  };
  if (kept.size() > 1) RC_ASSERT(!isJunk(kept.front()) && !isJunk(kept.back()));
  RC_ASSERT(StripEdgeJunk(kept) == kept);
}

// A count divided by a power of two is exact as a floating-point number, and so is its rounding by the
// processor's half-to-even rule.
RC_GTEST_PROP(SizeText, RoundsAsTheProcessorDoes, ()) {
  const auto count = *rc::gen::inRange<std::int64_t>(1025, 1LL << 31);
  const std::string text = SizeText(count);
  const double unit = count > 1073741824 ? 1073741824.0 : count > 1048576 ? 1048576.0 : 1024.0;
  const double hundredths = std::nearbyint(static_cast<double>(count) / unit * 100);
  RC_ASSERT(std::lround(std::stod(text) * 100) == std::lround(hundredths));
  const std::string number = text.substr(0, text.find(' '));
  RC_ASSERT(number.find('.') == std::string::npos || (number.back() != '0' && number.back() != '.'));
}

}  // namespace
