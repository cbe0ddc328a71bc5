#include "app/start_up.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "support/temp_folder.h"

namespace {

TEST(StartUp, TheConfigurationFollowsTheWorkingDirectory) {
  const bwp::test::TempFolder folder;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_EQ(bwp::CurrentFolder(), std::filesystem::canonical(folder.Path()).string() + "/");
  std::filesystem::current_path("/");
  EXPECT_EQ(bwp::CurrentFolder(), "/");
  std::filesystem::current_path(before);
}

TEST(StartUp, JoinsTheArgumentsByBlanks) {
  EXPECT_EQ(bwp::CommandLineText({}), "");
  EXPECT_EQ(bwp::CommandLineText({"/a/file.bin"}), "/a/file.bin");
  EXPECT_EQ(bwp::CommandLineText({"my", "own", "file"}), "my own file");
  EXPECT_EQ(bwp::CommandLineText({"\"/a b\""}), "\"/a b\"");
  EXPECT_EQ(bwp::CommandLineText({"", "a"}), " a");
  EXPECT_EQ(bwp::CommandLineText({"", "", "a", ""}), "  a ");
}

TEST(StartUp, AppliesWhatWasRemembered) {
  bwp::ViewState state;
  bwp::ApplyConfiguration({false, 3, "/b/"}, state);
  EXPECT_FALSE(state.HexMode);
  EXPECT_EQ(state.AccelMode, 3);
  EXPECT_EQ(state.LastFolder, "/b/");
  const bwp::Configuration remembered = bwp::ConfigurationOf(state);
  EXPECT_EQ(bwp::ConfigurationText(remembered), "#FALSE#,3,\"/b/\"\n");
}

TEST(StartUp, AnAccelerationThatNoMenuEntryHasIsKept) {
  for (const int choice : {-1, 5, 32767}) {
    bwp::ViewState state;
    bwp::ApplyConfiguration({true, choice, "/"}, state);
    EXPECT_EQ(bwp::ConfigurationText(bwp::ConfigurationOf(state)),
              "#TRUE#," + std::to_string(choice) + ",\"/\"\n");
  }
}

}  // namespace
