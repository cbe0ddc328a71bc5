#include "splitjoin/names_text.h"

#include <algorithm>

#include "viewer/run_time_error.h"

namespace bwp {
namespace {

constexpr char kQuote = '"';

std::string WithoutBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

bool CanBeQuoted(const std::vector<std::string>& names) {
  return std::none_of(names.begin(), names.end(),
                      [](const std::string& name) { return name.find(kQuote) != std::string::npos; });
}

std::string NamesText(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += kQuote + name + kQuote + ' ';
  return text;
}

std::string QuotedNames(const std::string& typed) {
  const std::string names = WithoutBlanks(typed);
  std::string text;
  if (names.empty() || names.front() != kQuote) text += kQuote;
  text += names;
  if (names.empty() || names.back() != kQuote) text += kQuote;
  return text;
}

std::vector<std::string> ParseNames(const std::string& text) {
  std::vector<std::string> names;
  std::size_t open = text.find(kQuote);
  while (open != std::string::npos) {
    const std::size_t close = text.find(kQuote, open + 1);
    if (close == std::string::npos) throw MakeRunTimeError(kInvalidProcedureCall);
    names.push_back(text.substr(open + 1, close - open - 1));
    open = text.find(kQuote, close + 1);
  }
  return names;
}

}  // namespace bwp
