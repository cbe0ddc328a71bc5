#pragma once

#include <QDialog>

namespace bwp {

/// The form `Helpsplit`: the help text of the split and join tool.
class Helpsplit : public QDialog {
  Q_OBJECT

 public:
  explicit Helpsplit(QWidget* parent);

  /// Shows the form as the help button of another form does.
  void ShowHelp();
};

}  // namespace bwp
