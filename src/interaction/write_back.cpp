#include "interaction/write_back.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

#include "fileops/uninterrupted.h"
#include "interaction/edit_mode.h"
#include "viewer/number_text.h"
#include "viewer/run_time_error.h"

namespace bwp {
namespace {

// The call's result; throws what stands for its failure.
template <typename Call>
auto Checked(const std::string& path, Call call) {
  const auto result = Uninterrupted(call);
  if (result < 0) throw RunTimeErrorFromErrno(errno, path);
  return result;
}

// The open file, opened for writing; closed in any case.
class WritableFile {
 public:
  WritableFile(const Disk& disk, const std::string& path) : disk_(disk), path_(path) {
    // Non-blocking, so that a pipe that took the file's name meanwhile does not hang the program.
    descriptor_ = Checked(path_, [&] { return disk_.Open(path_, O_WRONLY | O_NONBLOCK, 0); });
  }
  WritableFile(const WritableFile&) = delete;
  WritableFile& operator=(const WritableFile&) = delete;
  ~WritableFile() {
    if (descriptor_ >= 0) disk_.Close(descriptor_);
  }

  bool IsWhatIsShown(const ViewState& state) const {
    struct stat status = {};
    if (fstat(descriptor_, &status) != 0) throw RunTimeErrorFromErrno(errno, path_);
    return FileIdentity{status.st_dev, status.st_ino} == state.file.Identity() &&
           status.st_size == state.FLen;
  }

  void WriteAt(std::int64_t offset, std::string_view bytes) const {
    while (!bytes.empty()) {
      const auto done = static_cast<std::size_t>(Checked(
          path_, [&] { return disk_.PositionedWrite(descriptor_, bytes.data(), bytes.size(), offset); }));
      if (done == 0) throw MakeRunTimeError(kDeviceError, path_);
      bytes.remove_prefix(done);
      offset += static_cast<std::int64_t>(done);
    }
  }

  // What was written counts only once it is on the disk: some systems tell of a failure no sooner than here.
  void Finish() {
    Checked(path_, [&] { return disk_.Sync(descriptor_); });
    if (disk_.Close(std::exchange(descriptor_, -1)) != 0) throw RunTimeErrorFromErrno(errno, path_);
  }

 private:
  const Disk& disk_;
  const std::string& path_;
  int descriptor_ = -1;
};

}  // namespace

std::string PageBytes(const ViewState& state) {
  std::string bytes;
  for (int position = 0; position < kPageBytes && state.SWStart + position < state.FLen; ++position) {
    const std::string_view text =
        state.tabe.Text(position / kBytesPerRow, position % kBytesPerRow + kFirstValueColumn);
    bytes += static_cast<char>(CellByte(text, state.HexMode));
  }
  return bytes;
}

bool WriteBackPage(const ViewState& state, const Disk& disk) {
  WritableFile file(disk, state.OpenFile);
  if (!file.IsWhatIsShown(state)) return false;
  file.WriteAt(state.SWStart, PageBytes(state));
  file.Finish();
  return true;
}

}  // namespace bwp
