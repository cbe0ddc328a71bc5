#pragma once

#include <string>
#include <vector>

/// The names of the files to join, as one text with each name in double quotes.
namespace bwp {

/// Whether such a text can hold these names: a quote inside a name could not be told from those around it.
bool CanBeQuoted(const std::vector<std::string>& names);

/// The text for names in that order, each quoted and followed by one blank.
std::string NamesText(const std::vector<std::string>& names);

/// The text as the worker needs it: without leading and trailing blanks, and with a quote added at either end
/// that has none, so that a single typed name becomes a quoted one.
std::string QuotedNames(const std::string& typed);

/// The names between the quotes. Throws error 5 for a quote that is not closed.
std::vector<std::string> ParseNames(const std::string& text);

}  // namespace bwp
