#pragma once

#include <string>

#include "viewer/display.h"
#include "viewer/notices.h"
#include "viewer/view_state.h"

namespace bwp {

/// Opens a file for viewing: it becomes OpenFile, is marked whole and shown from its start (an empty file
/// leaves marks and page start as they are), and the thumb is sized for it. Throws the platform's file error.
void OpenViewFile(ViewState& state, const std::string& path);

/// Opens OpenFile anew after the program changed it: handle, length and thumb are renewed, the marks and the
/// page start stay. Of a file longer than kMaxFileLength the beginning is shown. Throws the platform's file
/// error.
void ReopenViewFile(ViewState& state);

/// What opening a path would meet.
enum class FileOffer {
  kOpened,   ///< It is the open file now; its length may be 0.
  kNoFile,   ///< It names no regular file; nothing was done.
  kTooLarge  ///< It is longer than kMaxFileLength; that was told, and what was open stays open.
};

/// Opens the path if it is a file that can be shown. A file that is there and cannot be opened throws.
FileOffer OfferFile(ViewState& state, Notices& notices, const std::string& path);

/// Opens the file that a person named and shows it: its folder becomes LastFolder, and whatever was being
/// typed about another file is over. False where there is none that can be shown, which was told. Throws as
/// OfferFile does.
bool OpenAndShow(ViewState& state, Display& display, Notices& notices, const std::string& path);

/// As OpenAndShow, for a dialog in which another file can be chosen: an empty file is opened, too, but told,
/// and the answer is false.
bool LoadAndShow(ViewState& state, Display& display, Notices& notices, const std::string& path);

/// Tells that a file is, or would become, longer than the program can show.
void TellTooLarge(Notices& notices);

/// Sizes the thumb for the open file in a track of that inner height (form units) and moves it to the page.
void FitThumb(ViewState& state, double trackHeight);

}  // namespace bwp
