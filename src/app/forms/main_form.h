#pragma once

#include <memory>
#include <string>

#include <QMainWindow>

#include "app/forms/main_menu.h"
#include "fileops/disk.h"
#include "viewer/display.h"
#include "viewer/forms/frame_pacer.h"
#include "viewer/forms/message_notices.h"
#include "viewer/view_state.h"

namespace bwp {

class PageTable;
class Ruler;

/// The main form `f`: owns the view state, lays the panels out, and is the display that a refresh shows its
/// work on. What a panel does it does itself; here is only what ties them together.
class MainForm : public QMainWindow, private Display {
 public:
  /// progFolder holds the configuration file and ends with a separator.
  explicit MainForm(std::string progFolder);
  ~MainForm() override;

  /// Takes the remembered settings and opens the file that the command line names, if there is one. Throws
  /// the platform's error for a configuration that cannot be read or a file that cannot be opened.
  void Start(const std::string& commandLine);

  /// Puts bytes that were cut, and stand nowhere but in the Buffer, to safety; says where, or nothing.
  std::string RescueBuffer() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void LayOut();
  void ConnectMenu();
  void EnableCommands();
  void OpenDropped(const std::string& path);

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
  FramePacer pacer_;
  MainMenu menu_;
  Ruler* ruler_;
  PageTable* page_;
};

}  // namespace bwp
