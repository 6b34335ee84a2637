#include "drawing/elevation.h"

#include "drawing/drawing_state.h"
#include "drawing/length.h"

namespace orvane {

double ElevationX(double along) {
  return ElevationLeft + LengthScale * along;
}

void WriteTextAt(PrintSurface& surface, std::string_view text, double x, double y) {
  surface.CurrentX(Length::OfMm(x));
  surface.CurrentY(Length::OfMm(y));
  surface.Text(text);
}

void DrawRowLabel(PrintSurface& surface, std::string_view text, double y) {
  const double width = surface.TextWidth(text) / TwipsPerMm;
  const double height = surface.TextHeight(text) / TwipsPerMm;
  WriteTextAt(surface, text, ElevationLeft - 1 - width, y - height / 2);
}

}  // namespace orvane
