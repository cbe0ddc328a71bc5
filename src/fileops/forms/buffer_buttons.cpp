#include "fileops/forms/buffer_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

QPushButton* AddButton(QHBoxLayout& row, const QString& name, const QString& caption, const QString& tip) {
  auto* const button = new QPushButton(caption);
  Name(*button, name, tip, tip);
  row.addWidget(button);
  return button;
}

}  // namespace

BufferButtons::BufferButtons(QWidget* parent) : QWidget(parent) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  cop =
      AddButton(*row, QStringLiteral("cop"), QStringLiteral("Copy"), QStringLiteral("Copy Chunk to Buffer"));
  Cut = AddButton(*row, QStringLiteral("Cut"), QStringLiteral("Cut"), QStringLiteral("Cut Chunk to Buffer"));
  Paste = AddButton(*row, QStringLiteral("Paste"), QStringLiteral("Insert to MS"),
                    QStringLiteral("Insert Buffer before Mark Start"));
}

}  // namespace bwp
