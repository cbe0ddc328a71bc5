#include "fileops/forms/progform.h"

#include <algorithm>

#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>

#include "viewer/forms/cell_geometry.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

// Painting the bar takes a millisecond while a copy keeps the caches busy. Seven times a second is smooth
// enough to the eye, and costs the copy a hundredth of its time.
constexpr int kPaintMilliseconds = 150;
// A search shows its term in three ways, under an empty line.
constexpr int kLabelLines = 4;

}  // namespace

Progform::Progform(QWidget* parent)
    : QDialog(parent), bar_(new QProgressBar(this)), lab_(new PathLabel(kLabelLines, true, this)) {
  setObjectName(QStringLiteral("Progform"));
  setWindowTitle(QStringLiteral("Work in progress"));
  // A short operation is over before the window manager has moved the focus here and back; halfway, the
  // toolkit would lose it. It stays where it was, and the barrier brings the keys here.
  setAttribute(Qt::WA_ShowWithoutActivating);
  Name(*bar_, QStringLiteral("Bar"), QStringLiteral("Progress"));
  bar_->setRange(0, 100);
  bar_->setValue(0);
  lab_->setObjectName(QStringLiteral("Lab"));
  // So that lines below each other line up.
  lab_->setFont(CellFont());
  auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
  Name(*cancel, QStringLiteral("Cancel"), QStringLiteral("Cancel"));
  // An Enter that is still held down from starting the operation must not end it.
  cancel->setAutoDefault(false);
  cancel->setFocus();
  connect(cancel, &QPushButton::clicked, this, [this] { reject(); });

  auto* column = new QVBoxLayout(this);
  column->addWidget(lab_);
  column->addWidget(bar_);
  column->addWidget(cancel, 0, Qt::AlignRight);
}

void Progform::SetCaption(const std::string& caption) {
  setWindowTitle(TitleOf(caption));
}

void Progform::SetLabel(const std::string& label) {
  label_ = label;
  lab_->setText(FromPath(label));
}

void Progform::SetBar(float percent) {
  const int whole = static_cast<int>(std::clamp(percent, 0.0F, 100.0F));
  if (whole == bar_->value()) return;
  // A bar paints a new value at once unless it may not.
  bar_->setUpdatesEnabled(false);
  bar_->setValue(whole);
}

void Progform::Show() {
  bar_->setUpdatesEnabled(true);
  sincePaint_.start();
  barrier_.PutUp();
  show();
  raise();
}

void Progform::Hide() {
  // A click that was made during the last step and still waits is this window's to take, or nobody's: once
  // the window is gone it would reach the main window and start something.
  QCoreApplication::processEvents();
  hide();
  barrier_.TakeDown();
  bar_->setUpdatesEnabled(true);
}

void Progform::LetEventsRun() {
  PaintWhenDue();
  QCoreApplication::processEvents();
}

void Progform::PaintWhenDue() {
  if (bar_->updatesEnabled() || !sincePaint_.hasExpired(kPaintMilliseconds)) return;
  bar_->setUpdatesEnabled(true);
  sincePaint_.start();
}

void LazyProgform::ClearAbort() {
  if (form_) form_->ClearAbort();
}

Progform& LazyProgform::Form() {
  if (!form_) form_ = std::make_unique<Progform>(parent_);
  return *form_;
}

}  // namespace bwp
