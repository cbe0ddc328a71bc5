#include "fileops/shown_file.h"

#include "viewer/open_view_file.h"
#include "viewer/refresh.h"

namespace bwp {

bool IsAsShown(const ViewState& state, const FileVersion& version) {
  return version.identity == state.file.Identity() && version.length == state.FLen;
}

bool HoldsWhatIsShown(const ViewState& state, const FileVersion& version) {
  return version.identity == state.file.Identity() && version.length >= state.FLen;
}

void TellChanged(ViewState& state, const Services& services) {
  services.notices.Tell("The file was changed by another program", kErrorTitle, Notices::Icon::kCritical);
  ReopenViewFile(state);
  if (state.file.Length() > kMaxFileLength) TellTooLarge(services.notices);
  Refresh(state, services.display);
}

void TellNoByte(Notices& notices) {
  notices.Tell("The chunk holds no byte of the file", kErrorTitle, Notices::Icon::kCritical);
}

}  // namespace bwp
