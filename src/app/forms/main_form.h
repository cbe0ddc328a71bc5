#pragma once

#include <functional>
#include <string>

#include <QMainWindow>
#include <QTimer>

#include "app/forms/main_layout.h"
#include "app/forms/main_menu.h"
#include "fileops/forms/progform.h"
#include "fileops/save.h"
#include "fileops/services.h"
#include "interaction/forms/keyboard_filter.h"
#include "viewer/display.h"
#include "viewer/forms/frame_pacer.h"
#include "viewer/forms/message_notices.h"
#include "viewer/view_state.h"

namespace bwp {

class Loader;
class Saver;
class SplitJoinTool;

/// The main form `f`: owns the view state, connects the panels to the engine and to each other, and is the
/// display of a refresh. Each panel handles its own controls.
class MainForm : public QMainWindow, private Display {
 public:
  /// progFolder holds the configuration file and ends with a separator.
  explicit MainForm(std::string progFolder);

  /// Applies the remembered settings and opens the file that the command line names, if any. Throws
  /// RunTimeError if the configuration cannot be read or the file cannot be opened.
  void Start(const std::string& commandLine);

  /// What the program shows and works on.
  const ViewState& State() const { return state_; }

  /// Saves bytes that were cut and exist only in the Buffer; returns a sentence that says where, or nothing.
  std::string RescueBuffer() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void ConnectFileCommands();
  void ConnectChunkCommands();
  void ConnectTools();
  void ConnectClosing();

  void ShowLoader();
  void ShowSaver(const SaveTask& task);
  void ShowSplitJoin();
  void Operate(const std::function<void()>& operation);
  bool IsIdle() const;
  bool MayOperate() const;
  void HideFileDialogs();
  void ChooseAccelerationEntry(int choice);
  void EnableCommands();

  void SetRedraw(bool on) override;
  void MoveThumb() override;
  void ShowTitle(const std::string& title) override;
  void ShowRuler(bool hex) override;
  void ShowWindowTexts(const WindowTexts& texts) override;
  void ShowChunkTexts(const ChunkTexts& texts) override;
  void FocusGridIfEnabled() override;
  void LetEventsRun() override;
  void NextFrame() override;

  const std::string progFolder_;
  ViewState state_;
  const Disk disk_;
  MessageNotices notices_{this};
  LazyProgform progress_{this};
  Services services_{*this, progress_, notices_, disk_};
  FramePacer pacer_;

  MainMenu menu_;
  MainLayout controls_;
  KeyboardFilter keyboard_;
  AccelChecks accelerationShown_{};
  Loader* loader_ = nullptr;
  Saver* saver_ = nullptr;
  SplitJoinTool* splitJoin_ = nullptr;
  bool operating_ = false;
  QTimer closing_{this};  // closes the window once the operation is over
};

}  // namespace bwp
