#pragma once

#include <cstdint>

#include "fileops/services.h"
#include "fileops/stream_find.h"
#include "interaction/search_terms.h"
#include "viewer/view_state.h"

namespace bwp {

/// The search of the open file: finds the term, shows the page that holds it and colours its bytes. Each
/// further search goes on after the hit, in what the file holds by then, until the term is edited; after the
/// last hit it starts over. The main form owns the one instance.
class Search {
 public:
  /// The block is what one step of the search reads.
  explicit Search(std::int64_t block = FileSystem::kSearchBlock) : block_(block) {}

  /// The term was edited in one of the fields, by whatever means: the next search starts at the beginning,
  /// and the page keeps off the field.
  void TermTyped(ViewState& state);

  /// What Enter does in a field. The fields' mirrors must be level. Does nothing for an empty term or without
  /// a file. A file that another program cut short is shown as it is now instead of a hit. Throws
  /// RunTimeError when the file cannot be read.
  void Run(ViewState& state, const Services& services, const SearchFields& fields, bool NoCase);

  /// What the button `Find` does.
  void FindClicked(ViewState& state, const Services& services, const SearchFields& fields, bool NoCase);

  /// The next search starts at the beginning: the term was edited since the last one, or nothing was found.
  bool NewSearch = true;

 private:
  void RereadHeld(const ViewFile& file);
  std::int64_t FindNext(const ViewState& state, Progress& progress, const std::string& term, bool NoCase);

  std::int64_t block_;
  FileSystem::SearchState found_;
  std::int64_t position_ = 0;   // where in the file the next block is read
  bool startOver_ = true;       // the next search begins at the start of the file, edited or not
  std::uint64_t openings_ = 0;  // which opening of a file the search belongs to
};

}  // namespace bwp
