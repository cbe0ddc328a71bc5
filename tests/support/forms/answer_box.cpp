#include "support/forms/answer_box.h"

#include <algorithm>
#include <utility>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimerEvent>

namespace bwp::test {
namespace {

const char* SignOf(QMessageBox::Icon icon) {
  switch (icon) {
    case QMessageBox::NoIcon:
      return "";
    case QMessageBox::Information:
      return " (i)";
    case QMessageBox::Warning:
      return " (!)";
    case QMessageBox::Critical:
      return " (x)";
    case QMessageBox::Question:
      return " (?)";
  }
  return "";
}

SeenBox Look(const QMessageBox& box) {
  SeenBox seen{box.windowTitle().toStdString(), box.text().toStdString(), box.icon(), {}};
  QList<QAbstractButton*> buttons = box.buttons();
  std::sort(buttons.begin(), buttons.end(),
            [](const QAbstractButton* a, const QAbstractButton* b) { return a->x() < b->x(); });
  for (const QAbstractButton* button : buttons) seen.buttons.push_back(button->text().toStdString());
  return seen;
}

}  // namespace

std::string SeenBox::Line() const {
  return "[" + title + "] " + text + SignOf(icon);
}

AnswerBoxes::AnswerBoxes(std::vector<QMessageBox::StandardButton> answers) : answers_(std::move(answers)) {
  qApp->installEventFilter(this);
}

AnswerBoxes::~AnswerBoxes() {
  qApp->removeEventFilter(this);
}

std::vector<std::string> AnswerBoxes::Lines() const {
  std::vector<std::string> lines;
  lines.reserve(seen_.size());
  for (const SeenBox& box : seen_) lines.push_back(box.Line());
  return lines;
}

bool AnswerBoxes::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && qobject_cast<QMessageBox*>(watched) != nullptr) startTimer(0);
  return QObject::eventFilter(watched, event);
}

// The box is open by now and waits in an event loop of its own.
void AnswerBoxes::timerEvent(QTimerEvent* event) {
  killTimer(event->timerId());
  if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) Answer(*box);
}

void AnswerBoxes::Answer(QMessageBox& box) {
  seen_.push_back(Look(box));
  if (onBox) onBox(box);
  const std::size_t turn = std::min(seen_.size(), answers_.size());
  const QMessageBox::StandardButton answer = turn == 0 ? QMessageBox::NoButton : answers_[turn - 1];
  if (QAbstractButton* button = box.button(answer)) {
    QTest::mouseClick(button, Qt::LeftButton);
  } else {
    QTest::keyClick(&box, Qt::Key_Escape);
  }
}

}  // namespace bwp::test
