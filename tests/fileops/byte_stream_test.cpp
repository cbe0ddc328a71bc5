#include "fileops/byte_stream.h"

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/errors.h"
#include "support/temp_folder.h"

namespace {

using bwp::test::ErrorNumberOf;
using bwp::test::ReadFile;
using bwp::test::TempFolder;
using FileSystem::ReadStream;
using FileSystem::WriteStream;

std::string Next(ReadStream& stream, std::size_t count) {
  std::string bytes(count, '\0');
  bytes.resize(stream.Read(bytes.data(), count));
  return bytes;
}

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

/// A disk on which single calls go wrong.
class FaultyDisk : public bwp::Disk {
 public:
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) const override {
    ++writes;
    return onWrite ? onWrite(descriptor, bytes, count) : Disk::Write(descriptor, bytes, count);
  }
  ssize_t CopyRange(int from, int to, std::size_t count) const override {
    ++copies;
    return onCopy ? onCopy(from, to, count) : Disk::CopyRange(from, to, count);
  }
  int Sync(int descriptor) const override { return onSync ? onSync() : Disk::Sync(descriptor); }
  int Close(int descriptor) const override {
    const int result = Disk::Close(descriptor);
    if (closeErrno == 0) return result;
    errno = closeErrno;
    return -1;
  }

  std::function<ssize_t(int, const void*, std::size_t)> onWrite;
  std::function<ssize_t(int, int, std::size_t)> onCopy;
  std::function<int()> onSync;
  int closeErrno = 0;
  mutable int writes = 0;
  mutable int copies = 0;
};

TEST(ReadStream, GivesEveryByteValueUnchanged) {
  const TempFolder folder;
  ReadStream stream(folder.Write("a", AllBytes()));
  EXPECT_EQ(Next(stream, 256), AllBytes());
}

TEST(ReadStream, ReadsOnFromWhereItStandsAndFewerOnlyAtTheEnd) {
  const TempFolder folder;
  ReadStream stream(folder.Write("a", "0123456789"));
  EXPECT_EQ(Next(stream, 4), "0123");
  EXPECT_EQ(Next(stream, 4), "4567");
  EXPECT_EQ(Next(stream, 4), "89");
  EXPECT_EQ(Next(stream, 4), "");
}

TEST(ReadStream, SkipsWithoutReading) {
  const TempFolder folder;
  ReadStream stream(folder.Write("a", "0123456789"));
  stream.Skip(3);
  EXPECT_EQ(Next(stream, 2), "34");
  stream.Skip(4);
  EXPECT_EQ(Next(stream, 2), "9");
  stream.Skip(1000);
  EXPECT_EQ(Next(stream, 2), "");
}

TEST(ReadStream, TellsTheLength) {
  const TempFolder folder;
  EXPECT_EQ(ReadStream(folder.Write("a", "0123456789")).Length(), 10);
}

TEST(ReadStream, InsistsOnPromisedBytes) {
  const TempFolder folder;
  ReadStream stream(folder.Write("a", "0123"));
  std::string bytes(5, '\0');
  EXPECT_EQ(ErrorNumberOf([&] { stream.ReadAll(bytes.data(), 5); }), bwp::kInputPastEnd);
}

TEST(ReadStream, OpensRegularFilesOnly) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(ErrorNumberOf([&] { ReadStream{folder / "none"}; }), bwp::kFileNotFound);
  EXPECT_EQ(ErrorNumberOf([&] { ReadStream{folder / "none/a"}; }), bwp::kPathNotFound);
  EXPECT_EQ(ErrorNumberOf([&] { ReadStream{folder.Path()}; }), bwp::kPathFileAccess);
  EXPECT_EQ(ErrorNumberOf([&] { ReadStream{folder / "pipe"}; }), bwp::kPathFileAccess);
  EXPECT_EQ(ErrorNumberOf([&] { ReadStream{"/dev/zero"}; }), bwp::kPathFileAccess);
}

TEST(WriteStream, WritesEveryByteValueUnchanged) {
  const TempFolder folder;
  const bwp::Disk disk;
  WriteStream stream(disk, folder / "a");
  stream.Write(AllBytes());
  stream.Write("end");
  stream.Close();
  EXPECT_EQ(ReadFile(folder / "a"), AllBytes() + "end");
}

TEST(WriteStream, ReplacesAFileThatIsThere) {
  const TempFolder folder;
  folder.Write("a", "a long content from before");
  const bwp::Disk disk;
  WriteStream(disk, folder / "a").Write("new");
  EXPECT_EQ(ReadFile(folder / "a"), "new");
}

TEST(WriteStream, WritesRegularFilesOnly) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const bwp::Disk disk;
  EXPECT_EQ(ErrorNumberOf([&] { WriteStream(disk, folder / "none/a"); }), bwp::kPathNotFound);
  EXPECT_EQ(ErrorNumberOf([&] { WriteStream(disk, folder.Path()); }), bwp::kPathFileAccess);
  EXPECT_NE(ErrorNumberOf([&] { WriteStream(disk, folder / "pipe"); }), 0);
  EXPECT_EQ(ErrorNumberOf([&] { WriteStream(disk, "/dev/zero"); }), bwp::kPathFileAccess);
}

TEST(WriteStream, TakesOverAnOpenDescriptor) {
  const TempFolder folder;
  const bwp::Disk disk;
  const int descriptor = disk.Open(folder / "a", O_RDWR | O_CREAT, 0600);
  {
    WriteStream stream(disk, descriptor, folder / "a");
    EXPECT_EQ(stream.Descriptor(), descriptor);
    stream.Write("bytes");
    stream.Sync();
  }
  EXPECT_EQ(ReadFile(folder / "a"), "bytes");
  EXPECT_EQ(fcntl(descriptor, F_GETFD), -1) << "closed with the stream";
}

