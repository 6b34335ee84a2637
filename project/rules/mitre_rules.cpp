#include "project/rules/mitre_rules.h"

#include <cmath>

#include "core/model.h"
#include "core/numbers.h"
#include "project/changes.h"

namespace orvane {

namespace {

constexpr double SketchMargin = 240;  // twips

}  // namespace

std::string MitreText(float angle) {
  return FormatNumber(angle, 1);
}

std::string LeftMitreText(std::string_view typed) {
  std::string text = FormatNumber(Val(typed), 1);
  if (Val(text) > MaxMitre) return FormatNumber(MaxMitre, 1);
  if (Val(text) < -MaxMitre) return FormatNumber(-MaxMitre, 1);
  return text;
}

void StoreMitres(std::int16_t ItemIndex, std::string_view left, std::string_view right) {
  const float mitreLeft = Float32(Val(left));
  const float mitreRight = Float32(Val(right));
  Change(ChangeKind::Mitres, ItemIndex, [&] {
    Item& item = Items.At(ItemIndex);
    item.MitreLeft = mitreLeft;
    item.MitreRight = mitreRight;
  });
}

BeamSketch SketchBeam(double width, double height, double left, double right) {
  const double rightEdge = width - 2 * SketchMargin + SketchMargin;
  const double bottom = height - SketchMargin;
  const double h = bottom - SketchMargin;
  BeamSketch beam = {SketchMargin, bottom, SketchMargin, SketchMargin, rightEdge, rightEdge};
  if (left > 0) {
    beam.TopLeft = SketchMargin + std::tan(left) * h;
  } else {
    beam.BottomLeft = SketchMargin - std::tan(left) * h;
  }
  if (right > 0) {
    beam.BottomRight = rightEdge - std::tan(right) * h;
  } else {
    beam.TopRight = rightEdge + std::tan(right) * h;
  }
  return beam;
}

}  // namespace orvane
