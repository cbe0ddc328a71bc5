#include "viewer/forms/decimal_box.h"

#include "viewer/forms/cell_geometry.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"

namespace bwp {

DecimalBox::DecimalBox(const QString& name, const QString& accessibleName, QWidget* parent)
    : QLineEdit(parent) {
  // Room for the cursor and the frame beside the longest text that is ever shown.
  constexpr int kRoom = 16;
  Name(*this, name, accessibleName);
  setFont(CellFont());
  // A file that is dropped here is for the window to open.
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
