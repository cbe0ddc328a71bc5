#include "app/configuration.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
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

void WriteWhole(const Disk& disk, const std::string& path, const std::string& text) {
  const int descriptor = disk.Open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (descriptor < 0) throw RunTimeErrorFromErrno(errno, path);
  const ssize_t written = disk.Write(descriptor, text.data(), text.size());
  int error = written < 0 ? errno : 0;
  if (written >= 0 && static_cast<std::size_t>(written) < text.size()) error = ENOSPC;
  if (disk.Close(descriptor) != 0 && error == 0) error = errno;
  if (error == 0) return;
  disk.Delete(path);
  throw RunTimeErrorFromErrno(error, path);
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
  WriteWhole(disk, staged, ConfigurationText(configuration));
  if (disk.Rename(staged, target) == 0) return;
  const int error = errno;
  disk.Delete(staged);
  throw RunTimeErrorFromErrno(error, target);
}

}  // namespace bwp
