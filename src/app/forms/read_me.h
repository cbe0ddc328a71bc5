#pragma once

#include <string>

#include "viewer/notices.h"

namespace bwp {

/// The path of the guide installed with the program; the file may be missing.
std::string InstalledReadMe();

/// Opens the user's guide in the desktop's text viewer: the readme.txt of the folder that the program was
/// started in, or else the installed one. Reports if there is none or no program to show it.
void ShowReadMe(const std::string& progFolder, Notices& notices,
                const std::string& installed = InstalledReadMe());

}  // namespace bwp
