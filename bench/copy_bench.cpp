// Copying a file through the streams, against cp of the same file on the same file system, neither with a
// final sync. The first argument is the length of the file in MiB (1024 when not given), the second the
// number of rounds (7).

#include <unistd.h>

#include "big_file.h"
#include "fileops/file_system.h"
#include "interleaved.h"
#include "other_program.h"

namespace {

using bench::BigFile;
using FileSystem::ReadStream;
using FileSystem::WriteStream;

// Copying as a file system that cannot copy by itself would have it done.
class PlainDisk : public bwp::Disk {
 public:
  ssize_t CopyRange(int /*from*/, int /*to*/, std::size_t /*count*/) const override { return 0; }
};

void Cp(const std::string& from, const std::string& to) {
  if (bench::RunProgram({"cp", from, to}) != 0) BigFile::Stop("cp");
}

void Copy(const bwp::Disk& disk, const std::string& from, const std::string& to, std::int64_t length) {
  bench::NoProgress progress;
  ReadStream source(from);
  WriteStream destination(disk, to);
  FileSystem::StreamCopy(progress, source, destination, length);
  destination.Close();
}

void Skip(const std::string& from, std::int64_t length) {
  bench::NoProgress progress;
  ReadStream source(from);
  FileSystem::StreamSkip(progress, source, length);
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t length = bench::LengthFrom(argc, argv);
  const int rounds = argc > 2 ? std::atoi(argv[2]) : 7;
  const BigFile file(length, bench::FillMixed);
  const std::string target = file.Path() + ".copy";
  const bwp::Disk disk;
  const PlainDisk plain;
  const auto anew = [&](const std::function<void()>& copy) {
    return [&target, copy] {
      copy();
      unlink(target.c_str());
    };
  };
  bench::RunInterleaved(
      "copying",
      {{"cp", anew([&] { Cp(file.Path(), target); })},
       {"StreamCopy", anew([&] { Copy(disk, file.Path(), target, length); })},
       {"StreamCopy, reading and writing", anew([&] { Copy(plain, file.Path(), target, length); })},
       {"StreamSkip", [&] { Skip(file.Path(), length); }}},
      rounds);
  return 0;
}
