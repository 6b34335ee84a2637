// The small drawing primitives that all sheets are made of. Lengths are millimetres unless said
// otherwise.
#pragma once

#include <string>
#include <string_view>

#include "core/desktop.h"
#include "core/model.h"
#include "drawing/print_surface.h"

namespace orvane {

// Pens of all sheets, mm: the section's outline and edges; dimension, extension and hidden lines.
constexpr double ObjectPen = 0.4;
constexpr double ThinPen = 0.1;

// Tangent of the 10 degrees that a top hat's sides lean.
double TopHatLean();

// The number in its shortest text followed by "mm"; nothing is rounded.
std::string MmText(double number);
// The whole part of the millimetres in twips, rounded towards minus infinity, without a unit.
std::string TwipsText(double millimetres);
// The same as a bare length.
Length WholeTwips(double millimetres);

double DegToRad(double degrees);

// The surface's straight line and pen, in millimetres.
void DrawLineMm(PrintSurface& surface, double x1, double y1, double x2, double y2);
void PenWidthMm(PrintSurface& surface, double width);

// The text with its top left corner at (x, y).
void WriteTextAt(PrintSurface& surface, std::string_view text, double x, double y);

// A solid black triangle with its tip at (x, y), pointing right at angle 0, up at HalfPi.
void DrawArrowHead(PrintSurface& surface, double angle, double x, double y);

// The text in a white box centred on (x, y). The brush stays solid and white.
void DrawCentredText(PrintSurface& surface, std::string_view text, double x, double y);

// A dimension line with arrow heads and its value; the first end is the top or the left one. A
// numeric value is shown as its plain text, trimmed.
void DrawDimension(PrintSurface& surface, double x1, double y1, double x2, double y2,
                   std::string_view value);
void DrawDimension(PrintSurface& surface, double x1, double y1, double x2, double y2, double value);

// Dashes and gaps of equal length, all five in twips. An error in it, such as that of a line
// without length, is told, and the sheet goes on.
void DrawDashedLine(PrintSurface& surface, double x1, double y1, double x2, double y2, double dash,
                    const Teller& tell = TellInMessageBox);

}  // namespace orvane
