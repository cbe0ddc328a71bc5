#pragma once

#include <string>

#include "fileops/disk.h"
#include "viewer/view_state.h"

namespace bwp {

/// The bytes that the grid's value cells stand for, from the page's start to its end or the file's.
std::string PageBytes(const ViewState& state);

/// Writes the page as the grid shows it over the same bytes of the open file, and sees it safely on the
/// disk. No other byte changes and the file keeps its length. False, and nothing is written, when another
/// program replaced the file or changed its length. Throws RunTimeError, with the path, when the file
/// cannot be opened, written, synced or closed.
bool WriteBackPage(const ViewState& state, const Disk& disk);

}  // namespace bwp
