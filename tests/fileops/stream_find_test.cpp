#include "fileops/stream_find.h"

#include <algorithm>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "support/errors.h"
#include "support/recorders.h"
#include "viewer/code_page.h"

namespace {

using bwp::test::RecordedProgress;
using bwp::test::Transcript;
using FileSystem::Compare;
using testing::ElementsAre;
using testing::IsEmpty;

class TextSource : public FileSystem::ByteSource {
 public:
  explicit TextSource(std::string text) : text_(std::move(text)) {}

  std::size_t Read(void* bytes, std::size_t count) override {
    reads.push_back(count);
    const std::size_t got = std::min(count, text_.size() - position_);
    std::memcpy(bytes, text_.data() + position_, got);
    position_ += got;
    return got;
  }

  std::vector<std::size_t> reads;

 private:
  std::string text_;
  std::size_t position_ = 0;
};

class StreamFind : public testing::Test {
 protected:
  std::int64_t Find(TextSource& source, std::string_view pattern, std::int64_t count, bool restart,
                    std::int64_t block = 4, Compare compare = Compare::kBinary) {
    return FileSystem::StreamFind(progress, state, source, pattern, count, restart, compare, block);
  }

  Transcript said;
  RecordedProgress progress{said};
  FileSystem::SearchState state;
};

TEST_F(StreamFind, GivesTheOneBasedPosition) {
  TextSource source("abcdefgh");
  EXPECT_EQ(Find(source, "a", 8, true), 1);
  TextSource again("abcdefgh");
  EXPECT_EQ(Find(again, "gh", 8, true), 7);
}

TEST_F(StreamFind, MovesTheBarBeforeTheEventsOfEachBlock) {
  TextSource source("abcdefgh");
  Find(source, "f", 8, true, 3);
  EXPECT_THAT(said, ElementsAre("bar 37.5", "events", "bar 75", "events"));
}

TEST_F(StreamFind, ReadsEveryBlockOnceForAnAbsentPattern) {
  for (std::int64_t count = 1; count <= 20; ++count) {
    TextSource source(std::string(static_cast<std::size_t>(count), 'a'));
    EXPECT_EQ(Find(source, "b", count, true, 4), -1);
    EXPECT_EQ(static_cast<std::int64_t>(source.reads.size()), (count + 3) / 4) << count;
  }
}

TEST_F(StreamFind, ReadsHalfAMebibyteAtATime) {
  TextSource source(std::string(524'289, 'a'));
  EXPECT_EQ(FileSystem::StreamFind(progress, state, source, "b", 524'289, true, Compare::kBinary), -1);
  EXPECT_THAT(source.reads, ElementsAre(524'288, 1));
}

TEST_F(StreamFind, HoldsABlockAndThePatternTwiceAtMost) {
  const std::string pattern(1000, 'b');
  TextSource source(std::string(3'000'000, 'a'));
  Find(source, pattern, 3'000'000, true, FileSystem::kSearchBlock);
  EXPECT_LE(state.text.Capacity(), 2 * (524'288 + pattern.size()));
}

TEST_F(StreamFind, FindsAPatternThatStraddlesTwoBlocks) {
  TextSource source("abcdefgh");
  EXPECT_EQ(Find(source, "def", 8, true), 4);
}

TEST_F(StreamFind, FindsAPatternLongerThanABlock) {
  TextSource source("0123456789");
  EXPECT_EQ(Find(source, "234567", 10, true, 2), 3);
}

TEST_F(StreamFind, GoesOnBehindTheStartOfTheLastMatch) {
  TextSource source("aaab");
  EXPECT_EQ(Find(source, "aa", 4, true, 100), 1);
  EXPECT_EQ(Find(source, "aa", 4, false, 100), 2);
  EXPECT_EQ(Find(source, "aa", 4, false, 100), -1);
  EXPECT_EQ(source.reads.size(), 1U);
}

TEST_F(StreamFind, ReportsAMatchAtTheEndOfABlockTwice) {
  TextSource source("..ab....");
  EXPECT_EQ(Find(source, "ab", 8, true), 3);
  EXPECT_EQ(Find(source, "ab", 8, false), 3);
  EXPECT_EQ(Find(source, "ab", 8, false), -1);
}

TEST_F(StreamFind, MatchesBlanksInFrontOfTheStart) {
  TextSource one("abc");
  EXPECT_EQ(Find(one, " ", 3, true), 0);
  TextSource three("abc");
  EXPECT_EQ(Find(three, "   ", 3, true), -2);
  TextSource led("abc");
  EXPECT_EQ(Find(led, " ab", 3, true), 0);
}

TEST_F(StreamFind, ComparesBytesOrIgnoresCase) {
  TextSource binary("AB\xC4");
  EXPECT_EQ(Find(binary, "ab", 3, true), -1);
  TextSource text("xAB\xC4");
  EXPECT_EQ(Find(text, "ab\xE4", 4, true, 2, Compare::kIgnoreCase), 2);
}

TEST_F(StreamFind, SearchesTheCountedBytesOnly) {
  TextSource source("abcdefgh");
  EXPECT_EQ(Find(source, "f", 5, true), -1);
}

TEST_F(StreamFind, DoesNothingAfterCancel) {
  progress.PressCancel();
  TextSource source("abcdefgh");
  Find(source, "a", 8, true);
  EXPECT_THAT(source.reads, IsEmpty());
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(StreamFind, StopsAfterTheBlockInWhoseEventsCancelCame) {
  progress.CancelAtEvents(2);
  TextSource source(std::string(40, 'a'));
  Find(source, "b", 40, true);
  EXPECT_EQ(source.reads.size(), 2U);
  EXPECT_TRUE(progress.Aborted());
}

TEST_F(StreamFind, FailsToDivideByACountOfZero) {
  TextSource source("");
  EXPECT_EQ(bwp::test::ErrorNumberOf([&] { Find(source, "a", 0, true); }), bwp::kDivisionByZero);
}

// The search as it is told, word by word, on plain texts.
struct Model {
  std::string source;
  std::int64_t block;
  bool ignoreCase;
  std::string text = {};
  std::size_t position = 0;
  std::int64_t found = 0;
  std::int64_t consumed = 0;

  static std::string Folded(std::string bytes) {
    for (char& byte : bytes) byte = static_cast<char>(code_page::Fold(static_cast<std::uint8_t>(byte)));
    return bytes;
  }

  std::int64_t Find(const std::string& pattern, bool restart) {
    const auto count = static_cast<std::int64_t>(source.size());
    if (restart) {
      text = std::string(pattern.size(), ' ');
      found = consumed = 0;
      position = 0;
    }
    do {
      if (found == 0) {
        const std::int64_t step = std::min(block, count - consumed);
        const std::string tail = text.substr(text.size() - std::min(pattern.size(), text.size()));
        text = tail + source.substr(position, static_cast<std::size_t>(step));
        position += static_cast<std::size_t>(step);
        consumed += step;
      }
      const std::string held = ignoreCase ? Folded(text) : text;
      const std::size_t place =
          held.find(ignoreCase ? Folded(pattern) : pattern, static_cast<std::size_t>(found));
      found = place == std::string::npos ? 0 : static_cast<std::int64_t>(place) + 1;
    } while (found == 0 && consumed < count);
    if (consumed - found >= count) return -1;
    return found + consumed - static_cast<std::int64_t>(text.size());
  }
};

TEST_F(StreamFind, EqualsTheModelOverWholeSearches) {
  EXPECT_TRUE(rc::check([this] {
    const auto alphabet = *rc::gen::element<std::string>("a", "ab", " a", "aAbB", " aA");
    const auto letter = rc::gen::elementOf(alphabet);
    const auto text = *rc::gen::nonEmpty(rc::gen::container<std::string>(letter));
    const auto pattern = *rc::gen::nonEmpty(rc::gen::resize(4, rc::gen::container<std::string>(letter)));
    Model model{text, *rc::gen::inRange<std::int64_t>(1, 12), *rc::gen::arbitrary<bool>()};
    const auto count = static_cast<std::int64_t>(text.size());
    const Compare compare = model.ignoreCase ? Compare::kIgnoreCase : Compare::kBinary;
    TextSource source(text);
    bool restart = true;
    // Goes on after the end was reached, and now and then starts anew in the middle.
    for (int call = 0; call < 25; ++call) {
      if (restart) source = TextSource(text);
      const std::int64_t position = Find(source, pattern, count, restart, model.block, compare);
      RC_ASSERT(position == model.Find(pattern, restart));
      RC_ASSERT(state.found == model.found);
      RC_ASSERT(state.consumed == model.consumed);
      RC_ASSERT(state.text.View() == model.text);
      restart = *rc::gen::weightedElement<bool>({{8, false}, {1, true}});
    }
  }));
}

TEST_F(StreamFind, TakesAnotherPatternOnTheWay) {
  EXPECT_TRUE(rc::check([this] {
    const auto letter = rc::gen::element('a', 'b');
    const auto text = *rc::gen::nonEmpty(rc::gen::container<std::string>(letter));
    Model model{text, *rc::gen::inRange<std::int64_t>(1, 6), false};
    TextSource source(text);
    for (int call = 0; call < 10; ++call) {
      const auto pattern = *rc::gen::nonEmpty(rc::gen::resize(4, rc::gen::container<std::string>(letter)));
      const auto count = static_cast<std::int64_t>(text.size());
      RC_ASSERT(Find(source, pattern, count, call == 0, model.block) == model.Find(pattern, call == 0));
    }
  }));
}

}  // namespace
