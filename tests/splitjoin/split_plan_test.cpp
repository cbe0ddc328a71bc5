#include "splitjoin/split_plan.h"

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>

#include "viewer/number_text.h"

namespace {

using bwp::PartSizeForCount;
using bwp::RoundedQuotient;
using bwp::SplitPlan;
using bwp::ViewState;

// A view state with a file of that many bytes, all of it marked, as after opening it.
ViewState FileOf(std::int64_t size) {
  ViewState state;
  state.OpenFile = "/files/f.bin";
  state.FLen = size;
  state.MarkStart = 0;
  state.MarkEnd = size - 1;
  return state;
}

struct Planned {
  explicit Planned(std::int64_t size) : state(FileOf(size)), plan(state) { plan.init(); }
  ViewState state;
  SplitPlan plan;
};

TEST(SplitPlan, ShowsARestAsTheLastPart) {
  Planned p(1000);
  p.plan.EnterDecimalSize("300");
  EXPECT_EQ(p.plan.PartSize(), 300);
  EXPECT_EQ(p.plan.Fields().DChsize, "300");
  EXPECT_EQ(p.plan.Fields().HCHsize, "0000012C");
  EXPECT_EQ(p.plan.Fields().Dlast, "100");
  EXPECT_EQ(p.plan.Fields().Hlast, "00000064");
  EXPECT_EQ(p.plan.Fields().NChunk, "4");
  EXPECT_EQ(p.plan.Fields().UDCh, 4);
  EXPECT_EQ(p.plan.Fields().Sly, 300);
  EXPECT_EQ(p.plan.Title(), "Split and Join Tool - Filesize:  1000 - Verified: 1000");
}

TEST(SplitPlan, HasNoLastPartWhenTheDivisionIsExact) {
  Planned p(1000);
  p.plan.EnterDecimalSize("250");
  EXPECT_EQ(p.plan.Fields().Dlast, "0");
  EXPECT_EQ(p.plan.Fields().NChunk, "4");
  EXPECT_EQ(p.plan.Title(), "Split and Join Tool - Filesize:  1000 - Verified: 1000");
}

TEST(SplitPlan, BeginsWithThePartSizeOfTheMarkedChunk) {
  ViewState state = FileOf(1000);
  state.MarkStart = 100;
  state.MarkEnd = 349;
  SplitPlan plan(state);
  plan.init();
  EXPECT_EQ(plan.PartSize(), 250);
  EXPECT_EQ(plan.Fields().UDCh, 1);
  EXPECT_EQ(plan.Fields().minimum, 1);
  EXPECT_EQ(plan.Fields().maximum, 1000);
  plan.Agggraph();
  EXPECT_EQ(plan.Fields().NChunk, "4");
}

TEST(SplitPlan, CutsAChunkMarkedPastTheEndToTheFile) {
  ViewState state = FileOf(1000);
  state.MarkEnd = 5000;
  SplitPlan plan(state);
  plan.init();
  plan.Agggraph();
  EXPECT_EQ(plan.PartSize(), 1000);
  EXPECT_EQ(plan.Fields().NChunk, "1");
}

TEST(SplitPlan, StepsTheSliderByTheLargestPowerOfTwoBelowATwentiethOfTheFile) {
  EXPECT_EQ(Planned(0).plan.Fields().sliderStep, 0);
  EXPECT_EQ(Planned(20).plan.Fields().sliderStep, 0);
  EXPECT_EQ(Planned(21).plan.Fields().sliderStep, 1);
  EXPECT_EQ(Planned(40).plan.Fields().sliderStep, 1);
  EXPECT_EQ(Planned(41).plan.Fields().sliderStep, 2);
  EXPECT_EQ(Planned(1000).plan.Fields().sliderStep, 32);
  EXPECT_EQ(Planned(bwp::kMaxFileLength).plan.Fields().sliderStep, 67108864);
}

TEST(SplitPlan, FollowsTheSliderWhileItIsDraggedAndPlansWhenItIsLetGo) {
  Planned p(1000);
  p.plan.EnterDecimalSize("300");
  p.plan.DragSlider(400);
  EXPECT_EQ(p.plan.Fields().DChsize, "400");
  EXPECT_EQ(p.plan.Fields().HCHsize, "00000190");
  EXPECT_EQ(p.plan.Fields().NChunk, "4");
  EXPECT_EQ(p.plan.Fields().Dlast, "100");
  p.plan.ReleaseSlider(400);
  EXPECT_EQ(p.plan.Fields().NChunk, "3");
  EXPECT_EQ(p.plan.Fields().Dlast, "200");
}

TEST(SplitPlan, MakesThePartsOfTheUpDownOneByteLongerThanTheQuotient) {
  Planned p(100);
  p.plan.ChangeCount(4);
  EXPECT_EQ(p.plan.PartSize(), 26);
  EXPECT_EQ(p.plan.Fields().Dlast, "22");
  EXPECT_EQ(p.plan.Fields().NChunk, "4");
  p.plan.ChangeCount(1);
  EXPECT_EQ(p.plan.PartSize(), 100);
  EXPECT_EQ(p.plan.Fields().NChunk, "1");
}

TEST(SplitPlan, MovesTheCountByOneWithTheDownArrow) {
  Planned p(1000);
  p.plan.EnterCount("5");
  ASSERT_EQ(p.plan.Fields().UDCh, 5);
  p.plan.ClickCountDown(5);
  EXPECT_EQ(p.plan.PartSize(), 199) << "one byte less: the quotient was the part size already";
  EXPECT_EQ(p.plan.Fields().UDCh, 6);
  p.plan.ChangeCount(4);
  EXPECT_EQ(p.plan.Fields().NChunk, "4");
  EXPECT_EQ(p.plan.PartSize(), 251);
}

TEST(SplitPlan, CountsDownFromAPartSizeOfOne) {
  Planned p(1000);
  p.plan.EnterDecimalSize("1");
  ASSERT_EQ(p.plan.Fields().UDCh, 1000);
  p.plan.ClickCountDown(1000);
  EXPECT_EQ(p.plan.PartSize(), 0) << "one byte less than one";
  EXPECT_EQ(p.plan.Fields().NChunk, "1000") << "without a size the fields keep what they show";
  p.plan.ChangeCount(999);
  EXPECT_EQ(p.plan.PartSize(), 2);
  EXPECT_EQ(p.plan.Fields().NChunk, "500");
}

TEST(SplitPlan, RoundsTheDownArrowsQuotientToTheEvenNeighbour) {
  Planned p(10);
  p.plan.EnterDecimalSize("9");
  p.plan.ClickCountDown(4);
  EXPECT_EQ(p.plan.PartSize(), 2) << "2.5";
  p.plan.ClickCountDown(4);
  EXPECT_EQ(p.plan.PartSize(), 2) << "1.5, one less than 2.5, rounds to 2 again";
}

TEST(SplitPlan, TakesATypedCountBetweenOneAndTheFileSize) {
  Planned p(1000);
  p.plan.EnterCount("0");
  EXPECT_EQ(p.plan.Fields().NChunk, "1");
  p.plan.EnterCount("many");
  EXPECT_EQ(p.plan.Fields().NChunk, "1");
  p.plan.EnterCount("4");
  EXPECT_EQ(p.plan.PartSize(), 250);
  p.plan.EnterCount("3");
  EXPECT_EQ(p.plan.PartSize(), 334);
  EXPECT_EQ(p.plan.Fields().Dlast, "332");
  p.plan.EnterCount("99999");
  EXPECT_EQ(p.plan.PartSize(), 1);
  EXPECT_EQ(p.plan.Fields().NChunk, "1000");
}

TEST(SplitPlan, HoldsATypedDecimalSizeToTheFile) {
  Planned p(1000);
  p.plan.EnterDecimalSize("0");
  EXPECT_EQ(p.plan.PartSize(), 1);
  p.plan.EnterDecimalSize("text");
  EXPECT_EQ(p.plan.PartSize(), 1);
  p.plan.EnterDecimalSize("1001");
  EXPECT_EQ(p.plan.PartSize(), 1000);
  EXPECT_EQ(p.plan.Fields().DChsize, "1000");
}

TEST(SplitPlan, CarriesTypedDecimalsIntoTheHexadecimalTwinAndThePartSize) {
  Planned p(1000);
  p.plan.EnterDecimalSize("300");
  p.plan.TypeDecimalSize("30");
  EXPECT_EQ(p.plan.Fields().HCHsize, "0000001E");
  EXPECT_EQ(p.plan.PartSize(), 30);
  EXPECT_EQ(p.plan.Fields().NChunk, "4") << "the plan waits for Enter";
  p.plan.TypeDecimalSize("");
  EXPECT_EQ(p.plan.Fields().HCHsize, "00000000");
  EXPECT_FALSE(p.plan.CanSplit());
  p.plan.TypeDecimalSize("99999999999");
  EXPECT_EQ(p.plan.Fields().HCHsize, "7FFFFFFF");
}

TEST(SplitPlan, CarriesTypedHexadecimalsIntoTheDecimalTwinOnly) {
  Planned p(1000);
  p.plan.EnterDecimalSize("300");
  p.plan.TypeHexSize("1F");
  EXPECT_EQ(p.plan.Fields().DChsize, "31");
  EXPECT_EQ(p.plan.Fields().HCHsize, "1F");
  EXPECT_EQ(p.plan.PartSize(), 300);
  p.plan.TypeHexSize("1Fz");
  EXPECT_EQ(p.plan.Fields().DChsize, "31") << "no hexadecimal number";
}

TEST(SplitPlan, ReadsFourTypedHexadecimalDigitsAsASignedNumber) {
  Planned p(1000);
  p.plan.TypeHexSize("FFFF");
  EXPECT_EQ(p.plan.Fields().DChsize, "-1");
  EXPECT_EQ(p.plan.Fields().HCHsize, "FFFF");
  EXPECT_EQ(p.plan.PartSize(), 1000);
}

TEST(SplitPlan, HoldsATypedHexadecimalSizeToTheFile) {
  Planned p(1000);
  p.plan.EnterHexSize("12c");
  EXPECT_EQ(p.plan.PartSize(), 300);
  EXPECT_EQ(p.plan.Fields().HCHsize, "0000012C");
  p.plan.EnterHexSize("no number");
  EXPECT_EQ(p.plan.PartSize(), 1);
  p.plan.EnterHexSize("FFFF");
  EXPECT_EQ(p.plan.PartSize(), 1) << "four digits read as -1";
  p.plan.EnterHexSize("0FFFF");
  EXPECT_EQ(p.plan.PartSize(), 1000);
}

TEST(SplitPlan, OffersTheUsableCapacitiesOfMedia) {
  ASSERT_EQ(bwp::kSizePresets.size(), 6U);
  const std::pair<const char*, std::int64_t> expected[] = {
      {"Floppy 720K", 730112}, {"Floppy 1,44M", 1457664},   {"Zip 100M", 100431872},
      {"Zip 250M", 256901120}, {"ISO1 CD 650M", 676331520}, {"ISO1 CD 700M", 735051776}};
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_STREQ(bwp::kSizePresets[i].name, expected[i].first);
    EXPECT_EQ(bwp::kSizePresets[i].bytes, expected[i].second);
  }
}

