#include "interaction/forms/control_switch.h"

#include <QAction>
#include <QMenuBar>

namespace bwp {
namespace {

// The toolkit names parts of its own too, and marks them so.
bool HasGivenName(const QObject& object) {
  const QString name = object.objectName();
  return !name.isEmpty() && !name.startsWith(QStringLiteral("qt_")) &&
         !name.startsWith(QStringLiteral("_q_"));
}

void SwitchControls(QWidget& form, Display& display, bool on, bool visibleDuring, const QObject* kept) {
  const QString keptName = (kept != nullptr ? *kept : form).objectName();
  display.LetEventsRun();
  form.setVisible(visibleDuring);
  for (QWidget* const control : form.findChildren<QWidget*>()) {
    if (IsControl(form, *control) && control->objectName() != keptName) control->setEnabled(on);
  }
  for (QAction* const entry : form.findChildren<QAction*>()) {
    if (HasGivenName(*entry) && entry->objectName() != keptName) entry->setEnabled(on);
  }
  form.setVisible(true);
}

}  // namespace

bool IsControl(const QWidget& form, const QWidget& widget) {
  return HasGivenName(widget) && widget.layout() == nullptr && widget.window() == &form &&
         qobject_cast<const QMenuBar*>(&widget) == nullptr;
}

void DisableControls(QWidget& form, Display& display, bool visibleDuring, const QObject* kept) {
  SwitchControls(form, display, false, visibleDuring, kept);
}

void EnableControls(QWidget& form, Display& display, bool visibleDuring, const QObject* kept) {
  SwitchControls(form, display, true, visibleDuring, kept);
}

}  // namespace bwp
