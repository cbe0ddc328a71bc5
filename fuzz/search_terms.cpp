#include "interaction/search_terms.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "require.h"

// Whatever is typed into one of the three search fields, the other two show the same bytes, and the search is
// for these.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string typed(reinterpret_cast<const char*>(data), size);

  bwp::SearchFields characters{typed, {}, {}};
  bwp::MirrorAtext(characters);
  Require(characters.Htext.size() == 3 * typed.size());
  Require(bwp::SearchTerm(characters.Dtext) == typed);

  bwp::SearchFields hex{{}, characters.Htext, {}};
  bwp::MirrorHtext(hex);
  Require(hex.Atext == typed && hex.Dtext == characters.Dtext);
  bwp::SearchFields decimal{{}, {}, characters.Dtext};
  bwp::MirrorDtext(decimal);
  Require(decimal.Atext == typed && decimal.Htext == characters.Htext);

  bwp::SearchFields typedHex{{}, typed, {}};
  bwp::MirrorHtext(typedHex);
  Require(bwp::SearchTerm(typedHex.Dtext) == typedHex.Atext && typedHex.Atext.size() <= size);
  bwp::SearchFields typedDecimal{{}, {}, typed};
  bwp::MirrorDtext(typedDecimal);
  Require(typedDecimal.Htext.size() == 3 * typedDecimal.Atext.size());
  Require(bwp::SearchTerm(typed).size() <= size);
  return 0;
}
