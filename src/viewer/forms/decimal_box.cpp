#include "viewer/forms/decimal_box.h"

#include "viewer/forms/cell_geometry.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"

namespace bwp {

DecimalBox::DecimalBox(const QString& name, const QString& accessibleName, QWidget* parent)
    : QLineEdit(parent) {
  // The longest text that is ever shown, then room for the cursor and the frame.
  constexpr int kRoom = 16;
  Name(*this, name, accessibleName);
  setFont(CellFont());
  // What is dropped here is a file for the window.
  setAcceptDrops(false);
  setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("2.147.483.647")) + kRoom);
}

void DecimalBox::ShowText(const std::string& shown) {
  const QString text = FromCodePage(shown);
  if (this->text() != text) setText(text);
}

std::string DecimalBox::Text() const {
  return ToCodePage(text());
}

}  // namespace bwp
