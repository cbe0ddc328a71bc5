#pragma once

#include <QLineEdit>

namespace bwp {

/// A search field. Its signals come in the order that the mirrors need: before the field takes a typed
/// character, after every change of its text, and when the focus leaves it. Files that are dropped on it are
/// left to the window.
class TermField : public QLineEdit {
  Q_OBJECT

 public:
  TermField(const QString& name, const QString& toolTip, QWidget* parent);

  /// Shows a text that mirrors another field: nothing was typed, so no signal comes of it.
  void ShowText(const QString& text);

 Q_SIGNALS:
  /// A character, Backspace among them, is about to be typed.
  void CharacterComing();
  /// Enter or Escape was pressed; one that is held counts once.
  void EnterPressed();
  void EscapePressed();
  /// The text was changed: by a typed character, or else by pasting, dropping, an assistive tool and the
  /// like.
  void Edited(bool byCharacter);
  void FocusLeft();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  bool inCharacter_ = false;
  bool showing_ = false;
};

}  // namespace bwp
