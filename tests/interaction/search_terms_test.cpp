#include "interaction/search_terms.h"

#include <gtest/gtest.h>

namespace {

using bwp::SearchFields;
using bwp::SearchTerm;

SearchFields FromAtext(const std::string& text) {
  SearchFields fields{text, "stale", "stale"};
  MirrorAtext(fields);
  return fields;
}

SearchFields FromHtext(const std::string& text) {
  SearchFields fields{"stale", text, "stale"};
  MirrorHtext(fields);
  return fields;
}

SearchFields FromDtext(const std::string& text) {
  SearchFields fields{"stale", "stale", text};
  MirrorDtext(fields);
  return fields;
}

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += static_cast<char>(value);
  return bytes;
}

TEST(MirrorAtext, ShowsEachCharactersByteFollowedByABlank) {
  EXPECT_EQ(FromAtext("AB").Htext, "41 42 ");
  EXPECT_EQ(FromAtext("AB").Dtext, "65 66 ");
  EXPECT_EQ(FromAtext("AB").Atext, "AB");
  EXPECT_EQ(FromAtext("\t\xFF").Htext, "09 FF ");
  EXPECT_EQ(FromAtext("\t\xFF").Dtext, "9 255 ");
}

TEST(MirrorAtext, EmptiesTheMirrorsOfAnEmptyField) {
  EXPECT_EQ(FromAtext("").Htext, "");
  EXPECT_EQ(FromAtext("").Dtext, "");
}

TEST(MirrorHtext, ShowsCharactersAndDecimals) {
  EXPECT_EQ(FromHtext("41 42").Atext, "AB");
  EXPECT_EQ(FromHtext("41 42").Dtext, "65 66 ");
  EXPECT_EQ(FromHtext("41 42").Htext, "41 42") << "what is typed stays as it was typed";
  EXPECT_EQ(FromHtext("  a   fF ").Atext, "\n\xFF");
}

TEST(MirrorHtext, SkipsWhatIsNoNumber) {
  EXPECT_EQ(FromHtext("41 zz 4G 0x42 42").Atext, "AB");
  EXPECT_EQ(FromHtext("!").Atext, "");
  EXPECT_EQ(FromHtext("").Dtext, "");
}

TEST(MirrorHtext, CleansTheEndsOfTheFieldAndOfEachPiece) {
  EXPECT_EQ(FromHtext("\"41 42\"").Atext, "AB");
  EXPECT_EQ(FromHtext("41 #42# 43").Atext, "ABC");
}

TEST(MirrorHtext, TakesWhatIsTooLargeFor255) {
  for (const char* const large :
       {"100", "7FFF", "8000", "FFFF", "0FFFF", "80000000", "FFFFFFFF", "123456789ABC"}) {
    EXPECT_EQ(FromHtext(large).Dtext, "255 ") << large;
  }
  EXPECT_EQ(FromHtext("00FF").Dtext, "255 ");
  EXPECT_EQ(FromHtext("000000FE").Dtext, "254 ");
}

TEST(MirrorDtext, ShowsCharactersAndHexadecimals) {
  EXPECT_EQ(FromDtext("65 66").Atext, "AB");
  EXPECT_EQ(FromDtext("65 66").Htext, "41 42 ");
  EXPECT_EQ(FromDtext(" 10  0").Htext, "0A 00 ");
}

TEST(MirrorDtext, SkipsWhatIsNoNumber) {
  EXPECT_EQ(FromDtext("65 FF x 1A -1 66").Atext, "AB");
  EXPECT_EQ(FromDtext("").Htext, "");
}

TEST(MirrorDtext, TakesWhatIsTooLargeFor255) {
  EXPECT_EQ(FromDtext("256 300 99999999999999999999").Htext, "FF FF FF ");
}

TEST(MirrorDtext, CleansTheEndsOfEachPiece) {
  EXPECT_EQ(FromDtext("65 $66$ 67").Atext, "ABC");
}

TEST(SearchTerm, TakesABytePerPiece) {
  EXPECT_EQ(SearchTerm("65 66 "), "AB");
  EXPECT_EQ(SearchTerm("  65   66  "), "AB");
  EXPECT_EQ(SearchTerm("7"), "\a");
}

TEST(SearchTerm, CapsAt255) {
  EXPECT_EQ(SearchTerm("300 1"), Bytes({255, 1}));
}

TEST(SearchTerm, ReadsDigitsUpToTheFirstOtherCharacter) {
  EXPECT_EQ(SearchTerm("65x x65 -3"), Bytes({65, 0, 0}));
}

TEST(SearchTerm, IsEmptyWithoutPieces) {
  EXPECT_EQ(SearchTerm(""), "");
  EXPECT_EQ(SearchTerm("    "), "");
}

}  // namespace
