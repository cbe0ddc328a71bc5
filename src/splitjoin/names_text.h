#pragma once

#include <string>
#include <vector>

/// The names of the files to join, as one text: each name between double quotes.
namespace bwp {

/// Whether a text can hold these names: the quotes around a name cannot be told from one inside it.
bool CanBeQuoted(const std::vector<std::string>& names);

/// The text for names in their order, each quoted and followed by one blank.
std::string NamesText(const std::vector<std::string>& names);

/// The text as it is handed to the worker: without blanks at its ends, and with a quote at either end that
/// has none, so that a single typed name becomes a quoted one.
std::string QuotedNames(const std::string& typed);

/// The names between the quotes, up to a closing quote that ends the text. Throws error 5 for a quote that is
/// not closed.
std::vector<std::string> ParseNames(const std::string& text);

}  // namespace bwp
