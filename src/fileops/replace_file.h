#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

#include "fileops/byte_stream.h"
#include "fileops/disk.h"
#include "fileops/progress.h"
#include "fileops/scratch_file.h"
#include "viewer/view_file.h"

namespace bwp {

/// Which file it is and what state it is in: enough to see that another program has changed it.
struct FileVersion {
  FileIdentity identity;
  std::int64_t length = 0;
  timespec modified = {};
  friend bool operator==(const FileVersion& one, const FileVersion& other);
};

/// The version of the file that a stream reads. Throws RunTimeError.
FileVersion VersionOf(const FileSystem::ReadStream& file);

/// Puts complete new content under a file's name by one rename: at every instant, also of a crash or a power
/// cut, the name holds the whole old or the whole new content. Owner, mode and attributes are kept; a
/// symbolic link stays one and its target is replaced; other hard links keep the old content.
class FileReplacement {
 public:
  enum class Outcome {
    kReplaced,      ///< The name holds the new content.
    kStandsAsNew,   ///< The name cannot be replaced; the new content has that name plus ".new".
    kTargetChanged  ///< Another program changed the file meanwhile; nothing was replaced.
  };

  /// The stream reads the file that is to be replaced and outlives this object; its path becomes the target.
  /// Throws RunTimeError.
  FileReplacement(const Disk& disk, const FileSystem::ReadStream& old);

  /// The file as it was when this object was made.
  const FileVersion& Old() const { return version_; }

  /// Brings the new content, which must stay until Commit, to where only a rename is missing: on the disk,
  /// with the old file's attributes, under a hidden name beside it; where that folder takes no new names,
  /// beside the link by which the file was opened, for Commit to let it stand as new. Copying it there from
  /// another file system takes steps of the progress and ends on Cancel; nothing is done after Cancel. Throws
  /// RunTimeError.
  void Prepare(Progress& progress, ScratchFile& content);

  /// Gives up what was prepared and deletes the content. Throws RunTimeError.
  void Discard(ScratchFile& content);

  /// The rename. Throws RunTimeError with nothing changed; 58 when the ".new" name is taken; the
  /// content is then kept in the temporary file, as the error's note says.
  Outcome Commit();

  /// Makes the rename outlast a power cut. Throws RunTimeError; the name holds the new content all the
  /// same.
  void SyncFolder() const;

 private:
  bool TargetChanged() const;
  int Stage(const std::string& folder, Progress* progress);
  void CopyToStaged(Progress* progress);
  void Finish(const ScratchFile& file) const;
  void KeepContent();
  int Place(const std::string& name, bool overwrite);
  int Rename(const std::string& from, const std::string& to) const;
  int RenameNew(const std::string& from, const std::string& to) const;

  const Disk& disk_;
  const FileSystem::ReadStream& old_;
  std::string target_;  ///< The path with its links resolved.
  FileVersion version_;
  ScratchFile* content_ = nullptr;
  std::string temporaryPath_;          ///< Where the content was gathered.
  std::optional<ScratchFile> staged_;  ///< The content's copy, where it had to be copied to its new place.
  int refusal_ = 0;                    ///< Why the target's folder did not take it, an error number.
  std::string placed_;                 ///< Where the content went.
};

}  // namespace bwp
