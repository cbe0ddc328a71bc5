#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The mounted volumes, named by their mount points.
namespace bwp {

/// The mount points of the volumes that hold the user's files, sorted, from a text in the form of
/// /proc/self/mountinfo: no kernel file systems, no single files mounted over others. The root is always
/// included.
std::vector<std::string> VolumesIn(std::string_view mountInfo);

/// The volumes that are mounted now.
std::vector<std::string> Volumes();

/// The volume that holds the folder, links followed.
std::string VolumeOf(const std::vector<std::string>& volumes, const std::string& folder);

}  // namespace bwp
