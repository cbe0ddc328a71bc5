#pragma once

#include <QWidget>

namespace bwp::test {

/// Expects that no visible control overlaps another or sticks out of the form, that every fixed text fits,
/// and that every control that takes input has an object name and an accessible name.
void ExpectTidy(QWidget& form);

/// The same at the form's smallest, usual and a large size.
void ExpectTidyAtEverySize(QWidget& form);

}  // namespace bwp::test
