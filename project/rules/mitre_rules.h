// Mitred ends: what is taken of a typed angle, and the sketch of a beam with both ends cut.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvane {

// The steepest cut either way, degrees.
constexpr double MaxMitre = 60.0;

// What a box shows of a stored angle, and what leaving it makes of a typed one: one decimal place,
// within the steepest cuts. Text that is no number is 0.
std::string MitreText(float angle);
std::string LeftMitreText(std::string_view typed);

// Both angles of a row of Items from the texts of their boxes, left first. Neither is stored when
// one raises "Overflow". One change, which leaves ProjectDirty as it is.
void StoreMitres(std::int16_t ItemIndex, std::string_view left, std::string_view right);

// The four corners of the sketch, in the units of the picture: the beam fills it but for a margin,
// so that the slant of its ends alone tells the angles.
struct BeamSketch {
  double Top = 0;     // of both upper corners, from the picture's upper edge
  double Bottom = 0;  // of both lower corners
  double TopLeft = 0, BottomLeft = 0, TopRight = 0, BottomRight = 0;  // from its left edge
};

// For a picture of that size in twips and two angles in radians. A positive angle cuts back the top
// at the left end and the bottom at the right end, a negative one the other edge. Nothing guards
// against ends that cross on a narrow picture.
BeamSketch SketchBeam(double width, double height, double left, double right);

}  // namespace orvane
