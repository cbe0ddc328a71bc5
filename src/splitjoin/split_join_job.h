#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "viewer/notices.h"

namespace bwp {

/// The action words: what the worker can be asked to do.
inline constexpr const char* kSplitAction = "split";
inline constexpr const char* kDeleteAndSplitAction = "del&split";
inline constexpr const char* kJoinAction = "join";
inline constexpr const char* kDeleteAndJoinAction = "del&join";

/// What the forms of the split and join tool hand to its worker.
struct SplitJoinJob {
  bool confirmed = false;   ///< The confirmation answer: OK starts the action on the next tick.
  std::string action;       ///< One of the action words; empty when there is none.
  std::string names;        ///< Split: the base name with its folder. Join: quoted names without folder.
  std::string destination;  ///< Join: where the result goes, with its folder.
};

/// Stores a split into parts with that base name and returns the question to ask first. An earlier answer no
/// longer counts: it did not confirm this job. If a file of exactly that name exists, the split first deletes
/// the parts of an earlier one. An absolute base name is taken as it is, like an absolute destination.
std::string PrepareSplit(SplitJoinJob& job, const std::string& folder, const std::string& baseName);

/// Stores a join of the typed names into a destination in that folder and returns the question to ask first.
/// Here too an earlier answer no longer counts. A destination that exists is deleted first.
std::string PrepareJoin(SplitJoinJob& job, const std::string& folder, const std::string& typedNames,
                        const std::string& destination);

/// The same for files that were picked from a list, in their order. If a name contains a double quote, which
/// could not be told from the quotes around it, this says so, stores nothing and returns no question.
std::optional<std::string> PreparePickedJoin(SplitJoinJob& job, Notices& notices, const std::string& folder,
                                             const std::vector<std::string>& names,
                                             const std::string& destination);

/// The title of the form that asks for the base name of the parts.
std::string SplitTitle(const std::string& openFile, std::int64_t partSize);

}  // namespace bwp
