#pragma once

#include <string>

#include <QLineEdit>

namespace bwp {

/// A one-line box for a position or a size in decimal, wide enough for the longest file's, in the font of the
/// bytes.
class DecimalBox : public QLineEdit {
 public:
  DecimalBox(const QString& name, const QString& accessibleName, QWidget* parent);

  void ShowText(const std::string& shown);
  /// What stands in the box, in the program's character set.
  std::string Text() const;
};

}  // namespace bwp
