#pragma once

#include <string>
#include <string_view>

#include "fileops/disk.h"

namespace bwp {

/// What the program remembers between runs.
struct Configuration {
  bool hexMode = true;
  int acceleration = 4;          ///< See ViewState::AccelMode.
  std::string lastFolder = "/";  ///< Ends with a separator.
};

/// The name of the configuration file, in the folder that is current when the program starts.
inline constexpr const char* kConfigurationName = "Bytewarp.cfg";

/// The file's single line: a boolean between number signs, a number, a text between double quotes. The folder
/// is written byte for byte and ends at the last quote, so that it may contain quotes and commas.
std::string ConfigurationText(const Configuration& configuration);

/// Reads that line. Throws error 62 if it ends too early, 13 if a field is malformed, 6 if the number does
/// not fit 16 bits.
Configuration ReadConfiguration(std::string_view text);

/// Reads the file; the defaults when there is none. Throws as ReadConfiguration does.
Configuration LoadConfiguration(const std::string& path);

/// Replaces the file, keeping its permissions; on failure the old one stays intact. Only if its folder
/// accepts no new files is it overwritten in place. Throws RunTimeError.
void SaveConfiguration(const Disk& disk, const std::string& path, const Configuration& configuration);

}  // namespace bwp
