#pragma once

#include <string>

namespace bwp {

/// An unexpected failure of a file operation or a calculation. It is thrown up to the application object,
/// which reports it and ends the program.
struct RunTimeError {
  int number;
  std::string text;
  std::string path;  ///< The file it is about; empty if unknown.
  std::string note;  ///< What was kept and where, one full sentence per line; usually empty.

  /// The text of the report: "Run-time error 'N':", an empty line, the text, then path and note on lines of
  /// their own where there are any.
  std::string Report() const;
};

/// The numbers that the program uses.
enum RunTimeErrorNumber : int {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kBadFileName = 52,
  kFileNotFound = 53,
  kDeviceError = 57,
  kFileAlreadyExists = 58,
  kDiskFull = 61,
  kInputPastEnd = 62,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
};

/// The error of that number with its standard text.
RunTimeError MakeRunTimeError(RunTimeErrorNumber number, std::string path = {});

/// The error for a failed system call on path. A missing file is distinguished from a missing folder by
/// checking whether the folder of path exists.
RunTimeError RunTimeErrorFromErrno(int errnoValue, std::string path);

}  // namespace bwp
