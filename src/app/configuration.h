#pragma once

#include <string>
#include <string_view>

#include "fileops/disk.h"

namespace bwp {

/// What the program remembers between two runs.
struct Configuration {
  bool hexMode = true;
  int acceleration = 4;          ///< See ViewState::AccelMode.
  std::string lastFolder = "/";  ///< Ends with a separator.
};

/// The name of the file that holds it, in the folder that is current when the program starts.
inline constexpr const char* kConfigurationName = "Bytewarp.cfg";

/// The one line of the file: a boolean between number signs, a number, a text between double quotes. The
/// folder stands in it byte for byte; it ends at the last quote, so that it may hold quotes and commas
/// itself.
std::string ConfigurationText(const Configuration& configuration);

/// Reads that line. Throws error 62 where it ends too early, 13 where a field is not what it should be, 6 for
/// a number that 16 bits cannot hold.
Configuration ReadConfiguration(std::string_view text);

/// Reads the file; the defaults when there is none. Throws as ReadConfiguration does.
Configuration LoadConfiguration(const std::string& path);

/// Replaces the file, keeping its permissions; on failure the old one stays whole. Only where its folder
/// takes no new files is it written over in place. Throws the platform's file error.
void SaveConfiguration(const Disk& disk, const std::string& path, const Configuration& configuration);

}  // namespace bwp
