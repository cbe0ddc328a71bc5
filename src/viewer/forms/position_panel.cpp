#include "viewer/forms/position_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>

#include "viewer/forms/decimal_box.h"
#include "viewer/forms/keys.h"
#include "viewer/forms/offset_box.h"
#include "viewer/forms/widgets.h"
#include "viewer/position_entry.h"

namespace bwp {
namespace {

QRadioButton* MakeOption(const QString& name, const QString& text, QWidget* parent) {
  auto* const option = new QRadioButton(text, parent);
  Name(*option, name, QStringLiteral("Show bytes in ") + text.toLower());
  return option;
}

}  // namespace

PositionPanel::PositionPanel(ViewState& state, Display& display, QWidget* parent)
    : QGroupBox(QStringLiteral("Show Window"), parent),
      state_(state),
      display_(display),
      HStart_(
          new OffsetBox(QStringLiteral("HStart"), QStringLiteral("Show Window start, hexadecimal"), this)),
      HEnd_(new OffsetBox(QStringLiteral("HEnd"), QStringLiteral("Show Window end, hexadecimal"), this)),
      Dstart_(new DecimalBox(QStringLiteral("Dstart"), QStringLiteral("Show Window start, decimal"), this)),
      Dend_(new DecimalBox(QStringLiteral("Dend"), QStringLiteral("Show Window end, decimal"), this)),
      hexop_(MakeOption(QStringLiteral("hexop"), QStringLiteral("Hexadecimal"), this)),
      decop_(MakeOption(QStringLiteral("decop"), QStringLiteral("Decimal"), this)) {
  for (QWidget* const box : {static_cast<QWidget*>(HStart_), static_cast<QWidget*>(HEnd_),
                             static_cast<QWidget*>(Dstart_), static_cast<QWidget*>(Dend_)}) {
    box->installEventFilter(this);
  }
  connect(hexop_, &QRadioButton::clicked, this, [this] { SetHexMode(true); });
  connect(decop_, &QRadioButton::clicked, this, [this] { SetHexMode(false); });
  ShowBase();
  LayOut();
}

void PositionPanel::LayOut() {
  auto* const grid = new QGridLayout(this);
  grid->addWidget(new QLabel(QStringLiteral("Hex"), this), 0, 1);
  grid->addWidget(new QLabel(QStringLiteral("Dec"), this), 0, 2);
  grid->addWidget(new QLabel(QStringLiteral("Start"), this), 1, 0);
  grid->addWidget(HStart_, 1, 1);
  grid->addWidget(Dstart_, 1, 2);
  grid->addWidget(new QLabel(QStringLiteral("End"), this), 2, 0);
  grid->addWidget(HEnd_, 2, 1);
  grid->addWidget(Dend_, 2, 2);
  auto* const bases = new QHBoxLayout;
  bases->addWidget(hexop_);
  bases->addWidget(decop_);
  bases->addStretch();
  grid->addLayout(bases, 3, 0, 1, 4);
  grid->setColumnStretch(3, 1);
  setTabOrder(HStart_, Dstart_);
  setTabOrder(Dstart_, HEnd_);
  setTabOrder(HEnd_, Dend_);
  setTabOrder(Dend_, hexop_);
}

void PositionPanel::ShowWindowTexts(const WindowTexts& texts) {
  Dstart_->ShowText(texts.Dstart);
  Dend_->ShowText(texts.Dend);
  HStart_->ShowText(texts.HStart);
  HEnd_->ShowText(texts.HEnd);
}

void PositionPanel::ShowBase() {
  (state_.HexMode ? hexop_ : decop_)->setChecked(true);
}

bool PositionPanel::eventFilter(QObject* watched, QEvent* event) {
  return event->type() == QEvent::KeyPress && KeyPressed(watched, static_cast<const QKeyEvent&>(*event));
}

// True if the box must not get the key.
bool PositionPanel::KeyPressed(const QObject* box, const QKeyEvent& key) {
  const BoxKey kind = BoxKeyOf(key);
  if (kind == BoxKey::kTab || kind == BoxKey::kHeld) return kind == BoxKey::kHeld;
  // In the hexadecimal boxes every key counts as typing, in the decimal ones those that produce a character.
  if (IsHexBox(box) || IsCharacterKey(key)) state_.FieldTyping = true;
  if (kind == BoxKey::kEnter) Commit(box);
  if (kind == BoxKey::kEscape && box != HStart_) AbandonTyping(state_, display_);
  return kind != BoxKey::kTyping;
}

void PositionPanel::Commit(const QObject* box) {
  if (box == HStart_) EnterHStart(state_, display_, HStart_->Text());
  if (box == HEnd_) EnterHEnd(state_, display_, HEnd_->Text());
  if (box == Dstart_) EnterDstart(state_, display_, Dstart_->Text());
  if (box == Dend_) EnterDend(state_, display_, Dend_->Text());
}

bool PositionPanel::IsHexBox(const QObject* box) const {
  return box == HStart_ || box == HEnd_;
}

void PositionPanel::SetHexMode(bool hex) {
  state_.HexMode = hex;
  AbandonTyping(state_, display_);
}

}  // namespace bwp
