#pragma once

#include <string>

namespace bwp {

/// The texts of the boxes for the Show Window's start and end (its last byte, or the file's length at the
/// end).
struct WindowTexts {
  std::string Dstart, Dend, HStart, HEnd;
};

/// The texts of the boxes for the chunk.
struct ChunkTexts {
  std::string mdstart, mdend, Mdsize, MHStart, MHEnd, MHSize;
};

/// Where a refresh shows its results: the main form in the program, a recorder in the tests. The grid's cells
/// and the thumb's position are read from the view state that both sides share.
class Display {
 public:
  virtual ~Display() = default;

  /// Off: cells are about to change; the program does nothing, as its page repaints only when told. On: the
  /// page shows the grid's current content.
  virtual void SetRedraw(bool on) = 0;
  /// The thumb's top or height changed.
  virtual void MoveThumb() = 0;
  /// The main form's caption; the file name in it is a byte string.
  virtual void ShowTitle(const std::string& title) = 0;
  /// Shows the ruler's labels in hexadecimal or decimal.
  virtual void ShowRuler(bool hex) = 0;
  virtual void ShowWindowTexts(const WindowTexts& texts) = 0;
  virtual void ShowChunkTexts(const ChunkTexts& texts) = 0;
  /// Gives the grid the focus if it is enabled.
  virtual void FocusGridIfEnabled() = 0;
  /// Handles the pending events and returns.
  virtual void LetEventsRun() = 0;
  /// Paints the page and handles events until the screen can show the next one.
  virtual void NextFrame() = 0;
};

}  // namespace bwp
