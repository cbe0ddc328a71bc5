#include "viewer/forms/widgets.h"

#include <QWidget>

namespace bwp {

void Name(QWidget& widget, const QString& name, const QString& spoken, const QString& tip) {
  widget.setObjectName(name);
  widget.setAccessibleName(spoken);
  if (!tip.isEmpty()) widget.setToolTip(tip);
}

void BringUp(QWidget& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace bwp