TEST(WriteStream, GoesOnAfterShortAndInterruptedWrites) {
  const TempFolder folder;
  FaultyDisk disk;
  disk.onWrite = [&disk](int descriptor, const void* bytes, std::size_t count) -> ssize_t {
    if (disk.writes % 2 == 0) {
      errno = EINTR;
      return -1;
    }
    return disk.Disk::Write(descriptor, bytes, std::min<std::size_t>(count, 3));
  };
  WriteStream stream(disk, folder / "a");
  stream.Write("0123456789");
  stream.Close();
  EXPECT_EQ(ReadFile(folder / "a"), "0123456789");
  EXPECT_EQ(disk.writes, 7);
}

TEST(WriteStream, TakesADiskThatMakesNoProgressForFull) {
  const TempFolder folder;
  FaultyDisk disk;
  disk.onWrite = [](int, const void*, std::size_t) -> ssize_t { return 0; };
  WriteStream stream(disk, folder / "a");
  EXPECT_EQ(ErrorNumberOf([&] { stream.Write("x"); }), bwp::kDiskFull);
}

TEST(WriteStream, ReportsAFailedWriteWithThePath) {
  const TempFolder folder;
  FaultyDisk disk;
  disk.onWrite = [](int, const void*, std::size_t) -> ssize_t {
    errno = ENOSPC;
    return -1;
  };
  WriteStream stream(disk, folder / "a");
  const bwp::RunTimeError error = bwp::test::ErrorOf([&] { stream.Write("x"); });
  EXPECT_EQ(error.number, bwp::kDiskFull);
  EXPECT_EQ(error.path, folder / "a");
}

TEST(WriteStream, ReportsAFailedSyncAndRepeatsAnInterruptedOne) {
  const TempFolder folder;
  FaultyDisk disk;
  int syncs = 0;
  disk.onSync = [&syncs] {
    errno = ++syncs < 3 ? EINTR : EIO;
    return -1;
  };
  WriteStream stream(disk, folder / "a");
  EXPECT_EQ(ErrorNumberOf([&] { stream.Sync(); }), bwp::kDeviceError);
  EXPECT_EQ(syncs, 3);
}

TEST(WriteStream, ReportsAFailedCloseOnceAndOnlyWhenAsked) {
  const TempFolder folder;
  FaultyDisk disk;
  disk.closeErrno = EDQUOT;
  WriteStream stream(disk, folder / "a");
  EXPECT_EQ(ErrorNumberOf([&] { stream.Close(); }), bwp::kDiskFull);
  EXPECT_EQ(ErrorNumberOf([&] { stream.Close(); }), 0) << "it is closed already";
  EXPECT_EQ(ErrorNumberOf([&] { WriteStream(disk, folder / "b"); }), 0) << "the destructor is silent";
}

TEST(WriteStream, TakesAnInterruptedCloseForDone) {
  const TempFolder folder;
  FaultyDisk disk;
  disk.closeErrno = EINTR;
  WriteStream stream(disk, folder / "a");
  EXPECT_EQ(ErrorNumberOf([&] { stream.Close(); }), 0);
}

TEST(WriteStream, CopiesInsideTheKernelWhereItCan) {
  const TempFolder folder;
  FaultyDisk disk;
  ReadStream source(folder.Write("a", "0123456789"));
  WriteStream stream(disk, folder / "b");
  source.Skip(2);
  stream.WriteFrom(source, 5);
  EXPECT_EQ(Next(source, 5), "789");
  stream.Close();
  EXPECT_EQ(ReadFile(folder / "b"), "23456");
  EXPECT_GE(disk.copies, 1);
}

TEST(WriteStream, CopiesByHandWhereTheKernelCannot) {
  for (const int reason : {EXDEV, EOPNOTSUPP, EINVAL, EPERM, ENOSYS, ETXTBSY, EIO, ENOSPC, 0}) {
    const TempFolder folder;
    FaultyDisk disk;
    disk.onCopy = [&](int from, int to, std::size_t) -> ssize_t {
      if (disk.copies == 1) return disk.Disk::CopyRange(from, to, 3);  // a short count first
      errno = reason;
      return reason == 0 ? 0 : -1;
    };
    const std::string bytes = bwp::test::PatternBytes(600'000);
    ReadStream source(folder.Write("a", bytes));
    WriteStream stream(disk, folder / "b");
    stream.WriteFrom(source, 500'000);
    stream.WriteFrom(source, 100'000);
    stream.Close();
    EXPECT_EQ(ReadFile(folder / "b"), bytes) << reason;
    EXPECT_EQ(disk.copies, 2) << "it is not tried again on this stream";
  }
}

TEST(WriteStream, GoesOnWithTheKernelAfterAnInterruption) {
  const TempFolder folder;
  FaultyDisk disk;
  disk.onCopy = [&](int from, int to, std::size_t count) -> ssize_t {
    errno = EINTR;
    return disk.copies == 1 ? -1 : disk.Disk::CopyRange(from, to, count);
  };
  ReadStream source(folder.Write("a", "0123456789"));
  WriteStream stream(disk, folder / "b");
  stream.WriteFrom(source, 10);
  EXPECT_EQ(ReadFile(folder / "b"), "0123456789");
  EXPECT_EQ(disk.writes, 0);
}

TEST(WriteStream, InsistsOnPromisedBytesOfTheSource) {
  const TempFolder folder;
  const bwp::Disk disk;
  ReadStream source(folder.Write("a", "0123456789"));
  WriteStream stream(disk, folder / "b");
  EXPECT_EQ(ErrorNumberOf([&] { stream.WriteFrom(source, 11); }), bwp::kInputPastEnd);
}

}  // namespace
