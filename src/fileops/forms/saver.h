#pragma once

#include "fileops/save.h"
#include "viewer/forms/file_dialog.h"

namespace bwp {

/// The dialog that saves a range of the open file under another name. Its caption tells what kind of save is
/// under way.
class Saver : public FileDialog {
 public:
  Saver(ViewState& state, Services& services, QWidget* parent);

  /// Shows the dialog on LastFolder, without waiting, for a task of SaveAsTask or SaveChunkTask.
  void Open(const SaveTask& task);

  std::int64_t from = 0;  ///< The first byte to save.
  std::int64_t to = 0;    ///< The last byte to save.

 private:
  SaveTask Task() const;

  QLineEdit& Ftext_;
};

}  // namespace bwp
