#include "drawing/primitives.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <exception>

#include "core/desktop.h"
#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

double TopHatLean() {
  return std::tan(DegToRad(10));
}

std::string MmText(double number) {
  return ShortestText(number) + "mm";
}

std::string TwipsText(double millimetres) {
  return WholeTwips(millimetres).Text();
}

Length WholeTwips(double millimetres) {
  return {std::floor(millimetres * TwipsPerMm)};
}

double DegToRad(double degrees) {
  return degrees * Pi / 180;
}

void DrawLineMm(PrintSurface& surface, double x1, double y1, double x2, double y2) {
  surface.DrawLine(Length::OfMm(x1), Length::OfMm(y1), Length::OfMm(x2), Length::OfMm(y2));
}

void PenWidthMm(PrintSurface& surface, double width) {
  surface.PenWidth(Length::OfMm(width));
}

void WriteTextAt(PrintSurface& surface, std::string_view text, double x, double y) {
  surface.CurrentX(Length::OfMm(x));
  surface.CurrentY(Length::OfMm(y));
  surface.Text(text);
}

void DrawArrowHead(PrintSurface& surface, double angle, double x, double y) {
  constexpr double length = 1.1;
  constexpr double halfBase = 0.35;
  // Y runs down the page, so the sine of the angle counts against it.
  const double baseX = x - length * std::cos(angle);
  const double baseY = y + length * std::sin(angle);
  const double sideX = halfBase * std::sin(angle);
  const double sideY = halfBase * std::cos(angle);
  const std::array<Point, 4> corners = {
      {{x, y}, {baseX - sideX, baseY - sideY}, {baseX + sideX, baseY + sideY}, {x, y}}};

  constexpr std::size_t usualLength = 48;
  std::string points;
  points.reserve(usualLength);
  for (const Point& corner : corners) {
    if (!points.empty()) points += " ";
    points += TwipsText(corner.X) + " " + TwipsText(corner.Y);
  }

  surface.BrushStyle(Brush::Solid);
  surface.BrushColor(Black);
  surface.Polygon(points);
  surface.BrushStyle(Brush::Transparent);
  surface.BrushColor(White);
}

void DrawCentredText(PrintSurface& surface, std::string_view text, double x, double y) {
  const double width = surface.TextWidth(text);
  const double height = surface.TextHeight(text);
  // Whole twips, also where the size is odd.
  const double left = WholeTwips(x).Twips() - std::floor(width / 2);
  const double top = WholeTwips(y).Twips() - std::floor(height / 2);

  surface.BrushStyle(Brush::Solid);
  surface.BrushColor(White);
  surface.PenColor(White);
  surface.DrawRectangle(left, top, left + width, top + height);
  surface.CurrentX(left);
  surface.CurrentY(top);
  surface.Text(text);
  surface.PenColor(Black);
}

void DrawDimension(PrintSurface& surface, double x1, double y1, double x2, double y2,
                   std::string_view value) {
  const std::string shown = IsNumber(value) ? ShortestText(ParseDouble(value)) : std::string(value);

  PenWidthMm(surface, ThinPen);
  DrawLineMm(surface, x1, y1, x2, y2);
  if (x1 == x2) {
    DrawArrowHead(surface, HalfPi, x1, y1);
    DrawArrowHead(surface, ThreeHalfPi, x2, y2);
    DrawCentredText(surface, shown, x1, (y1 + y2) / 2);
  } else {
    DrawArrowHead(surface, Pi, x1, y1);
    DrawArrowHead(surface, 0, x2, y2);
    DrawCentredText(surface, shown, (x1 + x2) / 2, y1);
  }
}

void DrawDimension(PrintSurface& surface, double x1, double y1, double x2, double y2,
                   double value) {
  DrawDimension(surface, x1, y1, x2, y2, ShortestText(value));
}

void DrawDashedLine(PrintSurface& surface, double x1, double y1, double x2, double y2, double dash,
                    const Teller& tell) {
  try {
    const double distance = std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
    const double pieces = Divide(distance, 2 * dash);
    const std::int16_t whole = Whole(std::trunc(pieces));
    const double slack = pieces - whole;
    const double stepX = Divide((x2 - x1) * dash, distance);
    const double stepY = Divide((y2 - y1) * dash, distance);
    double x = x1 + slack * stepX / 2;
    // Deliberately without the step: the slack at the start of a sloping line is spread along X
    // only.
    double y = y1 + slack / 2;
    for (int piece = 1; piece <= whole; ++piece) {
      surface.DrawLine(x + stepX / 2, y + stepY / 2, x + 3 * stepX / 2, y + 3 * stepY / 2);
      x += 2 * stepX;
      y += 2 * stepY;
    }
  } catch (const std::exception& error) {
    tell(error.what());
  }
}

}  // namespace orvane
