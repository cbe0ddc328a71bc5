#include "app/configuration.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "viewer/paths.h"
#include "viewer/run_time_error.h"
#include "viewer/view_file.h"

namespace bwp {
namespace {

// A path has at most PATH_MAX bytes; a file far longer than that is none of ours.
constexpr std::size_t kMaxLength = std::size_t{4} * PATH_MAX;

// Cuts the text up to the next comma off; there must be one.
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

// Where a link leads, so that it stays a link when the file is replaced; the path itself when there is no
// file yet.
std::string Resolved(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
  return real ? std::string(real.get()) : path;
}

// A folder that takes no new file may well hold one that can be written.
bool FolderIsClosed(int error) {
  return error == EACCES || error == EPERM || error == EROFS;
}

// Writes to the end and closes; the error that it met, or 0.
int WriteAndClose(const Disk& disk, int descriptor, const std::string& text) {
  const ssize_t written = disk.Write(descriptor, text.data(), text.size());
  int error = written < 0 ? errno : 0;
  if (written >= 0 && static_cast<std::size_t>(written) < text.size()) error = ENOSPC;
  if (disk.Close(descriptor) != 0 && error == 0) error = errno;
  return error;
}

// Opens a new file beside the target that nobody else has and no link leads away from.
int OpenStaged(const Disk& disk, const std::string& staged) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;
  constexpr mode_t kMode = 0666;
  const int descriptor = disk.Open(staged, kFlags, kMode);
  if (descriptor >= 0 || errno != EEXIST) return descriptor;
  // Left behind by a run that was killed.
  disk.Delete(staged);
  return disk.Open(staged, kFlags, kMode);
}

void WriteInPlace(const Disk& disk, const std::string& target, const std::string& text) {
  const int descriptor = disk.Open(target, O_WRONLY | O_TRUNC | O_NOFOLLOW | O_NONBLOCK, 0);
  if (descriptor < 0) throw RunTimeErrorFromErrno(errno, target);
  if (const int error = WriteAndClose(disk, descriptor, text)) throw RunTimeErrorFromErrno(error, target);
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
  const std::string target = Resolved(path);
  const std::string staged =
      funzioni::FolderOf(target) + "." + funzioni::NameOf(target) + "." + std::to_string(getpid());
  const std::string text = ConfigurationText(configuration);
  struct stat old = {};
  const bool replaces = stat(target.c_str(), &old) == 0 && S_ISREG(old.st_mode);

  const int descriptor = OpenStaged(disk, staged);
  if (descriptor < 0) {
    const int error = errno;
    if (replaces && FolderIsClosed(error)) return WriteInPlace(disk, target, text);
    throw RunTimeErrorFromErrno(error, target);
  }
  constexpr mode_t kPermissions = 0777;
  if (replaces) disk.ChangeMode(descriptor, old.st_mode & kPermissions);
  int error = WriteAndClose(disk, descriptor, text);
  if (error == 0 && disk.Rename(staged, target) != 0) error = errno;
  if (error == 0) return;
  disk.Delete(staged);
  throw RunTimeErrorFromErrno(error, target);
}

}  // namespace bwp
