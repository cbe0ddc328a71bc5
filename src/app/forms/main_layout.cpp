#include "app/forms/main_layout.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "fileops/forms/buffer_buttons.h"
#include "interaction/forms/chunk_panel.h"
#include "interaction/forms/edit_controller.h"
#include "interaction/forms/page_menu.h"
#include "interaction/forms/scroll_bar_widget.h"
#include "interaction/forms/search_panel.h"
#include "viewer/forms/page_table.h"
#include "viewer/forms/position_panel.h"
#include "viewer/forms/ruler.h"
#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

QPushButton* MakeOpenButton() {
  auto* const button = new QPushButton(QStringLiteral("Open"));
  Name(*button, QStringLiteral("opn"), QStringLiteral("Open a file"), QStringLiteral("Open a file"));
  return button;
}

QVBoxLayout* ArrangePanels(const MainLayout& controls) {
  controls.chunk->AddBelow(*controls.buffer);
  auto* const first = new QHBoxLayout;
  first->addWidget(controls.opn);
  first->addStretch();
  first->addWidget(controls.edit);

  // Each group keeps clear of the heading of the next.
  constexpr int kBetweenGroups = 12;
  auto* const panels = new QVBoxLayout;
  panels->setSpacing(kBetweenGroups);
  panels->addLayout(first);
  panels->addWidget(controls.position);
  panels->addWidget(controls.chunk);
  panels->addWidget(controls.search);
  panels->addStretch(1);
  return panels;
}

}  // namespace

MainLayout::MainLayout(QMainWindow& window, ViewState& state, const Services& services) {
  auto* const centre = new QWidget(&window);
  window.setCentralWidget(centre);
  opn = MakeOpenButton();
  position = new PositionPanel(state, services.display, centre);
  chunk = new ChunkPanel(state, services.display, centre);
  buffer = new BufferButtons(centre);
  search = new SearchPanel(state, services, centre);
  ruler = new Ruler(centre);
  page = new PageTable(state.tabe, centre);
  scrollBar = new ScrollBarWidget(state, services.display, centre);
  auto* const pageMenu = new PageMenu(state, services.display, *page, window);
  edit = new EditController(state, services, *page, *pageMenu, window, centre);

  auto* const grid = new QGridLayout(centre);
  grid->setHorizontalSpacing(0);
  grid->setVerticalSpacing(0);
  grid->addWidget(ruler, 0, 0);
  grid->addWidget(page, 1, 0);
  grid->addWidget(scrollBar, 1, 1);
  constexpr int kGap = 12;
  grid->setColumnMinimumWidth(2, kGap);
  grid->addLayout(ArrangePanels(*this), 0, 3, 3, 1);
  // The page has a fixed size; the extra space of a larger window goes around it.
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(2, 1);
}

}  // namespace bwp
