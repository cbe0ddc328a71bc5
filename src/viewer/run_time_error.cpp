#include "viewer/run_time_error.h"

#include <cerrno>
#include <utility>

#include "viewer/paths.h"

namespace bwp {
namespace {

const char* TextOf(RunTimeErrorNumber number) {
  switch (number) {
    case kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case kOverflow:
      return "Overflow";
    case kOutOfMemory:
      return "Out of memory";
    case kDivisionByZero:
      return "Division by zero";
    case kTypeMismatch:
      return "Type mismatch";
    case kBadFileName:
      return "Bad file name or number";
    case kFileNotFound:
      return "File not found";
    case kDeviceError:
      return "Device I/O error";
    case kFileAlreadyExists:
      return "File already exists";
    case kDiskFull:
      return "Disk full";
    case kInputPastEnd:
      return "Input past end of file";
    case kPermissionDenied:
      return "Permission denied";
    case kPathFileAccess:
      return "Path/File access error";
    case kPathNotFound:
      return "Path not found";
  }
  return "";
}

bool HasFolder(const std::string& path) {
  return funzioni::FolderExists(funzioni::FolderOrHere(funzioni::FolderOf(path)));
}

RunTimeErrorNumber NumberOf(int errnoValue, const std::string& path) {
  switch (errnoValue) {
    case ENOENT:
      return HasFolder(path) ? kFileNotFound : kPathNotFound;
    case ENOTDIR:
      return kPathNotFound;
    case EEXIST:
      return kFileAlreadyExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kDiskFull;
    case EACCES:
    case EPERM:
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
      return kPermissionDenied;
    case EROFS:
    case EISDIR:
    case ELOOP:
    case ENOTEMPTY:
      return kPathFileAccess;
    case EBADF:
    case EINVAL:
    case ENAMETOOLONG:
      return kBadFileName;
    case EOVERFLOW:
      return kOverflow;
    case ENOMEM:
      return kOutOfMemory;
    default:
      return kDeviceError;
  }
}

}  // namespace

std::string RunTimeError::Report() const {
  std::string report = "Run-time error '" + std::to_string(number) + "':\n\n" + text;
  if (!path.empty()) report += "\n" + path;
  if (!note.empty()) report += "\n" + note;
  return report;
}

RunTimeError MakeRunTimeError(RunTimeErrorNumber number, std::string path) {
  return {number, TextOf(number), std::move(path), {}};
}

RunTimeError RunTimeErrorFromErrno(int errnoValue, std::string path) {
  const RunTimeErrorNumber number = NumberOf(errnoValue, path);
  return MakeRunTimeError(number, std::move(path));
}

}  // namespace bwp
