#include "viewer/volumes.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <sstream>

#include "viewer/paths.h"

namespace bwp {
namespace {

// File systems that the kernel or a service generates: they hold no ordinary files.
constexpr std::array<std::string_view, 25> kMadeUp = {
    "autofs",  "binfmt_misc", "bpf",        "cgroup",       "cgroup2",    "configfs",  "debugfs",
    "devpts",  "devtmpfs",    "efivarfs",   "fusectl",      "hugetlbfs",  "mqueue",    "nsfs",
    "proc",    "pstore",      "ramfs",      "rpc_pipefs",   "securityfs", "selinuxfs", "sysfs",
    "tracefs", "fuse.portal", "fuse.lxcfs", "fuse.snapfuse"};

// Places where even an ordinary file system is only for the system's own use.
constexpr std::array<std::string_view, 4> kSystemPlaces = {"/proc", "/sys", "/dev", "/snap"};

struct Mount {
  std::string root;
  std::string point;
  std::string type;
};

// The table writes spaces and the like as a backslash and three octal digits.
std::string Unescaped(const std::string& text) {
  const auto octal = [&text](std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '7';
  };
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && octal(i + 1) && octal(i + 2) && octal(i + 3)) {
      plain += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

// A line: number, parent, device, root, mount point, options, any number of fields, "-", type and more.
bool Read(const std::string& line, Mount& mount) {
  std::istringstream fields(line);
  std::string skipped;
  fields >> skipped >> skipped >> skipped >> mount.root >> mount.point;
  while (fields >> skipped && skipped != "-") {
  }
  mount.point = Unescaped(mount.point);
  return static_cast<bool>(fields >> mount.type);
}

bool LiesIn(std::string_view path, std::string_view folder) {
  if (folder == "/") return true;
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

bool HoldsFiles(const Mount& mount) {
  const auto holds = [&mount](std::string_view place) { return LiesIn(mount.point, place); };
  if (std::find(kMadeUp.begin(), kMadeUp.end(), mount.type) != kMadeUp.end()) return false;
  if (std::any_of(kSystemPlaces.begin(), kSystemPlaces.end(), holds)) return false;
  if (mount.type == "tmpfs" && LiesIn(mount.point, "/run")) return false;
  // Only a part of a volume can be mounted over a single file. Whole volumes need no check, which would block
  // the program on a network volume whose server is down.
  return mount.root == "/" || funzioni::FolderExists(mount.point);
}

}  // namespace

std::vector<std::string> VolumesIn(std::string_view mountInfo) {
  std::vector<std::string> volumes = {"/"};
  std::istringstream lines{std::string(mountInfo)};
  for (std::string line; std::getline(lines, line);) {
    Mount mount;
    if (!Read(line, mount) || mount.point == "/") continue;
    // A later mount hides an earlier one at the same place.
    std::erase(volumes, mount.point);
    if (HoldsFiles(mount)) volumes.push_back(mount.point);
  }
  std::sort(volumes.begin(), volumes.end());
  return volumes;
}

std::vector<std::string> Volumes() {
  std::ifstream table("/proc/self/mountinfo");
  return VolumesIn(std::string(std::istreambuf_iterator<char>(table), {}));
}

std::string VolumeOf(const std::vector<std::string>& volumes, const std::string& folder) {
  const std::string place = funzioni::ResolvedPath(folder).value_or(folder);
  std::string best = "/";
  for (const std::string& volume : volumes) {
    if (LiesIn(place, volume) && volume.size() > best.size()) best = volume;
  }
  return best;
}

}  // namespace bwp
