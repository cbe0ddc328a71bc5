#include "app/forms/main_layout.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "fileops/forms/buffer_buttons.h"
#include "interaction/forms/chunk_panel.h"
#include "interaction/forms/scroll_bar_widget.h"
#include "viewer/forms/page_table.h"
#include "viewer/forms/position_panel.h"
#include "viewer/forms/ruler.h"

namespace bwp {
namespace {

QPushButton* MakeButton(const QString& name, const QString& caption, const QString& tip) {
  auto* const button = new QPushButton(caption);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  return button;
}

}  // namespace

MainLayout::MainLayout(QWidget& centre, ViewState& state, Display& display)
    : ruler(new Ruler(&centre)),
      page(new PageTable(state.tabe, &centre)),
      scrollBar(new ScrollBarWidget(state, display, &centre)),
      opn(MakeButton(QStringLiteral("opn"), QStringLiteral("Open"), QStringLiteral("Open a file"))),
      position(new PositionPanel(state, display, &centre)),
      chunk(new ChunkPanel(state, display, &centre)),
      buffer(new BufferButtons(&centre)) {
  chunk->AddBelow(*buffer);
  auto* const panels = new QVBoxLayout;
  panels->addWidget(opn, 0, Qt::AlignLeft);
  panels->addWidget(position);
  panels->addWidget(chunk);
  panels->addStretch(1);

  auto* const grid = new QGridLayout(&centre);
  grid->setHorizontalSpacing(0);
  grid->setVerticalSpacing(0);
  grid->addWidget(ruler, 0, 0);
  grid->addWidget(page, 1, 0);
  grid->addWidget(scrollBar, 1, 1);
  grid->setColumnMinimumWidth(2, 12);
  grid->addLayout(panels, 0, 3, 3, 1);
  // The page has its size; what a larger window has to spare goes around it.
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(2, 1);
}

}  // namespace bwp
