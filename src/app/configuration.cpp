#include "app/configuration.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdint>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fileops/byte_stream.h"
#include "fileops/scratch_file.h"
#include "viewer/paths.h"
#include "viewer/run_time_error.h"
#include "viewer/view_file.h"

namespace bwp {
namespace {

// A path has at most PATH_MAX bytes; a file far longer than that is not a configuration.
constexpr std::size_t kMaxLength = std::size_t{4} * PATH_MAX;

// Removes and returns the text up to the next comma; there must be one.
std::string_view TakeField(std::string_view& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) throw MakeRunTimeError(kInputPastEnd);
  const std::string_view field = text.substr(0, comma);
  text.remove_prefix(comma + 1);
  return field;
}

bool ReadBoolean(std::string_view field) {
  if (field == "#TRUE#") return true;
  if (field == "#FALSE#") return false;
  throw MakeRunTimeError(kTypeMismatch);
}

int ReadNumber(std::string_view field) {
  std::int16_t number = 0;
  const char* const end = field.data() + field.size();
  const auto [stop, error] = std::from_chars(field.data(), end, number);
  if (error == std::errc::result_out_of_range) throw MakeRunTimeError(kOverflow);
  if (error != std::errc{} || stop != end) throw MakeRunTimeError(kTypeMismatch);
  return number;
}

std::string ReadText(std::string_view field) {
  if (field.empty() || field == "\n" || field == "\r\n") throw MakeRunTimeError(kInputPastEnd);
  if (field.front() != '"') throw MakeRunTimeError(kTypeMismatch);
  const std::size_t last = field.rfind('"');
  if (last == 0) throw MakeRunTimeError(kInputPastEnd);
  const std::string_view rest = field.substr(last + 1);
  if (rest.find_first_not_of("\r\n") != std::string_view::npos) throw MakeRunTimeError(kTypeMismatch);
  return std::string(field.substr(1, last - 1));
}

// A folder that accepts no new files may still hold one that can be written.
bool FolderIsClosed(int error) {
  return error == EACCES || error == EPERM || error == EROFS;
}

// Creates a file beside the target, exclusively and without following a link. Negative on failure, with errno
// set.
int OpenStaged(const Disk& disk, const std::string& staged) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;
  constexpr mode_t kMode = 0666;
  const int descriptor = disk.Open(staged, kFlags, kMode);
  if (descriptor >= 0 || errno != EEXIST) return descriptor;
  // Left behind by a run that was killed.
  disk.Delete(staged);
  return disk.Open(staged, kFlags, kMode);
}

void Replace(const Disk& disk, const std::string& target, const std::string& text, ScratchFile staged) {
  constexpr mode_t kPermissions = 0777;
  struct stat old = {};
  if (stat(target.c_str(), &old) == 0) disk.ChangeMode(staged.Descriptor(), old.st_mode & kPermissions);
  FileSystem::WriteStream output = staged.Writer();
  output.Write(text);
  output.Close();
  staged.Sync();
  if (disk.Rename(staged.Path(), target) != 0) throw RunTimeErrorFromErrno(errno, target);
  staged.Leave();
}

void WriteInPlace(const Disk& disk, const std::string& target, const std::string& text) {
  const int descriptor = disk.Open(target, O_WRONLY | O_TRUNC | O_NOFOLLOW | O_NONBLOCK, 0);
  if (descriptor < 0) throw RunTimeErrorFromErrno(errno, target);
  FileSystem::WriteStream output(disk, descriptor, target);
  output.Write(text);
  output.Close();
}

}  // namespace

std::string ConfigurationText(const Configuration& configuration) {
  return std::string(configuration.hexMode ? "#TRUE#" : "#FALSE#") + "," +
         std::to_string(configuration.acceleration) + ",\"" + configuration.lastFolder + "\"\n";
}

Configuration ReadConfiguration(std::string_view text) {
  Configuration configuration;
  configuration.hexMode = ReadBoolean(TakeField(text));
  configuration.acceleration = ReadNumber(TakeField(text));
  configuration.lastFolder = funzioni::WithSeparator(ReadText(text));
  return configuration;
}

Configuration LoadConfiguration(const std::string& path) {
  if (!funzioni::FileExists(path)) return {};
  ViewFile file;
  file.Open(path);
  std::string text(kMaxLength, '\0');
  text.resize(file.ReadAt(0, text.data(), text.size()));
  try {
    return ReadConfiguration(text);
  } catch (RunTimeError& error) {
    error.path = path;
    throw;
  }
}

void SaveConfiguration(const Disk& disk, const std::string& path, const Configuration& configuration) {
  // The target of a link is replaced, so that the link itself stays.
  const std::string target = funzioni::ResolvedPath(path).value_or(path);
  const std::string staged =
      funzioni::FolderOf(target) + "." + funzioni::NameOf(target) + "." + std::to_string(getpid());
  const std::string text = ConfigurationText(configuration);
  const int descriptor = OpenStaged(disk, staged);
  const int failure = errno;
  try {
    if (descriptor >= 0) {
      Replace(disk, target, text, ScratchFile(disk, staged, descriptor));
    } else if (FolderIsClosed(failure) && funzioni::FileExists(target)) {
      WriteInPlace(disk, target, text);
    } else {
      throw RunTimeErrorFromErrno(failure, target);
    }
  } catch (RunTimeError& error) {
    // The staged file's name means nothing to the user.
    error.path = path;
    throw;
  }
}

}  // namespace bwp
