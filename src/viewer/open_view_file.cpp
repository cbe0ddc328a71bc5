#include "viewer/open_view_file.h"

#include <sys/stat.h>

#include "viewer/number_text.h"
#include "viewer/paths.h"
#include "viewer/refresh.h"

namespace bwp {
namespace {

// The handle, the length and an empty grid: what opening and re-opening have in common.
void TakeFile(ViewState& state) {
  state.file.Open(state.OpenFile);
  // The file may have grown past the limit since its length was checked.
  state.FLen = funzioni::MinOf({state.file.Length(), kMaxFileLength});
  state.tabe.Clear();
  state.hit = {};
  ++state.openings;
}

bool OpenNamed(ViewState& state, Notices& notices, const std::string& path) {
  const FileOffer offer = OfferFile(state, notices, path);
  if (offer == FileOffer::kNoFile) notices.Tell("File not found", kErrorTitle, Notices::Icon::kCritical);
  if (offer != FileOffer::kOpened) return false;
  state.LastFolder = funzioni::FolderOf(path);
  state.FieldTyping = false;
  return true;
}

}  // namespace

void OpenViewFile(ViewState& state, const std::string& path) {
  state.OpenFile = path;
  TakeFile(state);
  if (state.FLen != 0) {
    state.SWStart = 0;
    state.MarkStart = 0;
    state.MarkEnd = state.FLen - 1;
  }
  state.ScrollStep = 0;
  FitThumb(state, state.thumb.trackHeight);
  state.thumb.top = 0;
}

void ReopenViewFile(ViewState& state) {
  TakeFile(state);
  FitThumb(state, state.thumb.trackHeight);
}

FileOffer OfferFile(ViewState& state, Notices& notices, const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return FileOffer::kNoFile;
  if (status.st_size > kMaxFileLength) {
    TellTooLarge(notices);
    return FileOffer::kTooLarge;
  }
  OpenViewFile(state, path);
  return FileOffer::kOpened;
}

bool OpenAndShow(ViewState& state, Display& display, Notices& notices, const std::string& path) {
  if (!OpenNamed(state, notices, path)) return false;
  Refresh(state, display);
  return true;
}

bool LoadAndShow(ViewState& state, Display& display, Notices& notices, const std::string& path) {
  if (!OpenNamed(state, notices, path)) return false;
  if (state.FLen != 0) {
    Refresh(state, display);
    return true;
  }
  // An empty file gets no refresh, but nothing of the previous file may stay visible.
  display.SetRedraw(true);
  display.MoveThumb();
  display.ShowTitle(TitleText(state));
  notices.Tell("FIle has dimension 0", kErrorTitle, Notices::Icon::kCritical);
  return false;
}

void TellTooLarge(Notices& notices) {
  notices.Tell("File is too large (the limit is 2.147.483.647 bytes)", kErrorTitle, Notices::Icon::kCritical);
}

void FitThumb(ViewState& state, double trackHeight) {
  state.thumb.Fit(state.FLen, trackHeight);
  state.thumb.top = state.thumb.TopOf(state.SWStart);
}

}  // namespace bwp
