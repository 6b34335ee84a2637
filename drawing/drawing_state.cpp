#include "drawing/drawing_state.h"

#include "core/model.h"
#include "core/numbers.h"
#include "drawing/length.h"

namespace orvane {

double SectionViewLeft = 0;
double ElevationLeft = 0;
double LengthScale = 0;
std::int16_t HoleLabelRow = 1;

std::int16_t DrawingWidthOf(double pageWidth) {
  constexpr double rightGap = 4;  // between a full-length elevation and the right margin, mm
  return Whole(pageWidth / TwipsPerMm - (LeftMargin + ElevationInset) - RightMargin - rightGap);
}

double LengthScaleOf(std::int16_t drawingWidth, double length) {
  const double fitted = Divide(drawingWidth, length);
  const double scale = fitted > CrossScale ? CrossScale : fitted;
  // A length that just fits at 1:10 must not pass the room by a rounding of the product.
  return scale * length > drawingWidth ? fitted : scale;
}

}  // namespace orvane
