#pragma once

#include <QWidget>

#include "viewer/display.h"
#include "viewer/view_state.h"

class QPushButton;

namespace bwp {

class BufferButtons;
class ChunkPanel;
class PageTable;
class PositionPanel;
class Ruler;
class ScrollBarWidget;

/// What the main form consists of and where it stands: the page with its ruler and its scroll bar at the
/// left, the panels at the right in the order in which they are used.
struct MainLayout {
  MainLayout(QWidget& centre, ViewState& state, Display& display);

  Ruler* ruler;
  PageTable* page;
  ScrollBarWidget* scrollBar;

  QPushButton* opn;
  PositionPanel* position;
  ChunkPanel* chunk;
  BufferButtons* buffer;
};

}  // namespace bwp
