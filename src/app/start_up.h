#pragma once

#include <string>
#include <vector>

#include "app/configuration.h"
#include "viewer/view_state.h"

namespace bwp {

/// The folder that is current now, with a separator at its end: where the configuration file lives. The
/// configuration follows the working directory, not the program's file. Throws the platform's file error.
std::string CurrentFolder();

/// The arguments after the program's name as one command-line text: joined by spaces.
std::string CommandLineText(const std::vector<std::string>& arguments);

/// Puts what was remembered into the view state.
void ApplyConfiguration(const Configuration& configuration, ViewState& state);

/// What is to be remembered of the view state.
Configuration ConfigurationOf(const ViewState& state);

}  // namespace bwp
