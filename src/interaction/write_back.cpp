#include "interaction/write_back.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>

#include "fileops/byte_stream.h"
#include "interaction/edit_mode.h"
#include "viewer/descriptor.h"
#include "viewer/run_time_error.h"
#include "viewer/uninterrupted.h"

namespace bwp {
namespace {

// Opened for writing, with nothing of it changed yet. Non-blocking, so that a pipe that took the file's name
// meanwhile does not hang the program.
FileSystem::WriteStream OpenForWriting(const Disk& disk, const std::string& path) {
  const int descriptor = Uninterrupted([&] { return disk.Open(path, O_WRONLY | O_NONBLOCK, 0); });
  if (descriptor < 0) throw RunTimeErrorFromErrno(errno, path);
  return {disk, descriptor, path};
}

bool IsWhatIsShown(const ViewState& state, const FileSystem::WriteStream& file) {
  const struct stat status = StatusOf(file.Descriptor(), file.Path());
  return IdentityOf(status) == state.file.Identity() && status.st_size == state.FLen;
}

void WriteAt(const Disk& disk, const FileSystem::WriteStream& file, std::int64_t offset,
             std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t done = Uninterrupted(
        [&] { return disk.PositionedWrite(file.Descriptor(), bytes.data(), bytes.size(), offset); });
    if (done < 0) throw RunTimeErrorFromErrno(errno, file.Path());
    // The file does not grow here: a device that takes none of these bytes and gives no reason is at fault.
    if (done == 0) throw MakeRunTimeError(kDeviceError, file.Path());
    bytes.remove_prefix(static_cast<std::size_t>(done));
    offset += done;
  }
}

}  // namespace

std::string PageBytes(const ViewState& state) {
  std::string bytes;
  for (int position = 0; position < kPageBytes && state.SWStart + position < state.FLen; ++position) {
    bytes += static_cast<char>(CellByte(state.tabe.Text(ValueCell(position)), state.HexMode));
  }
  return bytes;
}

bool WriteBackPage(const ViewState& state, const Disk& disk) {
  FileSystem::WriteStream file = OpenForWriting(disk, state.OpenFile);
  if (!IsWhatIsShown(state, file)) return false;
  WriteAt(disk, file, state.SWStart, PageBytes(state));
  // What was written counts only once it is on the disk: some systems report a failure no sooner than here.
  file.Sync();
  file.Close();
  return true;
}

}  // namespace bwp
