#include "fileops/buffer_operations.h"

#include <cstdint>
#include <exception>
#include <optional>
#include <utility>

#include "fileops/file_system.h"
#include "fileops/open_file_guard.h"
#include "fileops/replace_file.h"
#include "fileops/shown_file.h"
#include "fileops/temporary_file.h"
#include "viewer/number_text.h"
#include "viewer/open_view_file.h"
#include "viewer/refresh.h"
#include "viewer/run_time_error.h"

namespace bwp {
namespace {

using FileSystem::ReadStream;
using FileSystem::WriteStream;
using funzioni::SignPadded;

// The chunk's last byte that is there.
std::int64_t LastByteOf(const ViewState& state) {
  return funzioni::MinOf({state.MarkEnd, state.FLen - 1});
}

// The steps that a cut or an insert announces, one after the other.
class Steps {
 public:
  Steps(Progress& progress, std::string prefix, int total)
      : progress_(progress), prefix_(std::move(prefix)), total_(total) {}

  void Begin(const std::string& label) {
    progress_.SetCaption(prefix_ + "Step " + SignPadded(++step_) + " of " + SignPadded(total_));
    progress_.SetLabel(label);
    progress_.LetEventsRun();
  }

 private:
  Progress& progress_;
  std::string prefix_;
  int total_;
  int step_ = 0;
};

// Writes the file without the chunk, and the chunk into the text.
void WriteWithoutChunk(const ViewState& state, Progress& progress, ReadStream& old, WriteStream output,
                       std::string& chunk) {
  const std::int64_t head = state.MarkStart;
  const std::int64_t last = LastByteOf(state);
  const std::int64_t tail = state.FLen - 1 - last;
  Steps steps(progress, "", 1 + (head > 0 ? 1 : 0) + (tail > 0 ? 1 : 0));
  progress.Show();
  progress.LetEventsRun();
  if (head > 0) {
    steps.Begin("Copying from  0 to MarkStart-1");
    StreamCopy(progress, old, output, head);
    progress.SetBar(0);
  }
  steps.Begin("Cutting to Buffer from MarkStart to MarkEnd");
  StreamReadText(progress, old, chunk, last - head + 1);
  progress.SetBar(0);
  if (tail > 0) {
    steps.Begin("Copying from MarkEnd to end of file");
    StreamCopy(progress, old, output, tail);
    progress.SetBar(0);
  }
  output.Close();
}

// Where an insert goes and what its labels call that.
struct Place {
  std::int64_t split = 0;  // Bytes of the old file before the Buffer.
  std::string head, name, tail;
};

Place PlaceOf(const ViewState& state, const std::string& mode) {
  Place place;
  if (mode == "bms") place = {state.MarkStart, "MarkStart-1", "BEFORE MarkStart", "MarkStart"};
  if (mode == "ams") place = {state.MarkStart + 1, "MArkStart", "AFTER MarkStart", "MarkStart+1"};
  if (mode == "app") place = {state.FLen, "End Of File", "End Of File", ""};
  // A mark may lie past the end.
  place.split = funzioni::MinOf({place.split, state.FLen});
  return place;
}

// Writes the file with the Buffer in it.
void WriteWithBuffer(const ViewState& state, Progress& progress, ReadStream& old, WriteStream output,
                     const Place& place) {
  const std::int64_t tail = state.FLen - place.split;
  Steps steps(progress, "Insert Buffer, ", 1 + (place.split > 0 ? 1 : 0) + (tail > 0 ? 1 : 0));
  progress.LetEventsRun();
  if (place.split > 0) {
    steps.Begin("Copying from  0 to " + place.head);
    StreamCopy(progress, old, output, place.split);
  }
  steps.Begin("Copying Buffer to " + place.name);
  StreamWriteText(progress, output, state.BufferData);
  if (tail > 0) {
    steps.Begin("Copying from " + place.tail + " to end of file");
    StreamCopy(progress, old, output, tail);
  }
  output.Close();
}

// After a rewrite that had to leave its content there, the open file may be the temporary file itself.
ScratchFile OpenTemporaryFileFor(const ViewState& state, const Disk& disk) {
  RefuseToOverwriteOpenFile(state, TemporaryPath());
  return OpenTemporaryFile(disk);
}

bool WouldBeTooLarge(const ViewState& state) {
  return state.FLen + static_cast<std::int64_t>(state.BufferData.size()) > kMaxFileLength;
}

// The old text's memory is given back at once: a move would copy a short text into it and keep it all.
void PutIntoBuffer(ViewState& state, std::string& chunk, bool isCut) {
  state.BufferData.swap(chunk);
  std::string().swap(chunk);
  state.BufferIsCut = isCut;
}

// Puts the written content under the file's name. When that was cancelled or another program changed the
// file, it reports so and returns nothing.
std::optional<FileReplacement::Outcome> PutInPlace(ViewState& state, const Services& services,
                                                   FileReplacement& replacement, ScratchFile& content,
                                                   const std::string& aborted) {
  Progress& progress = services.progress;
  replacement.Prepare(progress, content);
  progress.Hide();
  if (progress.Aborted()) {
    replacement.Discard(content);
    services.notices.Tell(aborted);
    progress.ClearAbort();
    return std::nullopt;
  }
  const FileReplacement::Outcome outcome = replacement.Commit();
  if (outcome != FileReplacement::Outcome::kTargetChanged) return outcome;
  replacement.Discard(content);
  TellChanged(state, services);
  return std::nullopt;
}

// Goes on with the file under the name that it has now. A new name is reported before anything can end the
// program, but after the wait for the folder: the message may be left unread for hours. It comes in two
// spellings of the cause.
void ShowRewritten(ViewState& state, const Services& services, const FileReplacement& replacement,
                   FileReplacement::Outcome outcome, const std::string& cause) {
  std::exception_ptr failure;
  try {
    replacement.SyncFolder();
  } catch (const RunTimeError&) {
    failure = std::current_exception();
  }
  if (outcome == FileReplacement::Outcome::kStandsAsNew) {
    const std::string newPath = state.OpenFile + ".new";
    services.notices.Tell("There is a SYSTEM ERROR " + cause +
                          " by windows preview!  Your file has been renamed as '" + newPath + "'");
    state.OpenFile = newPath;
  }
  if (failure) std::rethrow_exception(failure);
  ReopenViewFile(state);
  Refresh(state, services.display);
}

}  // namespace

void CopyChunk(ViewState& state, const Services& services) {
  Progress& progress = services.progress;
  ReadStream file(state.OpenFile);
  if (!HoldsWhatIsShown(state, VersionOf(file))) return TellChanged(state, services);
  // The marks may be moved while events run.
  const std::int64_t first = state.MarkStart;
  const std::int64_t last = LastByteOf(state);
  if (first > last) return TellNoByte(services.notices);

  progress.SetCaption("Seeking MarkStart");
  progress.SetLabel("Wait please");
  progress.Show();
  progress.LetEventsRun();
  StreamSkip(progress, file, first);
  progress.SetCaption("Copy");
  progress.SetLabel("Copying Chunk to Buffer");
  progress.LetEventsRun();
  std::string chunk;
  StreamReadText(progress, file, chunk, last - first + 1);
  progress.SetBar(0);
  progress.Hide();
  if (progress.Aborted()) {
    services.notices.Tell("Copy aborted");
  } else {
    PutIntoBuffer(state, chunk, false);
  }
  Refresh(state, services.display);
  progress.ClearAbort();
}

void CutChunk(ViewState& state, const Services& services) {
  ReadStream old(state.OpenFile);
  FileReplacement replacement(services.disk, old);
  if (!IsAsShown(state, replacement.Old())) return TellChanged(state, services);
  if (state.MarkStart > LastByteOf(state)) return TellNoByte(services.notices);

  ScratchFile temporary = OpenTemporaryFileFor(state, services.disk);
  std::string chunk;
  WriteWithoutChunk(state, services.progress, old, temporary.Writer(), chunk);
  const auto outcome = PutInPlace(state, services, replacement, temporary, "Cut Aborted");
  if (!outcome) return;
  // From here on the chunk is nowhere else: whatever fails now, the Buffer has it.
  PutIntoBuffer(state, chunk, true);
  temporary.Release();
  ShowRewritten(state, services, replacement, *outcome, "cause");
  services.progress.ClearAbort();
}

void InsertBuffer(ViewState& state, const Services& services, const std::string& mode) {
  Progress& progress = services.progress;
  ReadStream old(state.OpenFile);
  FileReplacement replacement(services.disk, old);
  if (!IsAsShown(state, replacement.Old())) return TellChanged(state, services);
  if (WouldBeTooLarge(state)) return TellTooLarge(services.notices);

  progress.SetCaption("Insert Buffer");
  progress.Show();
  ScratchFile temporary = OpenTemporaryFileFor(state, services.disk);
  WriteWithBuffer(state, progress, old, temporary.Writer(), PlaceOf(state, mode));
  const auto outcome = PutInPlace(state, services, replacement, temporary, "Insert aborted");
  if (!outcome) return;
  temporary.Release();
  ShowRewritten(state, services, replacement, *outcome, "caused");
  services.notices.Tell("Insert Successful");
  progress.ClearAbort();
}

}  // namespace bwp
