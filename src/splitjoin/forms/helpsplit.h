#pragma once

#include <QDialog>

namespace bwp {

/// The form `Helpsplit`: the help text of the split and join tool.
class Helpsplit : public QDialog {
  Q_OBJECT

 public:
  explicit Helpsplit(QWidget* parent);

  /// Shows the form with the title that it has when opened by another form's help button.
  void ShowHelp();
};

}  // namespace bwp
