#include "viewer/group_emphasis.h"

#include <algorithm>

namespace bwp {

std::vector<EmphasisRun> GroupEmphasis(int textLength, int groupSize, std::optional<Colour> colourA,
                                       std::optional<Colour> colourB, bool emphasis) {
  const bool colouring = colourA.has_value() || colourB.has_value();
  std::vector<EmphasisRun> runs;
  int remaining = textLength;
  bool toggle = true;
  do {
    EmphasisRun run;
    run.start = std::max(0, remaining - groupSize);
    run.length = std::min(groupSize, remaining);
    if (colouring) run.colour = (toggle ? colourA : colourB).value_or(0);
    run.bold = !toggle && emphasis;
    runs.push_back(run);
    toggle = !toggle;
    remaining -= groupSize;
  } while (remaining >= 1);
  return runs;
}

}  // namespace bwp
