#include "viewer/forms/message_notices.h"

#include <QApplication>
#include <QMessageBox>

#include "viewer/forms/text_conversion.h"

namespace bwp {
namespace {

QMessageBox::Icon IconOf(Notices::Icon icon) {
  switch (icon) {
    case Notices::Icon::kNone:
      return QMessageBox::NoIcon;
    case Notices::Icon::kInformation:
      return QMessageBox::Information;
    case Notices::Icon::kExclamation:
      return QMessageBox::Warning;
    case Notices::Icon::kCritical:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

// Plain text, because a path may look like rich text.
void Fill(QMessageBox& box, const std::string& title, const std::string& text, QMessageBox::Icon icon) {
  box.setTextFormat(Qt::PlainText);
  box.setWindowTitle(title.empty() ? QStringLiteral("Bytewarp") : FromPath(title));
  box.setText(FromPath(text));
  box.setIcon(icon);
}

}  // namespace

QWidget* MessageNotices::Owner() const {
  QWidget* const active = QApplication::activeWindow();
  return active != nullptr ? active : window_;
}

void MessageNotices::Tell(const std::string& text, const std::string& title, Icon icon) {
  QMessageBox box(Owner());
  Fill(box, title, text, IconOf(icon));
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
}

bool MessageNotices::Ask(const std::string& question) {
  QMessageBox box(Owner());
  Fill(box, {}, question, QMessageBox::NoIcon);
  box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
  box.setDefaultButton(QMessageBox::Ok);
  box.setEscapeButton(QMessageBox::Cancel);
  return box.exec() == QMessageBox::Ok;
}

}  // namespace bwp
