#pragma once

#include <string_view>
#include <variant>

#include <QWidget>

namespace bwp {

/// What PlaceControl places a control relative to: nothing, another control of the form, or a percentage of
/// the form.
using ControlAnchor = std::variant<std::monostate, const QWidget*, double>;

/// As the Anchors of viewer/placement.h.
struct ControlAnchors {
  ControlAnchor rightOf = {}, below = {}, leftOf = {}, above = {}, width = {}, height = {};
};

/// Places a control of a form that is being resized, by the rules of Placed in viewer/placement.h.
void PlaceControl(const QWidget& form, QWidget& control, std::string_view code,
                  const ControlAnchors& anchors = {});

}  // namespace bwp
