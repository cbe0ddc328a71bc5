#pragma once

#include <string>

#include "splitjoin/split_join_job.h"
#include "viewer/forms/file_dialog.h"

namespace bwp {

/// The form `Fsel`: asks for the base name of the parts of a split.
class Fsel : public FileDialog {
  Q_OBJECT

 public:
  Fsel(ViewState& state, Notices& notices, SplitJoinJob& job, QWidget* parent);

  /// Shows the form on LastFolder, with a title that says what is split.
  void Start(const std::string& title);

 Q_SIGNALS:
  /// A split is prepared; this question is to be asked.
  void Asked(const std::string& question);
  /// The help button was clicked.
  void HelpWanted();

 private:
  void Prepare(const std::string& baseName);

  ViewState& state_;
  SplitJoinJob& job_;
  QLineEdit& Ftext_;
  QPushButton& ActionB_;
};

}  // namespace bwp
