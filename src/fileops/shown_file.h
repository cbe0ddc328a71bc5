#pragma once

#include "fileops/replace_file.h"
#include "fileops/services.h"
#include "viewer/view_state.h"

/// Whether the open file is still what the person sees: other programs may change it at any time.
namespace bwp {

/// It is the same file and has the length that is shown: it may be rewritten.
bool IsAsShown(const ViewState& state, const FileVersion& version);

/// It is the same file and no shorter than shown: its bytes may be copied.
bool HoldsWhatIsShown(const ViewState& state, const FileVersion& version);

/// Reports that it was changed and shows it as it is now, up to the limit, which is reported too when it is
/// exceeded. Throws RunTimeError.
void TellChanged(ViewState& state, const Services& services);

/// Reports that the chunk lies past the end of the file.
void TellNoByte(Notices& notices);

}  // namespace bwp
