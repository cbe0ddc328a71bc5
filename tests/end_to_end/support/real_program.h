#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "end_to_end/support/controls.h"
#include "end_to_end/support/desktop.h"

namespace bwp::test {

/// Drives the real program on a desktop of its own, as a person does: finds controls by the name that a
/// screen reader says, and uses mouse and keyboard on them. What it waits for fails the test when it does
/// not come. A test that failed leaves a picture and a list of the controls in the build folder.
class RealProgram : public testing::Test {
 protected:
  RealProgram();
  ~RealProgram() override;

  /// Starts the program with these arguments, in the folder of the test's files.
  void Start(const std::vector<std::string>& arguments);
  /// Starts it on one file and waits for its title.
  void StartOn(const std::string& name);
  /// Ends the program by its menu's key and gives its exit status.
  int Quit();

  /// The title of the main window, as the window manager knows it.
  std::string Title() const;
  void ExpectTitle(const std::string& part) const;

  /// The control of that name in a window whose title starts with that text ("" for the main window); waits
  /// until it is there and enabled.
  Control Find(const std::string& name, const std::string& window = {}) const;
  /// The same without the wait; its role is empty where there is none.
  Control FindNow(const std::string& name, const std::string& window = {}) const;
  void ClickOn(const std::string& name, const std::string& window = {}) const;
  /// Opens a menu of the menu bar and clicks an entry of it.
  void Choose(const std::string& menu, const std::string& entry) const;
  /// Gives a field the focus, replaces what it holds by the text, and presses a key ("" for none).
  void Fill(const std::string& field, const std::string& text, const std::string& key = "Return",
            const std::string& window = {}) const;
  std::string TextOf(const std::string& field, const std::string& window = {}) const;
  void ExpectText(const std::string& field, const std::string& text, const std::string& window = {}) const;

  /// Waits until keys go to the main window.
  void ExpectFocusOnMainWindow() const;
  void ExpectWindow(const std::string& title) const;
  /// Stops the program as soon as it shows a window of that title, however short it is there, and gives the
  /// window's number.
  std::string StopAtWindow(const std::string& title) const;
  void GoOn() const;
  void ExpectNoWindow(const std::string& title) const;
  bool HasWindow(const std::string& title) const;
  /// Waits for a message box with that title and text, then answers it.
  void Answer(const std::string& title, const std::string& text, const std::string& button = "OK") const;
  /// The text of the message box of that title.
  std::string Message(const std::string& title) const;

  /// What a cell of the page shows, taken from what a screen reader says for it.
  std::string Cell(int row, int column) const;
  void ExpectCell(int row, int column, const std::string& text) const;

  /// Settings with which the dialogs start in the folder of the test's files.
  void RememberFolderOfFiles() const;
  std::string File(const std::string& name) const { return desktop_.Files() / name; }
  /// What the program printed.
  std::string Output() const;

  Desktop desktop_;
  std::unique_ptr<Process> program_;
  std::unique_ptr<Controls> controls_;
  TempFolder own_;

 private:
  void KeepTraces() const;
};

}  // namespace bwp::test
