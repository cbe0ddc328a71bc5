#include "viewer/group_emphasis.h"

#include "viewer/number_text.h"

namespace bwp {

std::vector<EmphasisRun> GroupEmphasis(int textLength, int groupSize, std::optional<Colour> colourA,
                                       std::optional<Colour> colourB, bool emphasis) {
  const bool colouring = colourA.has_value() || colourB.has_value();
  std::vector<EmphasisRun> runs;
  int remaining = textLength;
  bool toggle = true;
  do {
    EmphasisRun run;
    run.start = static_cast<int>(funzioni::MaxOf({0, remaining - groupSize}));
    run.length = static_cast<int>(funzioni::MinOf({groupSize, remaining}));
    if (colouring) run.colour = (toggle ? colourA : colourB).value_or(0);
    run.bold = !toggle && emphasis;
    runs.push_back(run);
    toggle = !toggle;
    remaining -= groupSize;
  } while (remaining >= 1);
  return runs;
}

}  // namespace bwp
