#include "viewer/forms/place_control.h"

#include "viewer/forms/units.h"
#include "viewer/placement.h"

namespace bwp {
namespace {

Place PlaceOf(const QWidget& control) {
  return {ToUnits(control.x()), ToUnits(control.y()), ToUnits(control.width()), ToUnits(control.height())};
}

Anchor AnchorOf(const ControlAnchor& anchor) {
  if (const auto* control = std::get_if<const QWidget*>(&anchor)) return PlaceOf(**control);
  if (const auto* percent = std::get_if<double>(&anchor)) return *percent;
  return {};
}

// Until the window manager has framed the form, the frame's size is not valid; it is never smaller than the
// form.
FormSize SizeOf(const QWidget& form) {
  const QSize outer = form.frameGeometry().size().expandedTo(form.size());
  return {ToUnits(form.width()), ToUnits(form.height()), ToUnits(outer.width()), ToUnits(outer.height())};
}

}  // namespace

void PlaceControl(const QWidget& form, QWidget& control, std::string_view code,
                  const ControlAnchors& anchors) {
  const Place place = Placed(SizeOf(form), PlaceOf(control), code,
                             {AnchorOf(anchors.rightOf), AnchorOf(anchors.below), AnchorOf(anchors.leftOf),
                              AnchorOf(anchors.above), AnchorOf(anchors.width), AnchorOf(anchors.height)});
  control.setGeometry(ToPixels(place.left), ToPixels(place.top), ToPixels(place.width),
                      ToPixels(place.height));
}

}  // namespace bwp
