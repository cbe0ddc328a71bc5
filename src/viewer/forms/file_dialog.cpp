#include "viewer/forms/file_dialog.h"

#include <algorithm>

#include <QScreen>

#include "viewer/forms/place_control.h"
#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

constexpr QSize kUsualSize(580, 420);
constexpr double kFoldersPercent = 42;  // The folder list's share of the width.
constexpr int kRowsOfSmallestList = 5;
constexpr int kLettersOfSmallestField = 16;
constexpr int kLettersOfSmallestDialog = 64;

QLabel* Heading(QWidget& dialog, const QString& text, QWidget& of) {
  auto* heading = new QLabel(text, &dialog);
  heading->setBuddy(&of);
  return heading;
}

}  // namespace

FileDialog::FileDialog(ViewState& state, Notices& notices, QWidget* parent, FileLists::Selection selection)
    : QDialog(parent),
      lists_(state, notices, *this, selection),
      driveHeading_(Heading(*this, QStringLiteral("Drive"), lists_.Drive())),
      foldersHeading_(Heading(*this, QStringLiteral("Folder"), lists_.Folders())),
      filesHeading_(Heading(*this, QStringLiteral("Files"), lists_.Files())) {
  setSizeGripEnabled(false);
}

QLineEdit& FileDialog::AddField(const QString& name, const QString& heading) {
  auto* field = new QLineEdit(this);
  Name(*field, name, heading);
  AddRow(*field, heading);
  return *field;
}

QLabel& FileDialog::AddNote(const QString& name, const QString& heading) {
  auto* note = new QLabel(this);
  note->setObjectName(name);
  note->setTextFormat(Qt::PlainText);
  AddRow(*note, heading);
  return *note;
}

QPushButton& FileDialog::AddButton(const QString& name, const QString& text) {
  auto* button = new QPushButton(text, this);
  Name(*button, name, text);
  button->setDefault(buttons_.empty());
  button->setAutoDefault(buttons_.empty());
  buttons_.push_back(button);
  return *button;
}

void FileDialog::AddCancel() {
  connect(&AddButton(QStringLiteral("Cancel"), QStringLiteral("Cancel")), &QPushButton::clicked, this,
          &QDialog::hide);
}

void FileDialog::Present() {
  lists_.ShowLastFolder();
  BringUp(*this);
}

void FileDialog::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  Arrange();
}

void FileDialog::showEvent(QShowEvent* event) {
  setMinimumSize(SmallestSize());
  if (!testAttribute(Qt::WA_Resized))
    resize(kUsualSize.expandedTo(minimumSize()).boundedTo(screen()->availableSize()));
  Arrange();
  QDialog::showEvent(event);
}

void FileDialog::AddRow(QWidget& content, const QString& heading) {
  rows_.push_back({Heading(*this, heading + QLatin1Char(':'), content), &content});
}

int FileDialog::RowHeight() const {
  int height = 0;
  for (const QPushButton* button : buttons_) height = std::max(height, button->sizeHint().height());
  for (const Row& row : rows_) height = std::max(height, row.content->sizeHint().height());
  return height;
}

int FileDialog::HeadingWidth() const {
  int width = 0;
  for (const Row& row : rows_) width = std::max(width, row.heading->sizeHint().width());
  return width;
}

int FileDialog::ButtonWidth() const {
  int width = 0;
  for (const QPushButton* button : buttons_) width = std::max(width, button->sizeHint().width());
  return width;
}

QSize FileDialog::SmallestSize() const {
  const int letter = fontMetrics().averageCharWidth();
  const int gap = 4 * letter;
  const int width = HeadingWidth() + ButtonWidth() + kLettersOfSmallestField * letter + gap;
  const int rows = static_cast<int>(std::max(rows_.size(), buttons_.size())) + 1;
  const int height = rows * (RowHeight() + letter) + foldersHeading_->sizeHint().height() +
                     kRowsOfSmallestList * fontMetrics().lineSpacing() + gap;
  return {std::max(width, kLettersOfSmallestDialog * letter), height};
}

void FileDialog::Arrange() {
  ArrangeButtons();
  ArrangeRows();
  ArrangeLists();
}

// From the bottom right corner upwards.
void FileDialog::ArrangeButtons() {
  const QSize size(ButtonWidth(), RowHeight());
  const QPushButton* next = nullptr;
  for (auto button = buttons_.rbegin(); button != buttons_.rend(); ++button) {
    (*button)->resize(size);
    if (next == nullptr) {
      PlaceControl(*this, **button, "rb");
    } else {
      PlaceControl(*this, **button, "r", {.above = next});
    }
    next = *button;
  }
}

// Each row beside a button; there are never more rows than buttons.
void FileDialog::ArrangeRows() {
  const int width = HeadingWidth();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const QPushButton& button = *buttons_[i];
    rows_[i].heading->setGeometry(0, button.y(), width, button.height());
    PlaceControl(*this, *rows_[i].heading, "l");
    rows_[i].content->setGeometry(button.geometry());
    PlaceControl(*this, *rows_[i].content, {}, {.rightOf = rows_[i].heading, .width = &button});
  }
}

void FileDialog::ArrangeLists() {
  QWidget& drive = lists_.Drive();
  QWidget& folders = lists_.Folders();
  QWidget& files = lists_.Files();
  const QWidget* const first = buttons_.front();
  drive.resize(drive.sizeHint());
  driveHeading_->resize(driveHeading_->sizeHint().width(), drive.height());
  PlaceControl(*this, *driveHeading_, "l", {.below = 0.0});
  PlaceControl(*this, drive, {}, {.rightOf = driveHeading_, .below = 0.0, .width = kFoldersPercent});
  foldersHeading_->resize(foldersHeading_->sizeHint());
  PlaceControl(*this, *foldersHeading_, "l", {.below = &drive});
  PlaceControl(*this, folders, {},
               {.rightOf = 0.0, .below = foldersHeading_, .width = kFoldersPercent, .height = first});
  filesHeading_->resize(filesHeading_->sizeHint());
  PlaceControl(*this, *filesHeading_, {}, {.rightOf = &folders, .below = &drive});
  PlaceControl(*this, files, {},
               {.rightOf = &folders, .below = filesHeading_, .width = 100.0, .height = first});
}

}  // namespace bwp
