#include "splitjoin/split_join_job.h"

#include "splitjoin/names_text.h"
#include "viewer/number_text.h"
#include "viewer/paths.h"

namespace bwp {

std::string PrepareSplit(SplitJoinJob& job, const std::string& folder, const std::string& baseName) {
  job.confirmed = false;
  job.names = funzioni::PathIn(folder, baseName);
  if (funzioni::FileExists(job.names)) {
    job.action = kDeleteAndSplitAction;
    return "Warning, file " + job.names +
           " exist, going ahead will delete it and every other files of the previous splitting";
  }
  job.action = kSplitAction;
  return "Split current file ?";
}

std::string PrepareJoin(SplitJoinJob& job, const std::string& folder, const std::string& typedNames,
                        const std::string& destination) {
  job.confirmed = false;
  job.names = QuotedNames(typedNames);
  job.destination = funzioni::PathIn(folder, destination);
  if (funzioni::FileExists(job.destination)) {
    job.action = kDeleteAndJoinAction;
    return "Warning, file " + job.destination + " exists, do you want to overwrite ? ";
  }
  job.action = kJoinAction;
  return "Join files as " + job.destination + " ? ";
}

std::optional<std::string> PreparePickedJoin(SplitJoinJob& job, Notices& notices, const std::string& folder,
                                             const std::vector<std::string>& names,
                                             const std::string& destination) {
  if (!CanBeQuoted(names)) {
    notices.Tell("A file whose name holds a double quote cannot be joined", kErrorTitle,
                 Notices::Icon::kCritical);
    return std::nullopt;
  }
  return PrepareJoin(job, folder, NamesText(names), destination);
}

std::string SplitTitle(const std::string& openFile, std::int64_t partSize) {
  return "Split file: " + openFile + " in chunks of " + funzioni::SignPadded(partSize) + " Bytes";
}

}  // namespace bwp