TEST(SplitPlan, CutsAPresetLargerThanTheFileToIt) {
  Planned p(1'000'000);
  p.plan.ChoosePreset(0);
  EXPECT_EQ(p.plan.PartSize(), 730112);
  EXPECT_EQ(p.plan.Fields().NChunk, "2");
  p.plan.ChoosePreset(5);
  EXPECT_EQ(p.plan.PartSize(), 1'000'000);
  EXPECT_EQ(p.plan.Fields().NChunk, "1");
  p.plan.ChoosePreset(-1);
  EXPECT_EQ(p.plan.PartSize(), 1'000'000);
}

TEST(SplitPlan, RemembersAPresetWhileThePartSizeIsItsOwn) {
  Planned p(1'000'000);
  EXPECT_EQ(p.plan.Fields().Preset, -1);
  p.plan.ChoosePreset(0);
  EXPECT_EQ(p.plan.Fields().Preset, 0);
  p.plan.Agggraph();
  EXPECT_EQ(p.plan.Fields().Preset, 0);
  p.plan.EnterDecimalSize("730111");
  EXPECT_EQ(p.plan.Fields().Preset, -1);
  p.plan.ChoosePreset(5);
  EXPECT_EQ(p.plan.Fields().Preset, 5) << "the medium takes the whole file";
  p.plan.EnterCount("2");
  EXPECT_EQ(p.plan.Fields().Preset, -1);
  p.plan.ChoosePreset(0);
  p.plan.TypeHexSize("3E8");
  EXPECT_EQ(p.plan.Fields().Preset, 0) << "a part size only with Enter";
  p.plan.TypeDecimalSize("1000");
  EXPECT_EQ(p.plan.Fields().Preset, -1);
  p.plan.ChoosePreset(0);
  p.plan.DragSlider(1000);
  EXPECT_EQ(p.plan.Fields().Preset, -1);
  p.plan.ChoosePreset(5);
  p.plan.init();
  EXPECT_EQ(p.plan.Fields().Preset, -1);
}

