#pragma once

#include <cstdint>
#include <string>

#include "viewer/page_grid.h"
#include "viewer/scroll_thumb.h"
#include "viewer/view_file.h"

namespace bwp {

/// The search hit that the page colours: `length` bytes from file offset `start`, none when length is 0.
struct SearchHit {
  std::int64_t start = 0;
  std::int64_t length = 0;
};

/// Everything that the program shows and works on. The main form owns the one instance; everything else gets
/// a reference. Positions are zero-based byte offsets into the open file.
struct ViewState {
  std::string OpenFile;        ///< Path of the open file; empty when no file is open.
  std::int64_t FLen = 0;       ///< Its length when it was opened or last changed by the program.
  std::int64_t SWStart = 0;    ///< First offset of the Show Window.
  std::int64_t SWPrev = 0;     ///< SWStart as the last refresh left it: the page on the screen.
  std::int64_t MarkStart = 0;  ///< First byte of the chunk.
  std::int64_t MarkEnd = 0;    ///< Last byte of the chunk; may lie past the end of the file.
  bool HexMode = true;         ///< Values and offsets in hexadecimal; else in decimal.

  std::string BufferData;    ///< The Buffer's bytes.
  bool BufferIsCut = false;  ///< The Buffer's bytes were cut: they may exist nowhere else.

  bool AutoScroll = false;      ///< A scroll button, the thumb or a key is held: the refresh repeats.
  std::int32_t ScrollStep = 0;  ///< Bytes that each pass of a refresh adds to SWStart.
  // Wide enough for a key that is held down for days at the end of the file.
  std::int64_t ScrollLimit = 0;  ///< Scrolled bytes that must be exceeded before the step doubles.
  std::int64_t ScrollCount = 0;  ///< Bytes scrolled since the refresh began.
  /// 0 to 4: how often a held scroll may double its step. Settings written by hand may hold another number;
  /// it means no acceleration and is kept until the menu sets another.
  int AccelMode = 0;

  bool FieldTyping = false;   ///< A box is being typed into or the page edited: no refresh.
  bool EditMode = false;      ///< The page is edited in the grid: it is neither moved nor refreshed.
  bool NavKeyHeld = false;    ///< The last key pressed was one that moves the page.
  bool ForceRefresh = false;  ///< A search moved the page: refresh although FieldTyping is set.

  std::string LastFolder = "/";  ///< The folder that the file dialogs show; ends with a separator.

  ViewFile file;      ///< The page display's handle on OpenFile.
  PageGrid tabe;      ///< What the grid shows.
  ScrollThumb thumb;  ///< The place of the scroll bar's thumb.
  SearchHit hit;      ///< The hit that the page colours.

  std::uint64_t openings = 0;  ///< Grows with every opening or re-opening: earlier search results are stale.
};

}  // namespace bwp
