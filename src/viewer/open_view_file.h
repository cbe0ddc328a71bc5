#pragma once

#include <string>

#include "viewer/display.h"
#include "viewer/notices.h"
#include "viewer/view_state.h"

namespace bwp {

/// Opens a file for viewing: it becomes OpenFile, is marked as a whole and shown from its start (an empty
/// file leaves the marks and the page start as they are), and the thumb is sized for it. Throws RunTimeError.
void OpenViewFile(ViewState& state, const std::string& path);

/// Opens OpenFile again after the program changed it: updates the handle, the length and the thumb, and keeps
/// the marks and the page start. Of a file longer than kMaxFileLength only the beginning is shown. Throws
/// RunTimeError.
void ReopenViewFile(ViewState& state);

/// The result of OfferFile.
enum class FileOffer {
  kOpened,   ///< The file is now open; its length may be 0.
  kNoFile,   ///< The path is not a regular file; nothing was done.
  kTooLarge  ///< It is longer than kMaxFileLength, which was reported; the file open before stays open.
};

/// Opens the path if it is a file that can be shown. Throws RunTimeError if the file exists but cannot be
/// opened.
FileOffer OfferFile(ViewState& state, Notices& notices, const std::string& path);

/// Opens and shows the file that the user named: its folder becomes LastFolder, and typing into a box ends.
/// If the file cannot be shown, reports that and returns false. Throws as OfferFile does.
bool OpenAndShow(ViewState& state, Display& display, Notices& notices, const std::string& path);

/// As OpenAndShow, for a dialog in which another file can be chosen: an empty file is opened as well, but
/// reported, and the result is false.
bool LoadAndShow(ViewState& state, Display& display, Notices& notices, const std::string& path);

/// Reports that a file is, or would become, longer than the program can show.
void TellTooLarge(Notices& notices);

/// Sizes the thumb for the open file in a track of that inner height (form units) and moves it to the page's
/// position.
void FitThumb(ViewState& state, double trackHeight);

}  // namespace bwp
