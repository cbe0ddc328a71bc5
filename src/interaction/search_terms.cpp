#include "interaction/search_terms.h"

#include <algorithm>
#include <vector>

#include "viewer/number_text.h"

namespace bwp {
namespace {

constexpr std::int64_t kLargestByte = 255;

std::vector<std::string_view> Pieces(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::size_t start = text.find_first_not_of(' ');
  while (start != std::string_view::npos) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    pieces.push_back(text.substr(start, end - start));
    start = text.find_first_not_of(' ', end);
  }
  return pieces;
}

std::string HexTexts(std::string_view bytes) {
  std::string texts;
  for (const char byte : bytes) texts += funzioni::HexByte(static_cast<unsigned char>(byte)) + " ";
  return texts;
}

std::string DecimalTexts(std::string_view bytes) {
  std::string texts;
  for (const char byte : bytes) texts += std::to_string(static_cast<unsigned char>(byte)) + " ";
  return texts;
}

// Four or eight digits are read as a signed number, so that FFFF comes out below 0; as a byte it is too large
// like all the others.
char ByteOfHex(std::string_view piece) {
  const std::int64_t value = funzioni::ParseHex(piece);
  return static_cast<char>(value < 0 ? kLargestByte : funzioni::MinOf({value, kLargestByte}));
}

char ByteOfDecimal(std::string_view piece) {
  return static_cast<char>(funzioni::MinOf({funzioni::ParseDecimal(piece), kLargestByte}));
}

}  // namespace

void MirrorAtext(SearchFields& fields) {
  fields.Htext = HexTexts(fields.Atext);
  fields.Dtext = DecimalTexts(fields.Atext);
}

void MirrorHtext(SearchFields& fields) {
  fields.Atext.clear();
  const std::string text = funzioni::StripEdgeJunk(fields.Htext);
  for (const std::string_view piece : Pieces(text)) {
    if (funzioni::IsNumberText(piece, true)) fields.Atext += ByteOfHex(piece);
  }
  fields.Dtext = DecimalTexts(fields.Atext);
}

void MirrorDtext(SearchFields& fields) {
  fields.Atext.clear();
  const std::string text = funzioni::StripEdgeJunk(fields.Dtext);
  for (const std::string_view piece : Pieces(text)) {
    if (funzioni::IsNumberText(piece)) fields.Atext += ByteOfDecimal(funzioni::StripEdgeJunk(piece));
  }
  fields.Htext = HexTexts(fields.Atext);
}

std::string SearchTerm(std::string_view Dtext) {
  std::string term;
  for (const std::string_view piece : Pieces(Dtext)) term += ByteOfDecimal(piece);
  return term;
}

}  // namespace bwp
