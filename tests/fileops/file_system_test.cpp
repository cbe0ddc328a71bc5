#include "fileops/file_system.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "support/errors.h"
#include "support/recorders.h"
#include "support/temp_folder.h"

namespace {

using bwp::test::ErrorNumberOf;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::RecordedProgress;
using bwp::test::TempFolder;
using bwp::test::Transcript;
using FileSystem::ReadStream;
using FileSystem::WriteStream;
using testing::ElementsAre;
using testing::IsEmpty;

class StepsTest : public testing::Test {
 protected:
  std::string Copied(const std::string& bytes, std::int64_t count, std::int64_t block) {
    ReadStream source(folder.Write("source", bytes));
    WriteStream destination(disk, folder / "destination");
    FileSystem::StreamCopy(progress, source, destination, count, block);
    destination.Close();
    return ReadFile(folder / "destination");
  }

  TempFolder folder;
  bwp::Disk disk;
  Transcript said;
  RecordedProgress progress{said};
  std::string text;
};

class StreamCopy : public StepsTest {};
class StreamSkip : public StepsTest {};
class StreamReadText : public StepsTest {};
class StreamWriteText : public StepsTest {};
class FileRangeCopy : public StepsTest {};

TEST_F(StreamCopy, LetsEventsRunFirstAndAfterTheBarOfEveryStep) {
  EXPECT_EQ(Copied("01234567", 8, 3), "01234567");
  EXPECT_THAT(said, ElementsAre("events", "bar 37.5", "events", "bar 75", "events", "bar 100", "events"));
}

TEST_F(StreamCopy, MovesAMebibyteInOneStepAndOneByteMoreInTwo) {
  const std::string bytes = PatternBytes(1'048'577);
  EXPECT_EQ(Copied(bytes, 1'048'576, FileSystem::kCopyBlock), bytes.substr(0, 1'048'576));
  EXPECT_THAT(said, ElementsAre("events", "bar 100", "events"));
  said.clear();
  EXPECT_EQ(Copied(bytes, 1'048'577, FileSystem::kCopyBlock), bytes);
  EXPECT_THAT(said, ElementsAre("events", "bar 99.9999", "events", "bar 100", "events"));
}

TEST_F(StreamCopy, MovesLessThanABlockInOneStep) {
  EXPECT_EQ(Copied("01234567", 3, 8), "012");
  EXPECT_THAT(said, ElementsAre("events", "bar 100", "events"));
}

TEST_F(StreamCopy, GivesTheBarUnroundedSinglePrecision) {
  float bar = 0;
  class Bar : public RecordedProgress {
   public:
    Bar(Transcript& transcript, float& value) : RecordedProgress(transcript), value_(value) {}
    void SetBar(float percent) override {
      if (value_ == 0) value_ = percent;
    }

   private:
    float& value_;
  } thirds(said, bar);
  ReadStream source(folder.Write("source", "012"));
  WriteStream destination(disk, folder / "destination");
  FileSystem::StreamCopy(thirds, source, destination, 3, 1);
  EXPECT_EQ(bar, static_cast<float>(100.0 / 3.0));
}

TEST_F(StreamCopy, DoesNothingAfterCancel) {
  progress.PressCancel();
  EXPECT_EQ(Copied("01234567", 8, 3), "");
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(StreamCopy, TakesOneStepWhenCancelComesWithTheFirstEvents) {
  progress.CancelAtEvents(1);
  EXPECT_EQ(Copied("01234567", 8, 3), "012");
  EXPECT_THAT(said, ElementsAre("events", "bar 37.5", "events"));
  EXPECT_TRUE(progress.Aborted()) << "the flag is not cleared here";
}

TEST_F(StreamCopy, StopsAfterTheStepInWhoseEventsCancelCame) {
  progress.CancelAtEvents(3);
  EXPECT_EQ(Copied("01234567", 8, 3), "012345");
  EXPECT_THAT(said, ElementsAre("events", "bar 37.5", "events", "bar 75", "events"));
}

TEST_F(StreamCopy, FailsToDivideByACountOfZeroAfterOneStep) {
  EXPECT_EQ(ErrorNumberOf([&] { Copied("01234567", 0, 3); }), bwp::kDivisionByZero);
  EXPECT_THAT(said, ElementsAre("events"));
}

TEST_F(StreamCopy, RefusesANegativeCount) {
  EXPECT_EQ(ErrorNumberOf([&] { Copied("01234567", -1, 3); }), bwp::kInvalidProcedureCall);
}

TEST_F(StreamCopy, FailsWhenTheSourceHoldsFewerBytesThanPromised) {
  EXPECT_EQ(ErrorNumberOf([&] { Copied("01234567", 9, 4); }), bwp::kInputPastEnd);
  EXPECT_THAT(said, ElementsAre("events", "bar 44.4444", "events", "bar 88.8889", "events"));
}

TEST_F(StreamCopy, CopiesFromWhereTheSourceStands) {
  EXPECT_TRUE(rc::check([this] {
    const auto bytes = *rc::gen::container<std::string>(rc::gen::arbitrary<char>());
    RC_PRE(!bytes.empty());
    const auto start = *rc::gen::inRange<std::size_t>(0, bytes.size());
    const auto count = *rc::gen::inRange<std::size_t>(1, bytes.size() - start + 1);
    const auto block = *rc::gen::inRange<std::int64_t>(1, 9);
    ReadStream source(folder.Write("source", bytes));
    source.Skip(static_cast<std::int64_t>(start));
    WriteStream destination(disk, folder / "destination");
    FileSystem::StreamCopy(progress, source, destination, static_cast<std::int64_t>(count), block);
    RC_ASSERT(ReadFile(folder / "destination") == bytes.substr(start, count));
  }));
}

TEST_F(StreamSkip, MovesTheBarStepByStep) {
  ReadStream stream(folder.Write("a", "0123456789"));
  FileSystem::StreamSkip(progress, stream, 8, 5);
  EXPECT_THAT(said, ElementsAre("bar 62.5", "events", "bar 100", "events"));
  char next = 0;
  stream.ReadAll(&next, 1);
  EXPECT_EQ(next, '8');
}

TEST_F(StreamSkip, LeavesTheBarAloneForNothing) {
  ReadStream stream(folder.Write("a", "0123456789"));
  FileSystem::StreamSkip(progress, stream, 0);
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(StreamSkip, DoesNothingAfterCancel) {
  ReadStream stream(folder.Write("a", "0123456789"));
  progress.PressCancel();
  FileSystem::StreamSkip(progress, stream, 5);
  EXPECT_THAT(said, IsEmpty());
  char next = 0;
  stream.ReadAll(&next, 1);
  EXPECT_EQ(next, '0');
}

TEST_F(StreamSkip, StopsAtCancel) {
  ReadStream stream(folder.Write("a", "0123456789"));
  progress.CancelAtEvents(2);
  FileSystem::StreamSkip(progress, stream, 9, 2);
  char next = 0;
  stream.ReadAll(&next, 1);
  EXPECT_EQ(next, '4');
}

TEST_F(StreamReadText, ReplacesTheText) {
  text = "what was there";
  ReadStream stream(folder.Write("a", "0123456789"));
  EXPECT_EQ(&FileSystem::StreamReadText(progress, stream, text, 8, 3), &text);
  EXPECT_EQ(text, "01234567");
  EXPECT_THAT(said, ElementsAre("bar 37.5", "events", "bar 75", "events", "bar 100", "events"));
}

TEST_F(StreamReadText, LeavesTheTextAloneAfterCancel) {
  text = "what was there";
  progress.PressCancel();
  ReadStream stream(folder.Write("a", "0123456789"));
  FileSystem::StreamReadText(progress, stream, text, 8, 3);
  EXPECT_EQ(text, "what was there");
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(StreamReadText, KeepsWhatWasReadBeforeCancel) {
  ReadStream stream(folder.Write("a", "0123456789"));
  progress.CancelAtEvents(2);
  FileSystem::StreamReadText(progress, stream, text, 8, 3);
  EXPECT_EQ(text, "012345");
}

TEST_F(StreamReadText, HoldsTheBytesOnce) {
  const std::string bytes = PatternBytes(3'000'000);
  text.reserve(100'000);
  ReadStream stream(folder.Write("a", bytes));
  const char* place = nullptr;
  bool moved = false;
  progress.onEvents = [&] {
    if (place != nullptr && place != text.data()) moved = true;
    place = text.data();
  };
  FileSystem::StreamReadText(progress, stream, text, 3'000'000);
  EXPECT_EQ(text, bytes);
  EXPECT_FALSE(moved);
  EXPECT_EQ(text.capacity(), 3'000'000U);
}

TEST_F(StreamReadText, FailsToDivideByACountOfZero) {
  text = "what was there";
  ReadStream stream(folder.Write("a", "0123456789"));
  EXPECT_EQ(ErrorNumberOf([&] { FileSystem::StreamReadText(progress, stream, text, 0); }),
            bwp::kDivisionByZero);
  EXPECT_EQ(text, "");
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(StreamReadText, FailsWhenTheStreamHoldsFewerBytesThanPromised) {
  ReadStream stream(folder.Write("a", "0123456789"));
  EXPECT_EQ(ErrorNumberOf([&] { FileSystem::StreamReadText(progress, stream, text, 11); }),
            bwp::kInputPastEnd);
}

TEST_F(StreamReadText, FailsWhenThereIsNotThatMuchMemory) {
  ReadStream stream(folder.Write("a", "0123456789"));
  EXPECT_EQ(ErrorNumberOf([&] { FileSystem::StreamReadText(progress, stream, text, INT64_MAX); }),
            bwp::kOutOfMemory);
}

TEST_F(StreamWriteText, WritesStepByStep) {
  WriteStream stream(disk, folder / "a");
  FileSystem::StreamWriteText(progress, stream, "01234567", 3);
  EXPECT_EQ(ReadFile(folder / "a"), "01234567");
  EXPECT_THAT(said, ElementsAre("bar 37.5", "events", "bar 75", "events", "bar 100", "events"));
}

TEST_F(StreamWriteText, DoesNothingAfterCancel) {
  progress.PressCancel();
  WriteStream stream(disk, folder / "a");
  FileSystem::StreamWriteText(progress, stream, "01234567", 3);
  EXPECT_EQ(ReadFile(folder / "a"), "");
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(StreamWriteText, StopsAtCancel) {
  progress.CancelAtEvents(1);
  WriteStream stream(disk, folder / "a");
  FileSystem::StreamWriteText(progress, stream, "01234567", 3);
  EXPECT_EQ(ReadFile(folder / "a"), "012");
}

TEST_F(StreamWriteText, FailsToDivideByAnEmptyText) {
  WriteStream stream(disk, folder / "a");
  EXPECT_EQ(ErrorNumberOf([&] { FileSystem::StreamWriteText(progress, stream, ""); }), bwp::kDivisionByZero);
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(FileRangeCopy, TakesTheWholeFileUnlessToldOtherwise) {
  folder.Write("a", "01234567");
  folder.Write("b", "an older and longer content");
  progress.SetLabel("Saving");
  said.clear();
  FileSystem::FileRangeCopy(progress, disk, folder / "a", folder / "b");
  EXPECT_EQ(ReadFile(folder / "b"), "01234567");
  EXPECT_THAT(said, ElementsAre("label Saving, seeking start at  0", "label Saving, seeking start at  0",
                                "events", "bar 100", "events"));
}

TEST_F(FileRangeCopy, RunsTheBarTwiceAndLeavesTheSoughtPlaceInTheLabel) {
  folder.Write("a", "0123456789");
  progress.SetLabel("Saving");
  said.clear();
  FileSystem::FileRangeCopy(progress, disk, folder / "a", folder / "b", 5, 4, 3);
  EXPECT_EQ(ReadFile(folder / "b"), "4567");
  EXPECT_THAT(said, ElementsAre("label Saving, seeking start at  4", "bar 75", "events", "bar 100", "events",
                                "label Saving, seeking start at  4", "events", "bar 75", "events", "bar 100",
                                "events"));
  EXPECT_EQ(progress.Label(), "Saving, seeking start at  4");
}

TEST_F(FileRangeCopy, CopiesToTheEndFromAStart) {
  folder.Write("a", "0123456789");
  FileSystem::FileRangeCopy(progress, disk, folder / "a", folder / "b", 8);
  EXPECT_EQ(ReadFile(folder / "b"), "789");
}

TEST_F(FileRangeCopy, TouchesNothingAfterCancel) {
  progress.PressCancel();
  FileSystem::FileRangeCopy(progress, disk, folder / "a", folder / "b");
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(FileRangeCopy, CopiesOneMoreBlockWhenCancelComesDuringTheSkip) {
  folder.Write("a", "0123456789");
  progress.CancelAtEvents(1);
  FileSystem::FileRangeCopy(progress, disk, folder / "a", folder / "b", 7, 4, 3);
  EXPECT_EQ(ReadFile(folder / "b"), "345");
  EXPECT_THAT(said, ElementsAre("label , seeking start at  6", "bar 50", "events",
                                "label , seeking start at  6", "events", "bar 75", "events"));
}

TEST_F(FileRangeCopy, LeavesTheDestinationShortAfterCancel) {
  folder.Write("a", "0123456789");
  progress.CancelAtEvents(3);
  FileSystem::FileRangeCopy(progress, disk, folder / "a", folder / "b", 1, 10, 3);
  EXPECT_EQ(ReadFile(folder / "b"), "012345");
}

TEST_F(FileRangeCopy, FailsOnAMissingSourceBeforeTheDestinationIsMade) {
  EXPECT_EQ(ErrorNumberOf([&] { FileSystem::FileRangeCopy(progress, disk, folder / "a", folder / "b"); }),
            bwp::kFileNotFound);
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST_F(FileRangeCopy, FailsWhenThereIsLessThanTheCount) {
  folder.Write("a", "0123456789");
  EXPECT_EQ(
      ErrorNumberOf([&] { FileSystem::FileRangeCopy(progress, disk, folder / "a", folder / "b", 5, 7); }),
      bwp::kInputPastEnd);
}

}  // namespace
