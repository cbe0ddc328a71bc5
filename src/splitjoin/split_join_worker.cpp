#include "splitjoin/split_join_worker.h"

#include <filesystem>

#include "fileops/file_system.h"
#include "fileops/open_file_guard.h"
#include "splitjoin/names_text.h"
#include "splitjoin/part_names.h"
#include "viewer/number_text.h"
#include "viewer/open_view_file.h"
#include "viewer/paths.h"
#include "viewer/refresh.h"
#include "viewer/run_time_error.h"

namespace bwp {
namespace {

using FileSystem::ReadStream;
using FileSystem::WriteStream;
using funzioni::MinOf;
using funzioni::SignPadded;

std::string StepOf(std::int64_t step, std::int64_t steps) {
  return ", step " + SignPadded(step) + " of " + SignPadded(steps);
}

// A part or a result must never overwrite the open file.
WriteStream Create(const ViewState& state, const Disk& disk, const std::string& path) {
  RefuseToOverwriteOpenFile(state, path);
  return {disk, path};
}

// Compared by identity or, if the first does not exist yet, by path.
bool SameFile(const std::string& one, const std::string& other) {
  const auto identity = IdentityOf(one);
  if (identity) return identity == IdentityOf(other);
  std::error_code failed;
  const auto place = std::filesystem::weakly_canonical(one, failed);
  return !failed && place == std::filesystem::weakly_canonical(other, failed);
}

}  // namespace

SplitJoinWorker::SplitJoinWorker(ViewState& state, const Services& services, const SplitPlan& plan,
                                 SplitJoinJob& job, SplitJoinWindows& windows)
    : state_(state), services_(services), plan_(plan), job_(job), windows_(windows) {}

void SplitJoinWorker::Tick() {
  if (!job_.confirmed) return;
  job_.confirmed = false;
  if (job_.action == kSplitAction) {
    Split();
  } else if (job_.action == kDeleteAndSplitAction) {
    DeleteOldParts();
  } else if (job_.action == kJoinAction) {
    Join();
  } else if (job_.action == kDeleteAndJoinAction) {
    DeleteDestination();
  }
}

void SplitJoinWorker::Split() {
  job_.action.clear();
  windows_.HideFsel();
  const std::int64_t partSize = plan_.PartSize();
  if (partSize <= 0) throw MakeRunTimeError(kDivisionByZero);
  WriteParts(partSize);
  services_.progress.Hide();
  services_.notices.Tell(services_.progress.Aborted() ? "Split aborted" : "Split successfully completed");
  services_.progress.ClearAbort();
}

void SplitJoinWorker::WriteParts(std::int64_t partSize) {
  Progress& progress = services_.progress;
  const std::int64_t total = state_.FLen;
  const PartNames names = SplitNames(job_.names);
  ReadStream source(state_.OpenFile);
  progress.Show();
  progress.SetBar(0);
  progress.LetEventsRun();

  const std::int64_t steps = total / partSize + MinOf({1, total % partSize});
  std::int64_t number = names.first;
  std::int64_t step = 1;
  std::int64_t done = 0;
  do {
    const std::string path = names.Name(number);
    WriteStream part = Create(state_, services_.disk, path);
    progress.SetCaption("Split file" + StepOf(step, steps));
    progress.SetLabel("Creating file " + funzioni::NameOf(path));
    FileSystem::StreamCopy(progress, source, part, MinOf({partSize, total - done}));
    progress.SetBar(0);
    done += partSize;
    ++number;
    ++step;
    part.Close();
  } while (done < total && !progress.Aborted());
}

void SplitJoinWorker::DeleteOldParts() {
  windows_.HideFsel();
  const PartNames names = DeletionNames(job_.names);
  // The first missing number ends it: parts of an earlier, longer split beyond a gap are kept.
  for (std::int64_t number = names.first;; ++number) {
    const std::string path = names.Name(number);
    if (!funzioni::FileExists(path)) break;
    DeleteUnlessOpen(state_, services_.disk, path);
  }
  job_.action = kSplitAction;
  job_.confirmed = true;
}

void SplitJoinWorker::DeleteDestination() {
  RefuseOwnSource(NamesToJoin());
  job_.confirmed = true;
  DeleteUnlessOpen(state_, services_.disk, job_.destination);
  job_.action = kJoinAction;
}

void SplitJoinWorker::Join() {
  windows_.HideDivide();
  const std::vector<std::string> names = NamesToJoin();
  RefuseOwnSource(names);
  // Another job may be prepared, in another folder too, while events run.
  const std::string folder = state_.LastFolder;
  const std::string destination = job_.destination;
  WriteResult(names, folder, destination);
  if (services_.progress.Aborted()) {
    services_.notices.Tell("Join aborted");
  } else {
    ShowResult(destination);
  }
  services_.progress.ClearAbort();
}

void SplitJoinWorker::WriteResult(const std::vector<std::string>& names, const std::string& folder,
                                  const std::string& destination) {
  Progress& progress = services_.progress;
  WriteStream result = Create(state_, services_.disk, destination);
  progress.SetCaption("Joining files");
  progress.Show();
  progress.LetEventsRun();
  const auto count = static_cast<std::int64_t>(names.size());
  std::int64_t step = 1;
  for (const std::string& name : names) {
    progress.SetCaption("Joining files" + StepOf(step, count));
    progress.SetLabel("Joining file " + name + " to " + funzioni::NameOf(destination));
    progress.LetEventsRun();
    ReadStream source(funzioni::PathIn(folder, name));
    FileSystem::StreamCopy(progress, source, result, source.Length());
    progress.SetBar(0);
    ++step;
  }
  progress.Hide();
  result.Close();
}

// The result becomes the open file, unless it is longer than the program can show.
void SplitJoinWorker::ShowResult(const std::string& destination) {
  const bool tooLarge = ReadStream(destination).Length() > kMaxFileLength;
  if (!tooLarge) OpenViewFile(state_, destination);
  windows_.HideFjoin();
  // A position that was being typed was meant for the previous file; it must not hold back this one's page.
  state_.FieldTyping = false;
  Refresh(state_, services_.display);
  if (tooLarge) {
    TellTooLarge(services_.notices);
  } else {
    services_.notices.Tell("Join successful");
  }
}

// The names as given; for a single one, that file and its successors up to the first that is missing.
std::vector<std::string> SplitJoinWorker::NamesToJoin() const {
  std::vector<std::string> names = ParseNames(job_.names);
  if (names.size() != 1) return names;
  // The number begins with the name's first digit, also with one in a folder that is part of the name. Only
  // in the folder of an absolute name it is not looked for.
  const std::string& first = names.front();
  const std::string folder = first.starts_with(funzioni::kSeparator) ? funzioni::FolderOf(first) : "";
  const PartNames parts = JoinNames(first.substr(folder.size()));
  for (std::int64_t number = parts.first + 1;; ++number) {
    const std::string name = folder + parts.Name(number);
    if (!funzioni::FileExists(funzioni::PathIn(state_.LastFolder, name))) return names;
    names.push_back(name);
  }
}

void SplitJoinWorker::RefuseOwnSource(const std::vector<std::string>& names) const {
  for (const std::string& name : names) {
    if (SameFile(funzioni::PathIn(state_.LastFolder, name), job_.destination)) {
      throw MakeRunTimeError(kPermissionDenied, job_.destination);
    }
  }
}

}  // namespace bwp
