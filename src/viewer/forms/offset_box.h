#pragma once

#include <string>

#include <QTextEdit>

namespace bwp {

/// A one-line box for a hexadecimal offset, with its pairs of digits plain and bold in turn. Enter and Escape
/// are left to the event filters of the box.
class OffsetBox : public QTextEdit {
  Q_OBJECT
 public:
  OffsetBox(const QString& name, const QString& accessibleName, QWidget* parent = nullptr);

  /// Shows the text with its pairs marked, the cursor at its start.
  void ShowText(const std::string& text);
  /// The box's text, in the program's character set.
  std::string Text() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  QString shown_;
};

}  // namespace bwp