TEST(SplitPlan, KeepsTheFieldsForAnEmptyFile) {
  Planned p(1000);
  p.plan.EnterDecimalSize("300");
  p.state.FLen = 0;
  p.plan.init();
  p.plan.Agggraph();
  EXPECT_EQ(p.plan.Fields().NChunk, "4");
  EXPECT_EQ(p.plan.Fields().DChsize, "300");
  EXPECT_EQ(p.plan.Fields().minimum, 0);
  EXPECT_FALSE(p.plan.CanSplit());
  EXPECT_EQ(p.plan.Title(), "Split and Join Tool - Filesize:  0 - Verified: 100");
  p.plan.EnterCount("3");
  p.plan.ChangeCount(0);
  p.plan.ClickCountDown(0);
  p.plan.EnterHexSize("3");
  EXPECT_EQ(p.plan.PartSize(), 0);
}

TEST(SplitPlan, FitsItsLimitsWhenAnotherFileWasOpened) {
  Planned p(1000);
  p.plan.Agggraph();
  p.state.FLen = 400;
  p.plan.Agggraph();
  EXPECT_EQ(p.plan.PartSize(), 400);
  EXPECT_EQ(p.plan.Fields().maximum, 400);
}

TEST(SplitPlan, CannotSplitWithoutAFile) {
  Planned p(1000);
  EXPECT_TRUE(p.plan.CanSplit());
  p.state.OpenFile.clear();
  EXPECT_FALSE(p.plan.CanSplit());
}

