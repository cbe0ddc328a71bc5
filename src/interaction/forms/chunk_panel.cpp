#include "interaction/forms/chunk_panel.h"

#include <algorithm>

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "viewer/forms/decimal_box.h"
#include "viewer/forms/keys.h"
#include "viewer/forms/offset_box.h"
#include "viewer/forms/widgets.h"
#include "viewer/position_entry.h"

namespace bwp {
namespace {

QPushButton* MakeGotoButton(const QString& name, const QString& toolTip, QWidget* parent) {
  auto* const button = new QPushButton(QStringLiteral("Goto"), parent);
  Name(*button, name, toolTip, toolTip);
  return button;
}

}  // namespace

ChunkPanel::ChunkPanel(ViewState& state, Display& display, QWidget* parent)
    : QGroupBox(QStringLiteral("Chunk"), parent),
      Gstart(MakeGotoButton(QStringLiteral("Gstart"), QStringLiteral("Goto Mark Start position"), this)),
      Gend(MakeGotoButton(QStringLiteral("Gend"), QStringLiteral("Goto Mark End position"), this)),
      state_(state),
      display_(display),
      rows_{{{new OffsetBox(QStringLiteral("MHStart"), QStringLiteral("Mark Start, hexadecimal"), this),
              new DecimalBox(QStringLiteral("mdstart"), QStringLiteral("Mark Start, decimal"), this),
              ChunkField::kMHStart, ChunkField::kMdStart},
             {new OffsetBox(QStringLiteral("MHEnd"), QStringLiteral("Mark End, hexadecimal"), this),
              new DecimalBox(QStringLiteral("mdend"), QStringLiteral("Mark End, decimal"), this),
              ChunkField::kMHEnd, ChunkField::kMdEnd},
             {new OffsetBox(QStringLiteral("MHSize"), QStringLiteral("Chunk size, hexadecimal"), this),
              new DecimalBox(QStringLiteral("Mdsize"), QStringLiteral("Chunk size, decimal"), this),
              ChunkField::kMHSize, ChunkField::kMdSize}}} {
  for (const Row& row : rows_) {
    row.hex->installEventFilter(this);
    row.decimal->installEventFilter(this);
  }
  connect(Gstart, &QPushButton::clicked, this, [this] { GotoMarkStart(state_, display_); });
  connect(Gend, &QPushButton::clicked, this, [this] { GotoMarkEnd(state_, display_); });
  LayOut();
}

void ChunkPanel::LayOut() {
  auto* const grid = new QGridLayout(this);
  grid->addWidget(new QLabel(QStringLiteral("Hex"), this), 0, 1);
  grid->addWidget(new QLabel(QStringLiteral("Dec"), this), 0, 2);
  const QString labels[] = {QStringLiteral("Start"), QStringLiteral("End"), QStringLiteral("Size")};
  QWidget* last = this;
  for (int i = 0; i < 3; ++i) {
    const Row& row = rows_[static_cast<std::size_t>(i)];
    grid->addWidget(new QLabel(labels[i], this), i + 1, 0);
    grid->addWidget(row.hex, i + 1, 1);
    grid->addWidget(row.decimal, i + 1, 2);
    setTabOrder(last, row.hex);
    setTabOrder(row.hex, row.decimal);
    last = row.decimal;
  }
  grid->setColumnStretch(4, 1);
  grid->addWidget(Gstart, 1, 3);
  grid->addWidget(Gend, 2, 3);
  setTabOrder(last, Gstart);
  setTabOrder(Gstart, Gend);
}

void ChunkPanel::AddBelow(QWidget& commands) {
  auto& grid = static_cast<QGridLayout&>(*layout());
  grid.addWidget(&commands, grid.rowCount(), 0, 1, grid.columnCount());
}

void ChunkPanel::ShowChunkTexts(const ChunkTexts& texts) {
  rows_[0].hex->ShowText(texts.MHStart);
  rows_[1].hex->ShowText(texts.MHEnd);
  rows_[2].hex->ShowText(texts.MHSize);
  rows_[0].decimal->ShowText(texts.mdstart);
  rows_[1].decimal->ShowText(texts.mdend);
  rows_[2].decimal->ShowText(texts.Mdsize);
}

bool ChunkPanel::eventFilter(QObject* watched, QEvent* event) {
  return event->type() == QEvent::KeyPress && KeyPressed(watched, static_cast<const QKeyEvent&>(*event));
}

// True when the box is not to see the key.
bool ChunkPanel::KeyPressed(const QObject* box, const QKeyEvent& key) {
  const BoxKey kind = BoxKeyOf(key);
  if (kind == BoxKey::kTab || kind == BoxKey::kHeld) return kind == BoxKey::kHeld;
  state_.FieldTyping = true;
  if (kind == BoxKey::kEnter) Commit(box);
  if (kind == BoxKey::kEscape) AbandonTyping(state_, display_);
  return kind == BoxKey::kEscape || (kind == BoxKey::kEnter && IsHexBox(box));
}

void ChunkPanel::Commit(const QObject* box) {
  for (const Row& row : rows_) {
    if (box == row.hex) EnterChunkField(state_, display_, row.hexField, row.hex->Text());
    if (box == row.decimal) {
      EnterChunkField(state_, display_, row.decimalField, row.decimal->Text());
    }
  }
}

bool ChunkPanel::IsHexBox(const QObject* box) const {
  return std::any_of(rows_.begin(), rows_.end(), [box](const Row& row) { return row.hex == box; });
}

}  // namespace bwp
