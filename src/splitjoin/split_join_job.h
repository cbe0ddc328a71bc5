#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "viewer/notices.h"

namespace bwp {

/// The actions that the worker knows, by their words.
inline constexpr const char* kSplitAction = "split";
inline constexpr const char* kDeleteAndSplitAction = "del&split";
inline constexpr const char* kJoinAction = "join";
inline constexpr const char* kDeleteAndJoinAction = "del&join";

/// What the forms of the split and join tool leave for its worker.
struct SplitJoinJob {
  bool confirmed = false;   ///< The confirmation answer: OK starts the action on the next tick.
  std::string action;       ///< One of the action words; empty when there is none.
  std::string names;        ///< Split: the base name with its folder. Join: quoted names without folder.
  std::string destination;  ///< Join: where the result goes, with its folder.
};

/// Stores a split into the folder's parts of that base name and gives the question to ask first. An answer to
/// an earlier question is void: it was not this job that it confirmed. A file of exactly that name makes it a
/// split that deletes the parts of an earlier one. A base name that starts at the root stands for itself, as
/// a destination does.
std::string PrepareSplit(SplitJoinJob& job, const std::string& folder, const std::string& baseName);

/// Stores a join of the typed names into a destination in the same folder and gives the question to ask
/// first, voiding an earlier answer likewise. A destination that is there is deleted before.
std::string PrepareJoin(SplitJoinJob& job, const std::string& folder, const std::string& typedNames,
                        const std::string& destination);

/// The same for files that were picked from a list, in their order. A name that holds a double quote cannot
/// be told from the quotes around it: the person is told, nothing is stored and there is no question.
std::optional<std::string> PreparePickedJoin(SplitJoinJob& job, Notices& notices, const std::string& folder,
                                             const std::vector<std::string>& names,
                                             const std::string& destination);

/// The title under which the base name of the parts is asked for.
std::string SplitTitle(const std::string& openFile, std::int64_t partSize);

}  // namespace bwp
