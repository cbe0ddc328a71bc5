#pragma once

#include <string_view>
#include <variant>

/// Where a dialog's controls stand when it is resized, in form units.
namespace bwp {

/// The inside of a form's frame and the whole of it.
struct FormSize {
  double innerWidth, innerHeight;
  double outerWidth, outerHeight;
};

struct Place {
  double left = 0, top = 0, width = 0, height = 0;
};

/// What a control is placed by: nothing, another control, or a percentage of the form's inner size.
using Anchor = std::variant<std::monostate, Place, double>;

/// In the order in which they are applied: the control moves to the margin from the anchor or, for a
/// percentage, with its edge to it; width and height then move its right and lower edge likewise.
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

/// The control's new place. The code has the last word: "r" and "b" put it at the right and bottom edge, "rb"
/// at both, "c" into the middle, "cw" and "ch" into the middle of the width or height, "l" at the left edge.
Place Placed(const FormSize& form, Place control, std::string_view code, const Anchors& anchors = {});

}  // namespace bwp
