#pragma once

#include <functional>

#include <QLineEdit>

namespace bwp {

/// A search field. Its owner hears of what a person does in it in the order that the mirrors need: of a typed
/// character before the field takes it, of every change of its text, and of its being left.
class TermField : public QLineEdit {
 public:
  TermField(const QString& name, const QString& toolTip, QWidget* parent);

  std::function<void()> onCharacter;  ///< A character, Backspace among them, is about to be typed.
  std::function<void()> onEnter;
  std::function<void()> onEscape;
  /// The text was changed by the person: by a typed character, or else by pasting, dropping and the like.
  std::function<void(bool byCharacter)> onEdited;
  std::function<void()> onLeft;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  bool inCharacter_ = false;
};

}  // namespace bwp
