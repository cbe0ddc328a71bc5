#pragma once

#include <QWidget>

#include "viewer/display.h"

namespace bwp {

/// Whether a widget is one of the form's controls. The menu bar is none, nor is a frame around other
/// controls: disabled, it would take all within along.
bool IsControl(const QWidget& form, const QWidget& widget);

/// Disables every control of a form at once, menu entries and pop-up entries among them, except the one that
/// has the kept control's name. Events that wait are handled first; the form is visible, or not, meanwhile
/// and visible afterwards.
void DisableControls(QWidget& form, Display& display, bool visibleDuring = true,
                     const QObject* kept = nullptr);

/// The other way round.
void EnableControls(QWidget& form, Display& display, bool visibleDuring = true,
                    const QObject* kept = nullptr);

}  // namespace bwp
