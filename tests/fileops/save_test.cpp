#include "fileops/save.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fileops/file_system.h"
#include "support/errors.h"
#include "support/workplace.h"

namespace {

using bwp::SaveAsTask;
using bwp::SaveChunkTask;
using bwp::SaveOntoListedFile;
using bwp::SaveTask;
using bwp::SaveUnderTypedName;
using bwp::test::ErrorOf;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::Transcript;
using bwp::test::Workplace;

constexpr auto kBlock = static_cast<std::size_t>(FileSystem::kCopyBlock);

struct SavePlace : Workplace {
  explicit SavePlace(std::string_view bytes) : Workplace(bytes) { state.LastFolder = folder.Path(); }
  void SaveAs(const std::string& name) { SaveUnderTypedName(state, services, SaveAsTask(state), name); }
  void SaveMarked(const std::string& name) {
    SaveUnderTypedName(state, services, SaveChunkTask(state), name);
  }
};

TEST(Save, AsSavesTheWholeFileAndShowsTheCopy) {
  SavePlace place("0123456789");
  place.Mark(3, 5);
  place.SaveAs("copy");
  EXPECT_EQ(place.Story(), (Transcript{"caption Saving to file ", "label Saving from  0 to  9", "show",
                                       "events", "label Saving from  0 to  9, seeking start at  0",
                                       "label Saving from  0 to  9, seeking start at  0", "events", "bar 100",
                                       "events", "hide", "clear abort", "refresh"}));
  EXPECT_EQ(ReadFile(place.folder / "copy"), "0123456789");
  EXPECT_EQ(place.state.OpenFile, place.folder / "copy");
  EXPECT_EQ(place.state.MarkStart, 3);
  EXPECT_EQ(place.state.MarkEnd, 5);
  EXPECT_EQ(place.folder.Names(), (std::vector<std::string>{"copy", "data"}));
  EXPECT_EQ(place.temporary.Names(), std::vector<std::string>{});
}

TEST(Save, ChunkSavesTheMarkedBytesAndKeepsTheFileOpen) {
  SavePlace place("0123456789");
  place.Mark(3, 5);
  const std::string open = place.state.OpenFile;
  place.SaveMarked("part");
  EXPECT_EQ(place.Story(), (Transcript{"caption Saving to file ", "label Saving from  3 to  5", "show",
                                       "events", "label Saving from  3 to  5, seeking start at  3", "bar 100",
                                       "events", "label Saving from  3 to  5, seeking start at  3", "events",
                                       "bar 100", "events", "hide", "clear abort", "refresh"}));
  EXPECT_EQ(ReadFile(place.folder / "part"), "345");
  EXPECT_EQ(place.state.OpenFile, open);
}

TEST(Save, ChunkOfOneByteSavesThatByte) {
  SavePlace place("0123456789");
  place.Mark(9, 9);
  place.SaveMarked("part");
  EXPECT_EQ(ReadFile(place.folder / "part"), "9");
}

TEST(Save, TasksNameTheirRangeInTheCaption) {
  SavePlace place("0123456789");
  place.Mark(3, 5);
  EXPECT_EQ(SaveChunkTask(place.state).caption, "Save Chunk from  3 to  5");
  EXPECT_EQ(SaveAsTask(place.state).caption, "Save File as..");
  EXPECT_EQ(SaveAsTask(place.state).to, 9);
}

TEST(Save, KeepsTheRangeThatItWasShownFor) {
  SavePlace place("0123456789");
  place.Mark(3, 5);
  const SaveTask task = SaveChunkTask(place.state);
  place.Mark(0, 0);
  SaveUnderTypedName(place.state, place.services, task, "part");
  EXPECT_EQ(ReadFile(place.folder / "part"), "345");
}

TEST(Save, UnderATypedNameAsksInItsOwnWords) {
  SavePlace place("0123456789");
  place.folder.Write("copy", "old and longer than the new");
  place.SaveAs("copy");
  EXPECT_EQ(place.Story().front(), "ask File  'copy'  exist, do you want to overwrite ?");
  EXPECT_EQ(ReadFile(place.folder / "copy"), "0123456789");
}

TEST(Save, OntoAListedFileAsksInOtherWords) {
  SavePlace place("0123456789");
  place.folder.Write("copy", "old");
  SaveOntoListedFile(place.state, place.services, SaveAsTask(place.state), "copy");
  EXPECT_EQ(place.Story().front(), "ask File copy exist, do you want to overwrite");
  EXPECT_EQ(ReadFile(place.folder / "copy"), "0123456789");
  EXPECT_EQ(place.state.OpenFile, place.folder / "copy");
}

TEST(Save, RefusedByTheAnswerChangesNothing) {
  SavePlace place("0123456789");
  place.folder.Write("copy", "old");
  place.notices.answer = false;
  place.SaveAs("copy");
  EXPECT_EQ(place.Story(), Transcript{"ask File  'copy'  exist, do you want to overwrite ?"});
  EXPECT_EQ(ReadFile(place.folder / "copy"), "old");
}

TEST(Save, CancelledAtAnyMomentLeavesAShortFileAndTheOldOneOpen) {
  const std::string bytes = PatternBytes(3 * kBlock + 5);
  for (int round = 1;; ++round) {
    SavePlace place(bytes);
    const std::string open = place.state.OpenFile;
    place.progress.CancelAtEvents(round);
    place.SaveAs("copy");
    const bool cancelled = place.progress.EventRounds() >= round;
    const Transcript story = place.Story();
    EXPECT_EQ(Transcript(story.end() - 3, story.end()), (Transcript{"hide", "clear abort", "refresh"}));
    EXPECT_FALSE(place.progress.Aborted());
    EXPECT_EQ(ReadFile(open), bytes);
    // A cancel at the very last events finds all of it written.
    if (!cancelled) {
      EXPECT_EQ(place.state.OpenFile, place.folder / "copy");
      EXPECT_EQ(round, 7);
      break;
    }
    EXPECT_EQ(place.state.OpenFile, open);
    if (round == 1) {
      EXPECT_FALSE(std::filesystem::exists(place.folder / "copy"));
    } else {
      const std::string copy = ReadFile(place.folder / "copy");
      EXPECT_EQ(copy, bytes.substr(0, copy.size()));
      EXPECT_EQ(copy.size(),
                std::min(bytes.size(), static_cast<std::size_t>(round == 2 ? 1 : round - 2) * kBlock));
    }
  }
}

TEST(Save, CancelledDuringTheSkipStillCopiesOneBlock) {
  SavePlace place(PatternBytes(5 * kBlock));
  place.Mark(2 * kBlock, 5 * kBlock - 1);
  place.progress.CancelAtEvents(2);
  place.SaveMarked("part");
  EXPECT_EQ(std::filesystem::file_size(place.folder / "part"), kBlock);
}

TEST(Save, OntoTheOpenFileIsError70AndTheFileIsWhole) {
  SavePlace place("0123456789");
  const bwp::RunTimeError error = ErrorOf([&] { place.SaveAs("data"); });
  EXPECT_EQ(error.number, 70);
  EXPECT_EQ(error.path, place.folder / "data");
  EXPECT_EQ(place.Bytes(), "0123456789");
}

TEST(Save, OntoTheOpenFileByAnotherSpellingIsError70) {
  SavePlace place("0123456789");
  place.state.LastFolder +=
      "../" + std::filesystem::path(place.folder.Path()).parent_path().filename().string() + "/";
  EXPECT_EQ(ErrorOf([&] { place.SaveAs("data"); }).number, 70);
  EXPECT_EQ(place.Bytes(), "0123456789");
}

TEST(Save, OntoAFileThatTheOpenLinkLeadsToIsError70) {
  SavePlace place("0123456789");
  std::filesystem::create_symlink("data", place.folder / "middle");
  std::filesystem::create_symlink(place.folder / "middle", place.folder / "link");
  place.state.OpenFile = place.folder / "link";
  for (const char* const name : {"data", "middle", "link"}) {
    EXPECT_EQ(ErrorOf([&] { place.SaveAs(name); }).number, 70) << name;
    EXPECT_EQ(place.Bytes(), "0123456789");
  }
}

TEST(Save, OntoAnotherLinkOfTheOpenFileReplacesOnlyTheLink) {
  for (const bool hard : {false, true}) {
    SavePlace place("0123456789");
    if (hard) {
      std::filesystem::create_hard_link(place.folder / "data", place.folder / "link");
    } else {
      std::filesystem::create_symlink("data", place.folder / "link");
    }
    place.Mark(0, 2);
    place.SaveMarked("link");
    EXPECT_EQ(ReadFile(place.folder / "link"), "012");
    EXPECT_FALSE(std::filesystem::is_symlink(place.folder / "link"));
    EXPECT_EQ(place.Bytes(), "0123456789");
  }
}

TEST(Save, IntoAMissingFolderIsError76) {
  SavePlace place("0123456789");
  EXPECT_EQ(ErrorOf([&] { place.SaveAs("missing/copy"); }).number, 76);
  EXPECT_EQ(place.Bytes(), "0123456789");
}

TEST(Save, OverAFolderOrAPipeIsAnErrorThatLeavesThem) {
  SavePlace place("0123456789");
  std::filesystem::create_directory(place.folder / "folder");
  ASSERT_EQ(mkfifo((place.folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(ErrorOf([&] { place.SaveAs("folder"); }).number, 75);
  EXPECT_GT(ErrorOf([&] { place.SaveAs("pipe"); }).number, 0);
  EXPECT_EQ(place.folder.Names(), (std::vector<std::string>{"data", "folder", "pipe"}));
  EXPECT_EQ(place.Bytes(), "0123456789");
}

TEST(Save, ChunkTakesTheBytesThatAreThere) {
  SavePlace place("0123456789");
  place.Mark(8, 20);
  place.SaveMarked("part");
  EXPECT_EQ(ReadFile(place.folder / "part"), "89");
}

TEST(Save, ChunkPastTheEndTellsBeforeAnythingIsAskedOrDeleted) {
  SavePlace place("0123456789");
  place.folder.Write("part", "old");
  place.Mark(10, 20);
  place.SaveMarked("part");
  EXPECT_EQ(place.Story(), Transcript{"tell [Error !] The chunk holds no byte of the file (x)"});
  EXPECT_EQ(ReadFile(place.folder / "part"), "old");
}

TEST(Save, OfAFileThatAnotherProgramCutShortTellsAndShowsItAnew) {
  SavePlace place("0123456789");
  place.folder.Write("data", "short");
  place.folder.Write("copy", "old");
  place.SaveAs("copy");
  EXPECT_EQ(place.Story(),
            (Transcript{"tell [Error !] The file was changed by another program (x)", "refresh"}));
  EXPECT_EQ(ReadFile(place.folder / "copy"), "old");
  EXPECT_EQ(place.state.FLen, 5);
}

TEST(Save, OverALinkToNothingReplacesTheLink) {
  SavePlace place("0123456789");
  std::filesystem::create_symlink("elsewhere", place.folder / "link");
  place.SaveAs("link");
  EXPECT_FALSE(std::filesystem::is_symlink(place.folder / "link"));
  EXPECT_EQ(ReadFile(place.folder / "link"), "0123456789");
  EXPECT_EQ(place.folder.Names(), (std::vector<std::string>{"data", "link"}));
}

TEST(Save, OverALinkToNothingLeavesNoHalfFileBehindIt) {
  SavePlace place(PatternBytes(3 * kBlock));
  std::filesystem::create_symlink("elsewhere", place.folder / "link");
  place.progress.onEvents = [&] { place.folder.Write("data", "short"); };
  EXPECT_EQ(ErrorOf([&] { place.SaveAs("link"); }).number, 62);
  EXPECT_EQ(place.folder.Names(), std::vector<std::string>{"data"});
}

TEST(Save, AsShowsTheCopyAlsoWhenAFieldIsBeingTypedInto) {
  SavePlace place("0123456789");
  place.state.FieldTyping = true;
  place.SaveAs("copy");
  EXPECT_EQ(place.Story().back(), "refresh");
  EXPECT_FALSE(place.state.FieldTyping);
}

TEST(Save, AsOfAnEmptyFileMakesAnEmptyCopyAndShowsIt) {
  SavePlace place("");
  place.folder.Write("copy", "old");
  place.SaveAs("copy");
  EXPECT_EQ(place.Story(),
            (Transcript{"ask File  'copy'  exist, do you want to overwrite ?", "caption Saving to file ",
                        "label Saving from  0 to -1", "show", "events", "hide", "clear abort", "refresh"}));
  EXPECT_EQ(ReadFile(place.folder / "copy"), "");
  EXPECT_EQ(place.state.OpenFile, place.folder / "copy");
}

TEST(Save, AsOfAnEmptyFileCancelledMakesNoCopy) {
  SavePlace place("");
  place.progress.CancelAtEvents(1);
  place.SaveAs("copy");
  EXPECT_EQ(place.folder.Names(), std::vector<std::string>{"data"});
  EXPECT_EQ(place.state.OpenFile, place.folder / "data");
}

TEST(Save, ChunkOfAnEmptyFileTellsThatThereIsNoByteAndMakesNoFile) {
  SavePlace place("");
  place.Mark(0, 0);
  place.SaveMarked("part");
  EXPECT_EQ(place.Story(), Transcript{"tell [Error !] The chunk holds no byte of the file (x)"});
  EXPECT_EQ(place.folder.Names(), std::vector<std::string>{"data"});
}

TEST(Save, WithoutARangeSavesAllBytesAndLeavesTheFileOpen) {
  SavePlace place("0123456789");
  place.Mark(3, 5);
  SaveChunk(place.state, place.services, place.folder / "copy");
  EXPECT_EQ(place.Story(), (Transcript{"caption Saving to file ", "label Saving from  0 to  9", "show",
                                       "events", "label Saving from  0 to  9, seeking start at  0",
                                       "label Saving from  0 to  9, seeking start at  0", "events", "bar 100",
                                       "events", "hide"}));
  EXPECT_EQ(ReadFile(place.folder / "copy"), "0123456789");
  EXPECT_EQ(place.state.OpenFile, place.folder / "data");
}

TEST(Save, WithHalfARangeTakesTheOtherEndFromTheFile) {
  SavePlace place("0123456789");
  SaveChunk(place.state, place.services, place.folder / "copy", 7);
  EXPECT_EQ(ReadFile(place.folder / "copy"), "789");
  SaveChunk(place.state, place.services, place.folder / "copy", std::nullopt, 2);
  EXPECT_EQ(ReadFile(place.folder / "copy"), "012");
}

TEST(Save, OfAFileThatShrinksMeanwhileIsError62AndLeavesNoHalfFile) {
  SavePlace place(PatternBytes(3 * kBlock));
  place.progress.onEvents = [&] { place.folder.Write("data", "short"); };
  const bwp::RunTimeError error = ErrorOf([&] { place.SaveAs("copy"); });
  EXPECT_EQ(error.number, 62);
  EXPECT_EQ(place.folder.Names(), std::vector<std::string>{"data"});
}

}  // namespace
