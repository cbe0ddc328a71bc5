#pragma once

#include <memory>
#include <string>
#include <vector>

#include "end_to_end/support/process.h"
#include "support/temp_folder.h"

namespace bwp::test {

/// A desktop of the test's own: an X server, a window manager and a session bus, with folders that nobody
/// else uses. All of it goes with this object.
class Desktop {
 public:
  Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  ~Desktop();

  /// What a program needs in its environment to appear here.
  const Process::Environment& Environment() const { return environment_; }
  /// Where the test's files may lie; empty at first. There is no digit in its path, which would be taken for
  /// the number of a part.
  const TempFolder& Files() const { return *files_; }
  /// The session bus.
  const std::string& BusAddress() const { return environment_.at("DBUS_SESSION_BUS_ADDRESS"); }

  /// Real input, as from mouse and keyboard. Keys are named as xdotool names them ("Page_Down", "ctrl+q").
  void MoveTo(int x, int y) const;
  void Click(int x, int y, int button = 1) const;
  void DoubleClick(int x, int y) const;
  void Press(int button = 1) const;
  void Release(int button = 1) const;
  void Key(const std::string& key) const;
  void KeyDown(const std::string& key) const;
  void KeyUp(const std::string& key) const;
  void Type(const std::string& text) const;

  /// Runs xdotool and gives what it printed.
  std::string Do(std::vector<std::string> arguments) const;
  /// Leaves a picture of the screen, or of one window with its frame.
  void TakePicture(const std::string& path) const;
  void TakePictureOf(const std::string& window, const std::string& path) const;

 private:
  std::unique_ptr<Process> StartServer(std::vector<std::string> command, std::string& answer) const;
  void SetTheme();
  std::string Log(const std::string& name) const { return own_ / (name + ".log"); }

  TempFolder own_;
  std::unique_ptr<TempFolder> files_;
  Process::Environment environment_;
  std::unique_ptr<Process> server_;
  std::unique_ptr<Process> bus_;
  std::unique_ptr<Process> windowManager_;
};

}  // namespace bwp::test
