#include "fileops/scratch_file.h"

#include <cerrno>
#include <fcntl.h>
#include <random>
#include <unistd.h>
#include <utility>

#include "viewer/descriptor.h"
#include "viewer/number_text.h"
#include "viewer/run_time_error.h"
#include "viewer/uninterrupted.h"

namespace bwp {
namespace {

constexpr mode_t kUserOnly = 0600;
constexpr int kNameAttempts = 100;

}  // namespace

ScratchFile::ScratchFile(const Disk& disk, std::string path, int descriptor)
    : disk_(&disk), path_(std::move(path)), descriptor_(descriptor) {}

ScratchFile::ScratchFile(ScratchFile&& other) noexcept
    : disk_(other.disk_),
      path_(std::move(other.path_)),
      descriptor_(std::exchange(other.descriptor_, -1)),
      ours_(std::exchange(other.ours_, false)) {}

ScratchFile::~ScratchFile() {
  Release();
}

void ScratchFile::Release() {
  // Once more after a failure: what is left lying here takes up the disk for good.
  if (ours_ && disk_->Delete(path_) != 0 && errno != ENOENT) disk_->Delete(path_);
  ours_ = false;
  if (descriptor_ >= 0) disk_->Close(std::exchange(descriptor_, -1));
}

ScratchFile ScratchFile::Create(const Disk& disk, const std::string& prefix) {
  std::optional<ScratchFile> file = TryCreate(disk, prefix);
  if (!file) throw RunTimeErrorFromErrno(errno, prefix);
  return std::move(*file);
}

std::optional<ScratchFile> ScratchFile::TryCreate(const Disk& disk, const std::string& prefix) {
  std::random_device random;
  for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
    const std::string path = prefix + funzioni::HexOffset(static_cast<std::int32_t>(random()));
    const int descriptor =
        Uninterrupted([&] { return disk.Open(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, kUserOnly); });
    if (descriptor >= 0) return ScratchFile(disk, path, descriptor);
    if (errno != EEXIST) break;
  }
  return std::nullopt;
}

std::int64_t ScratchFile::Length() const {
  return StatusOf(descriptor_, path_).st_size;
}

FileSystem::WriteStream ScratchFile::Writer() const {
  const int copy = fcntl(descriptor_, F_DUPFD_CLOEXEC, 0);
  if (copy < 0) throw RunTimeErrorFromErrno(errno, path_);
  return {*disk_, copy, path_};
}

void ScratchFile::Sync() const {
  if (Uninterrupted([&] { return disk_->Sync(descriptor_); }) != 0) throw RunTimeErrorFromErrno(errno, path_);
}

void ScratchFile::Delete() {
  if (Uninterrupted([&] { return disk_->Delete(path_); }) != 0 && errno != ENOENT)
    throw RunTimeErrorFromErrno(errno, path_);
  ours_ = false;
}

}  // namespace bwp
