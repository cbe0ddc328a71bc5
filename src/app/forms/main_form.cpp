#include "app/forms/main_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QScopedValueRollback>

#include "app/configuration.h"
#include "app/forms/dropped_file.h"
#include "app/forms/read_me.h"
#include "app/start_up.h"
#include "fileops/buffer_operations.h"
#include "fileops/forms/buffer_buttons.h"
#include "fileops/forms/saver.h"
#include "fileops/rescue_buffer.h"
#include "interaction/forms/chunk_panel.h"
#include "interaction/forms/edit_controller.h"
#include "interaction/forms/scroll_bar_widget.h"
#include "interaction/forms/search_panel.h"
#include "splitjoin/forms/split_join_tool.h"
#include "viewer/forms/loader.h"
#include "viewer/forms/page_table.h"
#include "viewer/forms/position_panel.h"
#include "viewer/forms/ruler.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/open_view_file.h"
#include "viewer/paths.h"
#include "viewer/refresh.h"

namespace bwp {

MainForm::MainForm(std::string progFolder)
    : progFolder_(std::move(progFolder)),
      menu_(*menuBar()),
      controls_(*this, state_, services_),
      keyboard_(state_, *this, *controls_.scrollBar, *this) {
  setObjectName(QStringLiteral("f"));
  setAcceptDrops(true);
  ConnectFileCommands();
  ConnectChunkCommands();
  ConnectTools();
  ConnectClosing();
  controls_.edit->mayEnter = [this] { return IsIdle(); };
  connect(controls_.edit, &EditController::Entered, this, [this] { HideFileDialogs(); });
  connect(controls_.edit, &EditController::ControlsEnabled, this, [this] { EnableCommands(); });
  EnableCommands();
}

void MainForm::ConnectFileCommands() {
  connect(menu_.open, &QAction::triggered, this, [this] { ShowLoader(); });
  connect(controls_.opn, &QPushButton::clicked, this, [this] { ShowLoader(); });
  connect(menu_.sav, &QAction::triggered, this, [this] { ShowSaver(SaveAsTask(state_)); });
  for (const QAction* const entry : {menu_.sachnk, menu_.sachnk2}) {
    connect(entry, &QAction::triggered, this, [this] { ShowSaver(SaveChunkTask(state_)); });
  }
  connect(menu_.MenuExit, &QAction::triggered, this, &QWidget::close);
}

void MainForm::ConnectChunkCommands() {
  const auto copy = [this] { Operate([this] { CopyChunk(state_, services_); }); };
  const auto cut = [this] { Operate([this] { CutChunk(state_, services_); }); };
  const auto insert = [this](const char* mode) {
    Operate([this, mode] { InsertBuffer(state_, services_, mode); });
  };
  connect(menu_.menucopy, &QAction::triggered, this, copy);
  connect(controls_.buffer->cop, &QPushButton::clicked, this, copy);
  connect(menu_.menucut, &QAction::triggered, this, cut);
  connect(controls_.buffer->Cut, &QPushButton::clicked, this, cut);
  connect(menu_.menupasteBMS, &QAction::triggered, this, [insert] { insert("bms"); });
  connect(controls_.buffer->Paste, &QPushButton::clicked, this, [insert] { insert("bms"); });
  connect(menu_.menupasteAMS, &QAction::triggered, this, [insert] { insert("ams"); });
  connect(menu_.menuappend, &QAction::triggered, this, [insert] { insert("app"); });
}

void MainForm::ConnectTools() {
  connect(menu_.find, &QAction::triggered, this, [this] { controls_.search->FocusTerm(); });
  connect(menu_.findNext, &QAction::triggered, this, [this] { controls_.search->FindNext(); });
  controls_.search->run = [this](const auto& search) { Operate(search); };
  connect(menu_.splitAndJoin, &QAction::triggered, this, [this] { ShowSplitJoin(); });
  for (std::size_t choice = 0; choice < menu_.acceleration.size(); ++choice) {
    connect(menu_.acceleration[choice], &QAction::triggered, this,
            [this, choice] { ChooseAccelerationEntry(static_cast<int>(choice)); });
  }
  connect(menu_.Menuabout, &QAction::triggered, this, [this] { ShowReadMe(progFolder_, notices_); });
}

void MainForm::Start(const std::string& commandLine) {
  const Configuration configuration = LoadConfiguration(progFolder_ + kConfigurationName);
  ApplyConfiguration(configuration, state_);
  ChooseAccelerationEntry(configuration.acceleration);
  controls_.position->ShowBase();
  const std::string path = funzioni::CommandLinePath(commandLine);
  LetEventsRun();
  if (!path.empty()) OfferFile(state_, notices_, funzioni::PathIn(progFolder_, path));
  Refresh(state_, *this);
}

std::string MainForm::RescueBuffer() const {
  return bwp::RescueBuffer(state_, disk_);
}

void MainForm::ShowLoader() {
  if (loader_ == nullptr) {
    loader_ = new Loader(state_, *this, notices_, this);
    loader_->run = [this](const auto& action) { Operate(action); };
  }
  state_.FieldTyping = false;
  loader_->Open();
}

void MainForm::ShowSaver(const SaveTask& task) {
  if (saver_ == nullptr) {
    saver_ = new Saver(state_, services_, this);
    saver_->run = [this](const auto& action) { Operate(action); };
  }
  state_.FieldTyping = false;
  saver_->Open(task);
}

void MainForm::ShowSplitJoin() {
  if (splitJoin_ == nullptr) {
    splitJoin_ = new SplitJoinTool(state_, services_, *this);
    splitJoin_->run = [this](const auto& action) { Operate(action); };
  }
  state_.FieldTyping = false;
  splitJoin_->Show();
}

// One at a time, and none while bytes are being edited. A command ends typing into a box, which would hold
// back the refresh that shows its result.
void MainForm::Operate(const std::function<void()>& operation) {
  if (!MayOperate()) return;
  const QScopedValueRollback operating(operating_, true);
  state_.FieldTyping = false;
  operation();
}

void MainForm::ChooseAccelerationEntry(int choice) {
  accelerationShown_ = ChooseAcceleration(state_, accelerationShown_, choice);
  for (std::size_t i = 0; i < menu_.acceleration.size(); ++i) {
    menu_.acceleration[i]->setChecked(accelerationShown_[i]);
  }
}

// In edit mode, the edit controller alone enables and disables the controls.
void MainForm::EnableCommands() {
  if (controls_.edit->IsOn()) return;
  const bool fileIsOpen = !state_.OpenFile.empty();
  for (QAction* const entry : menu_.needFile) entry->setEnabled(fileIsOpen);
  for (QPushButton* const button : {controls_.buffer->cop, controls_.buffer->Cut, controls_.buffer->Paste,
                                    controls_.chunk->Gstart, controls_.chunk->Gend, controls_.search->Find}) {
    button->setEnabled(fileIsOpen);
  }
  controls_.edit->edit->setEnabled(MayEdit(state_));
}

// No operation is running, and no message is open.
bool MainForm::IsIdle() const {
  return !operating_ && !progress_.Visible() && QApplication::activeModalWidget() == nullptr;
}

bool MainForm::MayOperate() const {
  return !operating_ && !progress_.Visible() && !controls_.edit->Busy();
}

void MainForm::HideFileDialogs() {
  if (loader_ != nullptr) loader_->hide();
  if (saver_ != nullptr) saver_->hide();
}

void MainForm::ConnectClosing() {
  constexpr int kMilliseconds = 100;
  closing_.setSingleShot(true);
  closing_.setInterval(kMilliseconds);
  connect(&closing_, &QTimer::timeout, this, &QWidget::close);
}

void MainForm::closeEvent(QCloseEvent* event) {
  if (!IsIdle()) {
    closing_.start();
    event->ignore();
    return;
  }
  SaveConfiguration(disk_, progFolder_ + kConfigurationName, ConfigurationOf(state_));
  state_.AutoScroll = false;
  event->accept();
  QCoreApplication::quit();
}

void MainForm::dragEnterEvent(QDragEnterEvent* event) {
  if (MayOperate()) AcceptFile(*event);
}

void MainForm::dropEvent(QDropEvent* event) {
  if (!MayOperate()) return;
  if (const std::optional<std::string> path = AcceptFile(*event)) {
    Operate([&] { OpenAndShow(state_, *this, notices_, *path); });
  }
}

void MainForm::SetRedraw(bool on) {
  if (on) controls_.page->ShowPage();
}

void MainForm::MoveThumb() {
  controls_.scrollBar->ShowThumb();
}

// The title names the open file, so this is where the commands follow it, whatever opened it.
void MainForm::ShowTitle(const std::string& title) {
  setWindowTitle(TitleOf(title));
  EnableCommands();
  if (saver_ != nullptr) saver_->HideWhenStale();
}

void MainForm::ShowRuler(bool hex) {
  controls_.ruler->ShowLabels(hex);
  controls_.page->NameColumns(hex);
}

void MainForm::ShowWindowTexts(const WindowTexts& texts) {
  controls_.position->ShowWindowTexts(texts);
}

void MainForm::ShowChunkTexts(const ChunkTexts& texts) {
  controls_.chunk->ShowChunkTexts(texts);
}

void MainForm::FocusGridIfEnabled() {
  if (controls_.page->isEnabled()) controls_.page->setFocus();
}

void MainForm::LetEventsRun() {
  QCoreApplication::processEvents();
}

void MainForm::NextFrame() {
  pacer_.ShowFrame(*controls_.page->viewport());
}

}  // namespace bwp
