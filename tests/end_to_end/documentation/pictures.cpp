#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "end_to_end/support/real_program.h"

/// Takes the pictures for the documentation from the real program: one test per picture, which fails if the
/// window does not appear.
namespace {

using bwp::test::Until;

constexpr const char* kTool = "Split and Join Tool";

class Pictures : public bwp::test::RealProgram {
 protected:
  void SetUp() override {
    RememberFolderOfFiles();
    for (const char* const name : {"bytewarp-128.png", "bytewarp-256.png", "bytewarp-512.png"}) {
      std::filesystem::copy(std::string(BYTEWARP_ICONS "/") + name, File(name));
    }
  }

  void StartOnIcon() {
    StartOn("bytewarp-512.png");
    ExpectFocusOnMainWindow();
  }

  /// Takes a picture of the window whose title starts like this, with its frame, once it no longer changes.
  void Take(const std::string& title, const std::string& name) const {
    // The pointer would highlight the control under it.
    desktop_.MoveTo(1, 1);
    const std::string window = WindowId(title);
    ASSERT_FALSE(window.empty()) << title;
    const std::string picture = own_ / (name + ".png");
    const std::string before = own_ / "before.png";
    desktop_.TakePictureOf(window, before);
    EXPECT_TRUE(Until([&] {
      desktop_.TakePictureOf(window, picture);
      const bool same = bwp::test::ReadFile(before) == bwp::test::ReadFile(picture);
      std::filesystem::rename(picture, before);
      return same;
    })) << name
        << " keeps changing";
    Keep(before, name);
  }

  std::string WindowId(const std::string& title) const {
    const std::string windows = desktop_.Do({"search", "--onlyvisible", "--name", "^" + title});
    return windows.substr(0, windows.find('\n'));
  }

  void Keep(const std::string& picture, const std::string& name) const {
    const char* const folder = std::getenv("BYTEWARP_PICTURES");
    ASSERT_NE(folder, nullptr) << "BYTEWARP_PICTURES names no folder";
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(picture, std::string(folder) + "/" + name + ".png",
                               std::filesystem::copy_options::overwrite_existing);
  }
};

TEST_F(Pictures, Main) {
  StartOnIcon();
  Take("BYTEwarp", "main");
}

TEST_F(Pictures, Edit) {
  StartOnIcon();
  ClickOn("Edit the page's bytes");
  desktop_.Type("4A");
  ExpectCell(0, 1, "4A");
  Take("BYTEwarp", "edit");
}

TEST_F(Pictures, Search) {
  StartOnIcon();
  Fill("Type in a ASCII string to search", "IDAT");
  ExpectText("Type in HEX bytes to search separated by spaces", "49 44 41 54 ");
  Take("BYTEwarp", "search");
}

TEST_F(Pictures, Open) {
  StartOnIcon();
  desktop_.Key("ctrl+o");
  ExpectWindow("Open File");
  ClickOn("bytewarp-256.png", "Open File");
  ExpectText("File name", "bytewarp-256.png", "Open File");
  Take("Open File", "open");
}

TEST_F(Pictures, Save) {
  StartOnIcon();
  desktop_.Key("ctrl+shift+s");
  ExpectWindow("Save File as..");
  Fill("Save as", "copy.png", "", "Save File as..");
  Take("Save File as..", "save");
}

// A picture of work in progress: the program is stopped while it is taken.
TEST_F(Pictures, Progress) {
  const int file = open(File("two-gigabytes.bin").c_str(), O_WRONLY | O_CREAT, 0600);
  ASSERT_EQ(ftruncate(file, off_t{2'147'483'647}), 0);
  close(file);
  StartOn("two-gigabytes.bin");
  ExpectFocusOnMainWindow();
  Fill("Type in a ASCII string to search", "Bytewarp");
  StopAtWindow("Search$");
  Take("Search$", "progress");
  GoOn();
}

TEST_F(Pictures, SplitTool) {
  StartOnIcon();
  Choose("Tools", "Split&Join");
  ExpectWindow(kTool);
  Fill("Number of parts", "7", "Return", kTool);
  Take(kTool, "split");
}

TEST_F(Pictures, BaseName) {
  StartOnIcon();
  Choose("Tools", "Split&Join");
  ClickOn("Split", kTool);
  ExpectWindow("Split file: ");
  Fill("Base name", "icon.000", "", "Split file: ");
  Take("Split file: ", "base-name");
}

TEST_F(Pictures, Join) {
  for (const char* const name : {"icon.000", "icon.001", "icon.002"}) desktop_.Files().Write(name, "part");
  StartOnIcon();
  Choose("Tools", "Split&Join");
  ClickOn("Join", kTool);
  ExpectWindow("Join files");
  ClickOn("icon.000", "Join files");
  Fill("Destination", "icon.png", "", "Join files");
  Take("Join files", "join");
}

TEST_F(Pictures, Help) {
  StartOnIcon();
  Choose("Tools", "Split&Join");
  ClickOn("Join", kTool);
  ClickOn("Help", "Join files");
  ExpectWindow("Split & Join Help");
  Take("Split & Join Help", "help");
}

}  // namespace
