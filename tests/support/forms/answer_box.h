#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QMessageBox>
#include <QObject>

namespace bwp::test {

/// A message box as the user would see it.
struct SeenBox {
  std::string title;
  std::string text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  std::vector<std::string> buttons;  ///< The buttons' texts, from left to right.

  /// "[title] text (x)", the icon being (i), (!), (x), (?) or absent.
  std::string Line() const;
};

/// Records and answers every message box that opens during its lifetime, so that no test waits for a user.
/// Create it before the click that opens the box.
class AnswerBoxes : public QObject {
 public:
  /// Each box gets the next answer, the last one serves all that follow. NoButton means the Escape key, which
  /// also closes a box that lacks the button asked for.
  explicit AnswerBoxes(std::vector<QMessageBox::StandardButton> answers = {QMessageBox::Ok});
  ~AnswerBoxes() override;

  const std::vector<SeenBox>& Seen() const { return seen_; }
  /// The boxes so far, one Line each.
  std::vector<std::string> Lines() const;

  /// Runs while a box is open, before it is answered.
  std::function<void(QMessageBox&)> onBox;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void Answer(QMessageBox& box);

  std::vector<QMessageBox::StandardButton> answers_;
  std::vector<SeenBox> seen_;
};

}  // namespace bwp::test
