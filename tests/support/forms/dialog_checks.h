#pragma once

#include <QWidget>

namespace bwp::test {

/// Expects that no control that is seen overlaps another or sticks out of the form, that every text has the
/// room it needs, and that whatever takes input has a name of its own and one that a person would say.
void ExpectTidy(QWidget& form);

/// The same at the form's smallest, usual and a large size.
void ExpectTidyAtEverySize(QWidget& form);

}  // namespace bwp::test
