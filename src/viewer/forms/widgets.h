#pragma once

#include <QString>

class QWidget;

namespace bwp {

/// Gives a control its object name, the name that a screen reader speaks and, if given, its tooltip. A label
/// or anything else that shows a text gets no spoken name, which would replace the text.
void Name(QWidget& widget, const QString& name, const QString& spoken, const QString& tip = {});

/// Shows a window, in front of the others and with the focus.
void BringUp(QWidget& window);

}  // namespace bwp
