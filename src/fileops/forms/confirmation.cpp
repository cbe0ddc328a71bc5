#include "fileops/forms/confirmation.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

constexpr int kMostLines = 12;

void Caption(QPushButton& button, const QString& name, const QString& text) {
  Name(button, name, text);
  button.setText(text);
}

}  // namespace

Dialog::Dialog(bool& answer, QWidget* parent)
    : QDialog(parent), answer_(answer), warning_(new PathLabel(kMostLines, false, this)) {
  setObjectName(QStringLiteral("Dialog"));
  setWindowTitle(QStringLiteral("Are You sure ?"));
  warning_->setObjectName(QStringLiteral("Warning"));
  // The label's own text; Ask replaces it before the form is ever shown.
  warning_->setText(
      QStringLiteral("Warning sdfsdffd  fsdfsdfsdf fdsfsdfsd sdfsdfsdf sdfsdfsdf fsdfsdf "
                     "fsdffsdsfd fdsff"));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  Caption(*buttons->button(QDialogButtonBox::Ok), QStringLiteral("OKButton"), QStringLiteral("OK"));
  Caption(*buttons->button(QDialogButtonBox::Cancel), QStringLiteral("CancelButton"),
          QStringLiteral("Cancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, [this] { Answer(true); });
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { Answer(false); });

  auto* column = new QVBoxLayout(this);
  column->addWidget(warning_);
  column->addStretch();
  column->addWidget(buttons);
}

void Dialog::Ask(const std::string& question) {
  warning_->setText(FromPath(question));
  adjustSize();
  BringUp(*this);
}

void Dialog::reject() {
  Answer(false);
}

void Dialog::closeEvent(QCloseEvent* event) {
  event->accept();
}

void Dialog::Answer(bool answer) {
  answer_ = answer;
  hide();
}

}  // namespace bwp
