#pragma once

#include "fileops/save.h"
#include "viewer/forms/file_dialog.h"

namespace bwp {

/// The dialog that saves a range of the open file under another name. Its caption says what kind of save
/// is under way.
class Saver : public FileDialog {
 public:
  Saver(ViewState& state, const Services& services, QWidget* parent);

  /// Shows the dialog on LastFolder, without waiting, for a task of SaveAsTask or SaveChunkTask.
  void Open(const SaveTask& task);
  /// Hides the dialog when the file was opened or changed since: its range means other bytes now.
  void HideWhenStale();

  std::int64_t from = 0;  ///< The first byte to save.
  std::int64_t to = 0;    ///< The last byte to save.

 private:
  SaveTask Task() const;

  const ViewState& state_;
  QLineEdit& Ftext_;
  std::uint64_t opening_ = 0;  // Which opening of the file the range belongs to.
};

}  // namespace bwp
