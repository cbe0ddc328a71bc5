#pragma once

#include <string>

#include "viewer/notices.h"

namespace bwp {

/// Where the guide is that was installed with the program; it need not be there.
std::string InstalledReadMe();

/// Opens the user's guide in the desktop's text viewer: the readme.txt of the folder that the program was
/// started in, or the installed one where that folder has none. Reports when there is none to show or
/// nothing to show it with.
void ShowReadMe(const std::string& progFolder, Notices& notices,
                const std::string& installed = InstalledReadMe());

}  // namespace bwp
