#pragma once

#include <string>

#include <QLineEdit>

namespace bwp {

/// A one-line box for a position or a size in decimal, wide enough for the longest file, in the font of the
/// page.
class DecimalBox : public QLineEdit {
 public:
  DecimalBox(const QString& name, const QString& accessibleName, QWidget* parent);

  void ShowText(const std::string& shown);
  /// The box's text, in the program's character set.
  std::string Text() const;
};

}  // namespace bwp
