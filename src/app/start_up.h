#pragma once

#include <string>
#include <vector>

#include "app/configuration.h"
#include "viewer/view_state.h"

namespace bwp {

/// The current folder, with a separator at its end. The configuration file is kept there, not beside the
/// program's file. Throws RunTimeError.
std::string CurrentFolder();

/// The arguments after the program's name, joined by spaces.
std::string CommandLineText(const std::vector<std::string>& arguments);

/// Copies the remembered settings into the view state.
void ApplyConfiguration(const Configuration& configuration, ViewState& state);

/// The settings of the view state to remember.
Configuration ConfigurationOf(const ViewState& state);

}  // namespace bwp
