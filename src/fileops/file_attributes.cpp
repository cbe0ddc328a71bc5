#include "fileops/file_attributes.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <vector>

#include "viewer/descriptor.h"
#include "viewer/run_time_error.h"
#include "viewer/uninterrupted.h"

namespace bwp {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr auto kUnchanged = static_cast<uid_t>(-1);

struct Files {
  const Disk& disk;
  int from;
  int to;
  const std::string& path;
};

void Require(bool done, const Files& files) {
  if (!done) throw RunTimeErrorFromErrno(errno, files.path);
}

// How systems say that an owner cannot be given: it takes the administrator, the user namespace does not know
// that owner, or the file system keeps none.
bool IsOwnerRefused(int errnoValue) {
  return errnoValue == EPERM || errnoValue == EINVAL || errnoValue == ENOSYS || errnoValue == EOPNOTSUPP;
}

bool GiveOwner(const Files& files, uid_t owner, gid_t group) {
  const int result = Uninterrupted([&] { return files.disk.ChangeOwner(files.to, owner, group); });
  Require(result == 0 || IsOwnerRefused(errno), files);
  return result == 0;
}

mode_t ModeOf(const struct stat& status) {
  return status.st_mode & 07777U;
}

// Only the system's administrator may give files away; a group of one's own anybody may set.
void CopyOwnerAndMode(const Files& files) {
  const struct stat old = StatusOf(files.from, files.path);
  const struct stat fresh = StatusOf(files.to, files.path);
  bool ownerKept = old.st_uid == fresh.st_uid;
  bool groupKept = old.st_gid == fresh.st_gid;
  if (!ownerKept) ownerKept = groupKept = GiveOwner(files, old.st_uid, old.st_gid);
  if (!groupKept) groupKept = GiveOwner(files, kUnchanged, old.st_gid);

  mode_t mode = ModeOf(old);
  // Rights that were given to the old owner or group must not pass to another one.
  if (!ownerKept) mode &= ~static_cast<mode_t>(S_ISUID);
  if (!groupKept) mode = (mode & ~static_cast<mode_t>(S_ISGID | S_IRWXG)) | ((mode & S_IRWXO) << 3U);
  // Not every file system has modes to change.
  if (ModeOf(StatusOf(files.to, files.path)) == mode) return;
  Require(Uninterrupted([&] { return files.disk.ChangeMode(files.to, mode); }) == 0, files);
}

// A list of names or a value, whose size may change between asking for it and reading it; false and errno
// where there is none.
template <typename Read>
bool ReadWhole(std::vector<char>& bytes, Read read) {
  for (;;) {
    const ssize_t size = read(nullptr, 0);
    if (size < 0) return false;
    bytes.resize(static_cast<std::size_t>(size) + 1);
    const ssize_t got = read(bytes.data(), bytes.size() - 1);
    if (got < 0 && errno == ERANGE) continue;
    if (got < 0) return false;
    bytes.resize(static_cast<std::size_t>(got));
    return true;
  }
}

// Needs the right to write, as the content itself does.
bool IsOfContent(const std::string& name) {
  return name.starts_with("user.");
}

// The rest is the system's: labels that only it may set, or that another file system has not got.
bool BelongsToTheUser(const std::string& name) {
  return IsOfContent(name) || name.find("acl") != std::string::npos;
}

void CopyAttribute(const Files& files, const std::string& name) {
  std::vector<char> value;
  const bool read = ReadWhole(
      value, [&](char* bytes, std::size_t size) { return fgetxattr(files.from, name.c_str(), bytes, size); });
  if (!read && errno == ENODATA) return;
  const bool done =
      read && Uninterrupted([&] {
                return files.disk.SetAttribute(files.to, name.c_str(), value.data(), value.size());
              }) == 0;
  if (done) return;
  const bool refused = errno == EPERM || errno == EACCES || errno == ENOTSUP;
  Require(refused && !BelongsToTheUser(name), files);
}

std::vector<std::string> AttributeNames(const Files& files) {
  std::vector<char> list;
  const bool read =
      ReadWhole(list, [&](char* bytes, std::size_t size) { return flistxattr(files.from, bytes, size); });
  if (!read && errno == ENOTSUP) return {};
  Require(read, files);
  std::vector<std::string> names;
  for (std::size_t start = 0; start < list.size(); start += names.back().size() + 1) {
    names.emplace_back(list.data() + start, strnlen(list.data() + start, list.size() - start));
  }
  return names;
}

// A folder may give each new file an access list, which would let in people whom the old file keeps out.
void RemoveInheritedAccessList(const Files& files) {
  if (fgetxattr(files.to, kAccessList, nullptr, 0) < 0) return;
  const int result = Uninterrupted([&] { return files.disk.RemoveAttribute(files.to, kAccessList); });
  Require(result == 0 || errno == ENODATA, files);
}

}  // namespace

void CopyAttributes(const Disk& disk, int from, int to, const std::string& path) {
  const Files files{disk, from, to, path};
  const std::vector<std::string> names = AttributeNames(files);
  RemoveInheritedAccessList(files);
  // A file that the mode makes read-only takes no more of the user's attributes; a change of owner or mode
  // takes away, or changes, what the system keeps in the others.
  for (const std::string& name : names) {
    if (IsOfContent(name)) CopyAttribute(files, name);
  }
  CopyOwnerAndMode(files);
  for (const std::string& name : names) {
    if (!IsOfContent(name)) CopyAttribute(files, name);
  }
}

}  // namespace bwp
