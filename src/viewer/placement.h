#pragma once

#include <string_view>
#include <variant>

/// The layout of a dialog's controls when it is resized, in form units.
namespace bwp {

/// A form's size without and with its frame.
struct FormSize {
  double innerWidth, innerHeight;
  double outerWidth, outerHeight;
};

struct Place {
  double left = 0, top = 0, width = 0, height = 0;
};

/// What a control is placed relative to: nothing, another control, or a percentage of the form's inner size.
using Anchor = std::variant<std::monostate, Place, double>;

/// Applied in this order: the control moves to a margin's distance from the anchor or, for a percentage, puts
/// its edge there; width and height then place its right and lower edges likewise.
struct Anchors {
  Anchor rightOf = {};
  Anchor below = {};
  Anchor leftOf = {};
  Anchor above = {};
  Anchor width = {};
  Anchor height = {};
};

/// The distance that controls keep from each other and from the form's edges.
double HorizontalMargin(const FormSize& form);
double VerticalMargin(const FormSize& form);

/// The control's new place. The code is applied last: "r" and "b" put it at the right and bottom edge, "rb"
/// at both, "c" into the middle, "cw" and "ch" into the middle of the width or height, "l" at the left edge.
Place Placed(const FormSize& form, Place control, std::string_view code, const Anchors& anchors = {});

}  // namespace bwp
