#pragma once

#include <string>

#include <QDialog>

#include "viewer/forms/path_label.h"

namespace bwp {

/// The form that asks whether to go ahead. It does not block: the caller looks at the answer later.
class Dialog : public QDialog {
 public:
  /// `answer` is where OK leaves true and Cancel false; nothing else ever writes it here. Escape is Cancel.
  /// Closing the window by its frame is no answer, and leaves the one before.
  Dialog(bool& answer, QWidget* parent);

  /// Shows the question without waiting.
  void Ask(const std::string& question);

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Answer(bool answer);

  bool& answer_;
  PathLabel* warning_;
};

}  // namespace bwp
