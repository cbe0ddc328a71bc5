#include "fileops/file_system.h"

#include <new>
#include <stdexcept>

#include "fileops/percent.h"
#include "viewer/number_text.h"
#include "viewer/run_time_error.h"

namespace FileSystem {
namespace {

// The loop that all primitives share. moveBytes is given how many bytes are done and how many to move; it
// runs at least once, also for a count of zero, whose percentage then fails.
template <typename MoveBytes>
void RunSteps(bwp::Progress& progress, std::int64_t count, std::int64_t block, MoveBytes moveBytes) {
  if (count < 0) throw bwp::MakeRunTimeError(bwp::kInvalidProcedureCall);
  std::int64_t done = 0;
  do {
    const std::int64_t step = funzioni::MinOf({block, count - done});
    moveBytes(static_cast<std::size_t>(done), static_cast<std::size_t>(step));
    done += step;
    progress.SetBar(Percent(done, count));
    progress.LetEventsRun();
  } while (!progress.Aborted() && done < count);
}

// A copy that has begun takes one step even when Cancel is pressed while these first events run.
void CopySteps(bwp::Progress& progress, ReadStream& source, WriteStream& destination, std::int64_t count,
               std::int64_t block) {
  progress.LetEventsRun();
  RunSteps(progress, count, block,
           [&](std::size_t, std::size_t step) { destination.WriteFrom(source, step); });
}

// Empties the text and takes the memory for what is to come: growing later would hold it twice for a while.
void MakeRoom(std::string& text, std::int64_t count) {
  std::string().swap(text);
  try {
    if (count > 0) text.reserve(static_cast<std::size_t>(count));
  } catch (const std::bad_alloc&) {
    throw bwp::MakeRunTimeError(bwp::kOutOfMemory);
  } catch (const std::length_error&) {
    throw bwp::MakeRunTimeError(bwp::kOutOfMemory);
  }
}

}  // namespace

void StreamCopy(bwp::Progress& progress, ReadStream& source, WriteStream& destination, std::int64_t count,
                std::int64_t block) {
  if (progress.Aborted()) return;
  CopySteps(progress, source, destination, count, block);
}

void StreamSkip(bwp::Progress& progress, ReadStream& stream, std::int64_t count, std::int64_t block) {
  if (progress.Aborted() || count == 0) return;
  RunSteps(progress, count, block,
           [&](std::size_t, std::size_t step) { stream.Skip(static_cast<std::int64_t>(step)); });
}

std::string& StreamReadText(bwp::Progress& progress, ReadStream& stream, std::string& text,
                            std::int64_t count, std::int64_t block) {
  if (progress.Aborted()) return text;
  MakeRoom(text, count);
  RunSteps(progress, count, block, [&](std::size_t done, std::size_t step) {
    text.resize(done + step);
    stream.ReadAll(text.data() + done, step);
  });
  return text;
}

void StreamWriteText(bwp::Progress& progress, WriteStream& stream, std::string_view text,
                     std::int64_t block) {
  if (progress.Aborted()) return;
  RunSteps(progress, static_cast<std::int64_t>(text.size()), block,
           [&](std::size_t done, std::size_t step) { stream.Write(text.substr(done, step)); });
}

void FileRangeCopy(bwp::Progress& progress, const bwp::Disk& disk, const std::string& source,
                   const std::string& destination, std::int64_t start, std::optional<std::int64_t> count,
                   std::int64_t block) {
  if (progress.Aborted()) return;
  ReadStream from(source);
  const std::int64_t bytes = count.value_or(from.Length() - start + 1);
  WriteStream to(disk, destination);
  progress.SetLabel(progress.Label() + ", seeking start at " + funzioni::SignPadded(start - 1));
  StreamSkip(progress, from, start - 1, block);
  // The label is given the text that it shows already: what was sought stays to be read during the copy.
  progress.SetLabel(progress.Label());
  CopySteps(progress, from, to, bytes, block);
  from.Close();
  to.Close();
}

}  // namespace FileSystem
