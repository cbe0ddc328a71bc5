#pragma once

#include "viewer/display.h"
#include "viewer/forms/file_dialog.h"

namespace bwp {

/// The dialog that opens a file for viewing.
class Loader : public FileDialog {
 public:
  Loader(ViewState& state, Display& display, Notices& notices, QWidget* parent);

  /// Shows the dialog on LastFolder.
  void Open();

 private:
  void ShowSize(const std::string& name);
  void Load(const std::string& name);

  ViewState& state_;
  Display& display_;
  Notices& notices_;
  QLineEdit& Ftext_;
  QLabel& Labsize_;
};

}  // namespace bwp
