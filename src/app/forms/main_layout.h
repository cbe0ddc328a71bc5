#pragma once

#include <QMainWindow>

#include "fileops/services.h"
#include "viewer/view_state.h"

class QPushButton;

namespace bwp {

class BufferButtons;
class ChunkPanel;
class EditController;
class PageTable;
class PositionPanel;
class Ruler;
class ScrollBarWidget;
class SearchPanel;

/// The main form's controls and their layout: the page with its ruler and its scroll bar at the left, the
/// panels at the right in the order in which they are used.
struct MainLayout {
  MainLayout(QMainWindow& window, ViewState& state, const Services& services);

  Ruler* ruler;
  PageTable* page;
  ScrollBarWidget* scrollBar;

  QPushButton* opn;
  EditController* edit;
  PositionPanel* position;
  ChunkPanel* chunk;
  BufferButtons* buffer;
  SearchPanel* search;
};

}  // namespace bwp
