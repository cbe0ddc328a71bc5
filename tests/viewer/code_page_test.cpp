#include "viewer/code_page.h"

#include <gtest/gtest.h>

namespace {

TEST(CodePage, EveryByteIsACharacterAndBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto value = static_cast<std::uint8_t>(byte);
    EXPECT_EQ(code_page::FromUnicode(static_cast<char32_t>(code_page::ToUnicode(value))), value) << byte;
  }
}

TEST(CodePage, KnowsTheCharactersOfWindows1252) {
  EXPECT_EQ(code_page::ToUnicode(std::uint8_t{0x41}), u'A');
  EXPECT_EQ(code_page::ToUnicode(std::uint8_t{0x80}), u'\u20AC');
  EXPECT_EQ(code_page::ToUnicode(std::uint8_t{0x99}), u'\u2122');
  EXPECT_EQ(code_page::ToUnicode(std::uint8_t{0x9F}), u'\u0178');
  EXPECT_EQ(code_page::ToUnicode(std::uint8_t{0xA0}), u'\u00A0');
  EXPECT_EQ(code_page::ToUnicode(std::uint8_t{0xFF}), u'\u00FF');
}

TEST(CodePage, TheFiveUnassignedBytesAreTheControlsOfTheSameNumber) {
  for (const int byte : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
    EXPECT_EQ(code_page::ToUnicode(static_cast<std::uint8_t>(byte)), static_cast<char16_t>(byte));
  }
}

TEST(CodePage, ACharacterWithoutAByteIsAQuestionMark) {
  EXPECT_EQ(code_page::FromUnicode(char32_t{0x80}), '?');
  EXPECT_EQ(code_page::FromUnicode(char32_t{0x100}), '?');
  EXPECT_EQ(code_page::FromUnicode(char32_t{0x1F600}), '?');
}

TEST(CodePage, ASurrogatePairIsOneCharacter) {
  EXPECT_EQ(code_page::FromUnicode(std::u16string_view(u"a\U0001F600b\u20AC")), "a?b\x80");
  EXPECT_EQ(code_page::FromUnicode(std::u16string_view(u"\xD83D")), "?");
}

TEST(CodePage, Utf8HasOneTwoOrThreeBytesACharacter) {
  EXPECT_EQ(code_page::ToUtf8("aZ~"), "aZ~");
  EXPECT_EQ(code_page::ToUtf8("\x80\xE9\x9F"), "\xE2\x82\xAC\xC3\xA9\xC5\xB8");
  EXPECT_EQ(code_page::ToUtf8(std::string_view("\0\x81", 2)), std::string("\0\xC2\x81", 3));
}

TEST(CodePage, TextsKeepEveryCharacter) {
  EXPECT_EQ(code_page::ToUnicode(std::string_view("A\x80\0z", 4)), std::u16string(u"A\u20AC\0z", 4));
  EXPECT_EQ(code_page::ToUnicode(std::string_view()), u"");
}

TEST(Fold, LowersExactlyTheLetters) {
  int changed = 0;
  for (int byte = 0; byte < 256; ++byte)
    changed += code_page::Fold(static_cast<std::uint8_t>(byte)) != byte ? 1 : 0;
  EXPECT_EQ(changed, 26 + 30 + 4);
  EXPECT_EQ(code_page::Fold('A'), 'a');
  EXPECT_EQ(code_page::Fold('Z'), 'z');
  EXPECT_EQ(code_page::Fold('@'), '@');
  EXPECT_EQ(code_page::Fold('['), '[');
  EXPECT_EQ(code_page::Fold(0xC0), 0xE0);
  EXPECT_EQ(code_page::Fold(0xDE), 0xFE);
  EXPECT_EQ(code_page::Fold(0xD7), 0xD7);  // the multiplication sign
  EXPECT_EQ(code_page::Fold(0xDF), 0xDF);  // sharp s
  EXPECT_EQ(code_page::Fold(0x8A), 0x9A);
  EXPECT_EQ(code_page::Fold(0x8C), 0x9C);
  EXPECT_EQ(code_page::Fold(0x8E), 0x9E);
  EXPECT_EQ(code_page::Fold(0x9F), 0xFF);
}

TEST(Upper, IsTheOtherWayRoundOfFold) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto value = static_cast<std::uint8_t>(byte);
    EXPECT_EQ(code_page::Fold(code_page::Upper(value)), code_page::Fold(value)) << byte;
    if (code_page::Fold(value) != value) {
      EXPECT_EQ(code_page::Upper(code_page::Fold(value)), value) << byte;
    }
  }
  EXPECT_EQ(code_page::Upper('a'), 'A');
  EXPECT_EQ(code_page::Upper(0xF7), 0xF7);  // the division sign
}

}  // namespace
