#include "app/forms/main_form.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QVBoxLayout>

#include "app/configuration.h"
#include "app/forms/read_me.h"
#include "app/start_up.h"
#include "fileops/rescue_buffer.h"
#include "viewer/forms/page_table.h"
#include "viewer/forms/ruler.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/open_view_file.h"
#include "viewer/paths.h"
#include "viewer/refresh.h"

namespace bwp {

MainForm::MainForm(std::string progFolder) : progFolder_(std::move(progFolder)), menu_(*menuBar()) {
  setObjectName(QStringLiteral("f"));
  setAcceptDrops(true);
  LayOut();
  ConnectMenu();
}

MainForm::~MainForm() = default;

void MainForm::LayOut() {
  auto* const centre = new QWidget(this);
  ruler_ = new Ruler(centre);
  page_ = new PageTable(state_.tabe, centre);
  page_->setEnabled(false);
  auto* const pageColumn = new QVBoxLayout(centre);
  pageColumn->setSpacing(0);
  pageColumn->addWidget(ruler_);
  pageColumn->addWidget(page_);
  pageColumn->addStretch();
  setCentralWidget(centre);
}

void MainForm::ConnectMenu() {
  connect(menu_.MenuExit, &QAction::triggered, this, &QWidget::close);
  connect(menu_.Menuabout, &QAction::triggered, this, [this] { ShowReadMe(progFolder_, notices_); });
  EnableCommands();
}

void MainForm::Start(const std::string& commandLine) {
  ApplyConfiguration(LoadConfiguration(progFolder_ + kConfigurationName), state_);
  const std::string path = funzioni::CommandLinePath(commandLine);
  QCoreApplication::processEvents();
  if (!path.empty()) OfferFile(state_, notices_, funzioni::FullPath(path, progFolder_));
  EnableCommands();
  Refresh(state_, *this);
}

std::string MainForm::RescueBuffer() const {
  return bwp::RescueBuffer(state_, disk_).note;
}

void MainForm::EnableCommands() {
  for (QAction* const entry : menu_.needFile) entry->setEnabled(!state_.OpenFile.empty());
}

void MainForm::closeEvent(QCloseEvent* event) {
  SaveConfiguration(disk_, progFolder_ + kConfigurationName, ConfigurationOf(state_));
  state_.AutoScroll = false;
  event->accept();
  QCoreApplication::quit();
}

void MainForm::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainForm::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  for (const QUrl& url : event->mimeData()->urls()) {
    if (!url.isLocalFile()) continue;
    const std::string path =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
    if (!funzioni::FileExists(path)) continue;
    OpenDropped(path);
    return;
  }
}

void MainForm::OpenDropped(const std::string& path) {
  if (OfferFile(state_, notices_, path) != FileOffer::kOpened) return;
  state_.LastFolder = funzioni::FolderOf(path);
  state_.FieldTyping = false;
  EnableCommands();
  Refresh(state_, *this);
}

void MainForm::SetRedraw(bool on) {
  if (on) page_->ShowPage();
}

void MainForm::MoveThumb() {}

void MainForm::ShowTitle(const std::string& title) {
  setWindowTitle(FromPath(title));
}

void MainForm::ShowRuler(bool hex) {
  ruler_->ShowLabels(hex);
}

void MainForm::ShowWindowTexts(const WindowTexts& /*texts*/) {}

void MainForm::ShowChunkTexts(const ChunkTexts& /*texts*/) {}

void MainForm::FocusGridIfEnabled() {
  if (page_->isEnabled()) page_->setFocus();
}

void MainForm::LetEventsRun() {
  QCoreApplication::processEvents();
}

void MainForm::NextFrame() {
  pacer_.ShowFrame(*page_->viewport());
}

}  // namespace bwp
