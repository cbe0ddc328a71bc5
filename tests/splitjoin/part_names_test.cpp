#include "splitjoin/part_names.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/errors.h"

namespace {

using bwp::DeletionNames;
using bwp::JoinNames;
using bwp::PartNames;
using bwp::SplitNames;
using bwp::test::ErrorNumberOf;

void ExpectNames(const PartNames& names, const std::string& prefix, std::int64_t first,
                 const std::string& suffix) {
  EXPECT_EQ(names.prefix, prefix);
  EXPECT_EQ(names.first, first);
  EXPECT_EQ(names.suffix, suffix);
}

TEST(SplitNames, AppendANumberWhereThereIsNone) {
  ExpectNames(SplitNames("/tmp/part"), "/tmp/part.", 0, "");
  EXPECT_EQ(SplitNames("/tmp/part").Name(3), "/tmp/part.003");
  ExpectNames(SplitNames("/tmp/"), "/tmp/.", 0, "");
  ExpectNames(SplitNames(""), ".", 0, "");
}

TEST(SplitNames, NeverLookAtTheLastCharacter) {
  ExpectNames(SplitNames("part1"), "part1.", 0, "");
  ExpectNames(SplitNames("5"), "5.", 0, "");
}

TEST(SplitNames, KeepWhatStandsAroundTheNumber) {
  const PartNames names = SplitNames("vol000x.bin");
  EXPECT_EQ(names.Name(names.first), "vol000x.bin");
  EXPECT_EQ(names.Name(names.first + 1), "vol001x.bin");
  ExpectNames(SplitNames("a.007"), "a.", 7, "");
}

TEST(SplitNames, TakeThreeCharactersWhateverTheyAre) {
  const PartNames names = SplitNames("a5.bin");
  ExpectNames(names, "a", 5, "in");
  EXPECT_EQ(names.Name(5), "a005in");
  EXPECT_EQ(names.Name(6), "a006in");
  ExpectNames(SplitNames("a12b.bin"), "a", 12, ".bin");
  ExpectNames(SplitNames("a12345.bin"), "a", 123, "45.bin");
}

TEST(SplitNames, TakeADigitInAFoldersName) {
  ExpectNames(SplitNames("/home2/me/part000.bin"), "/home", 2, "e/part000.bin");
}

TEST(SplitNames, TakeWhatThereIsOfANumberThatEndsTheName) {
  ExpectNames(SplitNames("part12"), "part", 12, "");
  EXPECT_EQ(SplitNames("part12").Name(13), "part013");
}

TEST(DeletionNames, NeedANumber) {
  ExpectNames(DeletionNames("part000"), "part", 0, "");
  EXPECT_EQ(ErrorNumberOf([] { DeletionNames("part"); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { DeletionNames("part1"); }), 5);
}

TEST(JoinNames, LookAtTheLastCharacterToo) {
  ExpectNames(JoinNames("x.005"), "x.", 5, "");
  ExpectNames(JoinNames("part1"), "part", 1, "");
  EXPECT_EQ(JoinNames("part1").Name(2), "part002");
  EXPECT_EQ(ErrorNumberOf([] { JoinNames("part"); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { JoinNames(""); }), 5);
}

TEST(PartNames, HaveThreeDigitsAtMost) {
  const PartNames names{"p", 0, ".x"};
  EXPECT_EQ(names.Name(0), "p000.x");
  EXPECT_EQ(names.Name(42), "p042.x");
  EXPECT_EQ(names.Name(999), "p999.x");
  EXPECT_EQ(ErrorNumberOf([&names] { names.Name(1000); }), 5);
}

// Cuts at a position, reading one character at a time.
PartNames CutByReading(const std::string& path, std::size_t at) {
  std::int64_t number = 0;
  bool reading = true;
  for (std::size_t i = at; i < at + 3 && i < path.size(); ++i) {
    reading = reading && path[i] >= '0' && path[i] <= '9';
    if (reading) number = number * 10 + (path[i] - '0');
  }
  return {path.substr(0, at), number, path.size() > at + 3 ? path.substr(at + 3) : ""};
}

// The search for the number, one character at a time.
PartNames WalkedNames(std::string path) {
  std::size_t at = 0;
  while (at + 1 < path.size() && (path[at] < '0' || path[at] > '9')) ++at;
  if (at + 1 >= path.size()) {
    at = path.size() + 1;
    path += ".000";
  }
  return CutByReading(path, at);
}

std::string RandomName() {
  return *rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab./ 0123456789")));
}

void RequireSame(const PartNames& names, const PartNames& expected) {
  RC_ASSERT(names.prefix == expected.prefix);
  RC_ASSERT(names.first == expected.first);
  RC_ASSERT(names.suffix == expected.suffix);
}

// Writes the name digit by digit.
RC_GTEST_PROP(PartNames, PutTheirNumberBetweenPrefixAndSuffix, ()) {
  const PartNames names{RandomName(), 0, RandomName()};
  const auto number = *rc::gen::inRange(0, 1000);
  std::string expected = names.prefix;
  for (const int place : {100, 10, 1}) expected += static_cast<char>('0' + number / place % 10);
  RC_ASSERT(names.Name(number) == expected + names.suffix);
  const auto tooLong = *rc::gen::inRange<std::int64_t>(1000, 3'000'000'000);
  RC_ASSERT(ErrorNumberOf([&] { names.Name(tooLong); }) == 5);
}

RC_GTEST_PROP(DeletionNames, AreThoseOfTheSplitWhereThereIsANumber, ()) {
  const std::string path = RandomName();
  std::size_t at = 0;
  while (at < path.size() && (path[at] < '0' || path[at] > '9')) ++at;
  if (at + 1 < path.size()) {
    RequireSame(DeletionNames(path), CutByReading(path, at));
  } else {
    RC_ASSERT(ErrorNumberOf([&] { DeletionNames(path); }) == 5);
  }
}

RC_GTEST_PROP(JoinNames, BeginAtTheFirstDigitAnywhere, ()) {
  const std::string name = RandomName();
  std::size_t at = 0;
  while (at < name.size() && (name[at] < '0' || name[at] > '9')) ++at;
  if (at < name.size()) {
    RequireSame(JoinNames(name), CutByReading(name, at));
  } else {
    RC_ASSERT(ErrorNumberOf([&] { JoinNames(name); }) == 5);
  }
}

RC_GTEST_PROP(SplitNames, AreWhatTheWalkFinds, ()) {
  const std::string path = RandomName();
  RequireSame(SplitNames(path), WalkedNames(path));
}

}  // namespace
