#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "interaction/edit_mode.h"
#include "interaction/search_fixture.h"
#include "interaction/write_back.h"

namespace {

using bwp::test::ReadFile;
using testing::Contains;
using testing::IsEmpty;

using SearchChangedFile = bwp::test::SearchFixture;

TEST_F(SearchChangedFile, StartsAnewInAnotherFile) {
  Open("ab.ab", "a");
  Type("ab");
  EXPECT_EQ(Find(), 0);
  Open("....ab", "b");
  EXPECT_EQ(Find(), 4);
}

TEST_F(SearchChangedFile, StartsAnewAfterTheFileWasReopened) {
  Open("ab.ab");
  Type("ab");
  EXPECT_EQ(Find(), 0);
  EXPECT_EQ(Find(), 3);
  ReopenViewFile(state);
  EXPECT_EQ(Find(), 0);
}

TEST_F(SearchChangedFile, ShowsAFileThatAnotherProgramCutShortAsItIsNow) {
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

TEST_F(SearchChangedFile, EndsTypingWhenTheFileWasCutShort) {
  Open(std::string(1000, '.'));
  Type("ab");
  folder.Write("a", "..");
  search.Run(state, services, fields, false);
  EXPECT_FALSE(state.FieldTyping);
  EXPECT_EQ(display.window.Dend, "2");
}

TEST_F(SearchChangedFile, GoesOnInWhatTheEditedPageNowHolds) {
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

TEST_F(SearchChangedFile, FindsNextWhatTheFileHoldsByThen) {
  EXPECT_TRUE(rc::check([this] {
    const auto letter = rc::gen::element('a', 'b');
    auto text = *rc::gen::nonEmpty(rc::gen::container<std::string>(letter));
    const auto term = *rc::gen::nonEmpty(rc::gen::resize(3, rc::gen::container<std::string>(letter)));
    Open(text);
    const auto block = *rc::gen::inRange<std::size_t>(1, 40);
    search = bwp::Search(static_cast<std::int64_t>(block));
    Type(term);
    std::int64_t last = Find();
    bool again = false;
    for (int call = 0; call < 12 && last >= 0; ++call) {
      const auto place = *rc::gen::inRange<std::size_t>(0, text.size());
      text[place] = text[place] == 'a' ? 'b' : 'a';
      Overwrite(state.OpenFile, place, text.substr(place, 1));
      const std::int64_t hit = Find();
      const std::size_t next = text.find(term, static_cast<std::size_t>(last) + 1);
      // A hit that ends with its block is reported once more, as long as it is still there.
      const std::size_t end = static_cast<std::size_t>(last) + term.size();
      again = !again && hit == last && end % block == 0 &&
              text.compare(end - term.size(), term.size(), term) == 0;
      RC_ASSERT(again || hit == (next == std::string::npos ? -1 : static_cast<std::int64_t>(next)));
      last = hit;
    }
  }));
}

}  // namespace
