#pragma once

#include <vector>

#include "viewer/group_emphasis.h"

class QTextEdit;

namespace bwp {

/// Applies the runs, of which there is at least one, to a box's text, and leaves no selection.
void ApplyEmphasis(QTextEdit& box, const std::vector<EmphasisRun>& runs);

}  // namespace bwp
