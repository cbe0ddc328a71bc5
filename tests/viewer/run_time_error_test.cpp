#include "viewer/run_time_error.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <utility>

#include "support/temp_folder.h"

namespace {

TEST(RunTimeError, HasTheStandardTextOfItsNumber) {
  const std::pair<bwp::RunTimeErrorNumber, const char*> kTexts[] = {
      {bwp::kInvalidProcedureCall, "Invalid procedure call or argument"},
      {bwp::kOverflow, "Overflow"},
      {bwp::kOutOfMemory, "Out of memory"},
      {bwp::kDivisionByZero, "Division by zero"},
      {bwp::kTypeMismatch, "Type mismatch"},
      {bwp::kBadFileName, "Bad file name or number"},
      {bwp::kFileNotFound, "File not found"},
      {bwp::kDeviceError, "Device I/O error"},
      {bwp::kFileAlreadyExists, "File already exists"},
      {bwp::kDiskFull, "Disk full"},
      {bwp::kInputPastEnd, "Input past end of file"},
      {bwp::kPermissionDenied, "Permission denied"},
      {bwp::kPathFileAccess, "Path/File access error"},
      {bwp::kPathNotFound, "Path not found"}};
  for (const auto& [number, text] : kTexts) {
    EXPECT_EQ(bwp::MakeRunTimeError(number).text, text);
    EXPECT_EQ(bwp::MakeRunTimeError(number).number, number);
  }
}

TEST(RunTimeError, NumbersAreThePlatforms) {
  EXPECT_EQ(bwp::kInvalidProcedureCall, 5);
  EXPECT_EQ(bwp::kOverflow, 6);
  EXPECT_EQ(bwp::kOutOfMemory, 7);
  EXPECT_EQ(bwp::kDivisionByZero, 11);
  EXPECT_EQ(bwp::kTypeMismatch, 13);
  EXPECT_EQ(bwp::kBadFileName, 52);
  EXPECT_EQ(bwp::kFileNotFound, 53);
  EXPECT_EQ(bwp::kDeviceError, 57);
  EXPECT_EQ(bwp::kFileAlreadyExists, 58);
  EXPECT_EQ(bwp::kDiskFull, 61);
  EXPECT_EQ(bwp::kInputPastEnd, 62);
  EXPECT_EQ(bwp::kPermissionDenied, 70);
  EXPECT_EQ(bwp::kPathFileAccess, 75);
  EXPECT_EQ(bwp::kPathNotFound, 76);
}

TEST(RunTimeError, TheReportNamesNumberTextPathAndNote) {
  bwp::RunTimeError error = bwp::MakeRunTimeError(bwp::kDiskFull);
  EXPECT_EQ(error.Report(), "Run-time error '61':\n\nDisk full");
  error.path = "/a file";
  EXPECT_EQ(error.Report(), "Run-time error '61':\n\nDisk full\n/a file");
  error.note = "The new content is in /tmp/x.";
  EXPECT_EQ(error.Report(), "Run-time error '61':\n\nDisk full\n/a file\nThe new content is in /tmp/x.");
}

TEST(RunTimeError, AFailedCallBecomesThePlatformsError) {
  const std::pair<int, bwp::RunTimeErrorNumber> kNumbers[] = {
      {EACCES, bwp::kPermissionDenied},  {EPERM, bwp::kPermissionDenied}, {EBUSY, bwp::kPermissionDenied},
      {ENOSPC, bwp::kDiskFull},          {EDQUOT, bwp::kDiskFull},        {EFBIG, bwp::kDiskFull},
      {EEXIST, bwp::kFileAlreadyExists}, {ENOTDIR, bwp::kPathNotFound},   {EISDIR, bwp::kPathFileAccess},
      {EROFS, bwp::kPathFileAccess},     {EIO, bwp::kDeviceError},        {EBADF, bwp::kBadFileName},
      {ENAMETOOLONG, bwp::kBadFileName}, {ENOMEM, bwp::kOutOfMemory}};
  for (const auto& [code, number] : kNumbers) {
    const bwp::RunTimeError error = bwp::RunTimeErrorFromErrno(code, "/some/file");
    EXPECT_EQ(error.number, number) << code;
    EXPECT_EQ(error.path, "/some/file");
  }
}

TEST(RunTimeError, AMissingFolderAndAMissingFileAreToldApart) {
  const bwp::test::TempFolder folder;
  EXPECT_EQ(bwp::RunTimeErrorFromErrno(ENOENT, folder / "file").number, bwp::kFileNotFound);
  EXPECT_EQ(bwp::RunTimeErrorFromErrno(ENOENT, folder / "folder/file").number, bwp::kPathNotFound);
  EXPECT_EQ(bwp::RunTimeErrorFromErrno(ENOENT, "no such file here").number, bwp::kFileNotFound);
}

}  // namespace
