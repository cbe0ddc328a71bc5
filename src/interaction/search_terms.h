#pragma once

#include <string>
#include <string_view>

namespace bwp {

/// The texts of the three search fields, in the program's character set: the term as characters, as two-digit
/// hexadecimal bytes and as decimal bytes, each byte followed by a space. The person types into one of them;
/// the other two mirror it.
struct SearchFields {
  std::string Atext, Htext, Dtext;
};

/// Htext and Dtext from what Atext holds.
void MirrorAtext(SearchFields& fields);

/// Atext and Dtext from what Htext holds. Pieces that are no hexadecimal number are skipped; a piece above FF
/// counts as FF.
void MirrorHtext(SearchFields& fields);

/// Atext and Htext from what Dtext holds. Pieces that are no decimal number are skipped; a piece above 255
/// counts as 255.
void MirrorDtext(SearchFields& fields);

/// The bytes to search for, which Dtext alone decides: each piece between spaces is one byte; above 255 it is
/// 255, and what does not begin with a digit is 0. Empty when Dtext holds nothing but spaces.
std::string SearchTerm(std::string_view Dtext);

}  // namespace bwp
