#include "viewer/placement.h"

#include <algorithm>

namespace bwp {
namespace {

// The margin is this much of the form's outer size, whatever the inner size is measured in.
constexpr double kMarginUnits = 60;

// One dimension of the form; the rules are the same for both.
struct Direction {
  double inner;
  double margin;

  // The position of a percentage of the form, never nearer to its start than the margin.
  double At(double percent) const { return std::max(margin, percent * inner / 100); }
};

struct Span {
  double start, size;
};

Span Along(const Place& place, bool across) {
  return across ? Span{place.left, place.width} : Span{place.top, place.height};
}

void Apply(const Direction& direction, bool across, const Anchor& after, const Anchor& before, Span& span) {
  if (const auto* control = std::get_if<Place>(&after)) {
    span.start = Along(*control, across).start + Along(*control, across).size + direction.margin;
  } else if (const auto* percent = std::get_if<double>(&after)) {
    span.start = direction.At(*percent);
  }
  if (const auto* control = std::get_if<Place>(&before)) {
    span.start = Along(*control, across).start - span.size - direction.margin;
  } else if (const auto* percent = std::get_if<double>(&before)) {
    span.start = std::max(direction.margin, direction.At(*percent) - span.size);
  }
}

void Stretch(const Direction& direction, bool across, const Anchor& reach, Span& span) {
  if (const auto* control = std::get_if<Place>(&reach)) {
    span.size = std::max(0.0, Along(*control, across).start - direction.margin - span.start);
  } else if (const auto* percent = std::get_if<double>(&reach)) {
    span.size = std::max(0.0, direction.At(*percent) - direction.margin - span.start);
  }
}

}  // namespace

double HorizontalMargin(const FormSize& form) {
  return kMarginUnits * form.innerWidth / form.outerWidth;
}

double VerticalMargin(const FormSize& form) {
  return kMarginUnits * form.innerHeight / form.outerHeight;
}

Place Placed(const FormSize& form, Place control, std::string_view code, const Anchors& anchors) {
  const Direction width{form.innerWidth, HorizontalMargin(form)};
  const Direction height{form.innerHeight, VerticalMargin(form)};
  Span x = Along(control, true);
  Span y = Along(control, false);
  Apply(width, true, anchors.rightOf, anchors.leftOf, x);
  Apply(height, false, anchors.below, anchors.above, y);
  Stretch(width, true, anchors.width, x);
  Stretch(height, false, anchors.height, y);
  if (code == "r" || code == "rb") x.start = width.inner - x.size - width.margin;
  if (code == "b" || code == "rb") y.start = height.inner - y.size - height.margin;
  if (code == "c" || code == "cw") x.start = (width.inner - x.size) / 2;
  if (code == "c" || code == "ch") y.start = (height.inner - y.size) / 2;
  if (code == "l") x.start = width.margin;
  return {x.start, y.start, x.size, y.size};
}

}  // namespace bwp