TEST(RoundedQuotient, GivesATieToTheEvenNeighbour) {
  EXPECT_EQ(RoundedQuotient(5, 2), 2);
  EXPECT_EQ(RoundedQuotient(7, 2), 4);
  EXPECT_EQ(RoundedQuotient(8, 3), 3);
  EXPECT_EQ(RoundedQuotient(7, 3), 2);
  EXPECT_EQ(RoundedQuotient(0, 9), 0);
}

RC_GTEST_PROP(RoundedQuotient, IsWhatFloatingPointRoundingGives, ()) {
  const auto dividend = *rc::gen::inRange<std::int64_t>(0, 2'147'483'648);
  const auto divisor = *rc::gen::inRange<std::int64_t>(1, 100'000);
  RC_ASSERT(RoundedQuotient(dividend, divisor) ==
            std::llrint(static_cast<double>(dividend) / static_cast<double>(divisor)));
}

// The rule applied one count at a time.
std::int64_t SizeByCounting(std::int64_t fileSize, std::int64_t count) {
  for (;;) {
    const std::int64_t size = std::llrint(static_cast<double>(fileSize) / static_cast<double>(count));
    if (size * count >= fileSize) return size;
    if (count < size) return size + 1;
    ++count;
  }
}

RC_GTEST_PROP(PartSizeForCount, IsWhatCountingOnOneByOneGives, ()) {
  const auto fileSize = *rc::gen::inRange<std::int64_t>(1, 50'000);
  const auto count = *rc::gen::inRange<std::int64_t>(1, fileSize + 1);
  RC_ASSERT(PartSizeForCount(fileSize, count) == SizeByCounting(fileSize, count));
}

TEST(PartSizeForCount, AnswersAtOnceForTheLongestFile) {
  EXPECT_EQ(PartSizeForCount(bwp::kMaxFileLength, 950'000'000), 2);
}

// One random way to set the part size.
void SetSomehow(SplitPlan& plan, std::int64_t fileSize) {
  const auto value = *rc::gen::inRange<std::int64_t>(0, fileSize * 2 + 10);
  const std::int64_t inRange = value % fileSize + 1;
  switch (*rc::gen::inRange(0, 8)) {
    case 0:
      return plan.ReleaseSlider(inRange);
    case 1:
      return plan.ChangeCount(inRange);
    case 2:
      return plan.EnterCount(std::to_string(value));
    case 3:
      return plan.EnterDecimalSize(std::to_string(value));
    case 4:
      return plan.EnterHexSize(funzioni::HexOffset(funzioni::MinOf({value, bwp::kMaxFileLength})));
    case 5:
      return plan.ChoosePreset(*rc::gen::inRange(0, 6));
    case 6:
      plan.ClickCountDown(inRange);
      return plan.ChangeCount(inRange);
    default:
      plan.DragSlider(inRange);
      return plan.Agggraph();
  }
}

RC_GTEST_PROP(SplitPlan, CoversTheFileExactlyHoweverItWasSet, ()) {
  const auto fileSize = *rc::gen::oneOf(rc::gen::inRange<std::int64_t>(1, 3000),
                                        rc::gen::inRange<std::int64_t>(1, bwp::kMaxFileLength));
  Planned p(fileSize);
  p.plan.Agggraph();
  for (int i = 0; i < 5; ++i) {
    SetSomehow(p.plan, fileSize);
    const std::int64_t size = p.plan.PartSize();
    const std::int64_t parts = p.plan.Fields().UDCh;
    RC_ASSERT(size >= 1);
    RC_ASSERT(size <= fileSize);
    const std::int64_t rest = fileSize % size;
    const std::int64_t last = rest == 0 ? size : rest;
    RC_ASSERT(last >= 1);
    RC_ASSERT(last <= size);
    RC_ASSERT((parts - 1) * size + last == fileSize);
    RC_ASSERT(p.plan.Fields().NChunk == std::to_string(parts));
    RC_ASSERT(p.plan.Fields().DChsize == std::to_string(size));
    RC_ASSERT(p.plan.Fields().HCHsize == funzioni::HexOffset(size));
    RC_ASSERT(p.plan.Fields().Dlast == std::to_string(rest));
    RC_ASSERT(p.plan.Fields().Hlast == funzioni::HexOffset(rest));
    RC_ASSERT(p.plan.Fields().Sly == size);
    const std::string text = std::to_string(fileSize);
    RC_ASSERT(p.plan.Title() == "Split and Join Tool - Filesize:  " + text + " - Verified: " + text);
  }
}

}  // namespace
