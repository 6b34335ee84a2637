#include "ui/dialogs/hole_pictures.h"

#include <array>

#include "project/rules/custom_holes.h"

namespace orvane {

namespace {

// A cross-section in the proportions of its family, as it stands on the sheets, in a square of side
// 1; and where each line of holes lies on it.
struct FamilyPicture {
  std::string_view Letter;
  std::vector<QPointF> Outline;
  std::array<QPointF, 4> Lines;  // in the order of HoleLineNames
  QPointF OffGauge;
};

const std::array<FamilyPicture, 6> FamilyPictures = {{
    // clang-format off
    // outline, from one end of the sheet to the other
    //    BF            W1              W2              TF              off gauge
    {"Z", {{0.9, 0.14}, {0.9, 0}, {0.5, 0}, {0.5, 1}, {0.1, 1}, {0.1, 0.86}},
          {{{0.3, 1},    {0.5, 0.72},   {0.5, 0.28},   {0.7, 0}}},     {0.5, 0.5}},
    {"C", {{0.75, 0.14}, {0.75, 0}, {0.25, 0}, {0.25, 1}, {0.75, 1}, {0.75, 0.86}},
          {{{0.5, 1},    {0.25, 0.72},  {0.25, 0.28},  {0.5, 0}}},     {0.25, 0.5}},
    // Its top flange follows the roof.
    {"E", {{0.79, 0.14}, {0.75, 0}, {0.25, 0.13}, {0.25, 1}, {0.75, 1}, {0.75, 0.86}},
          {{{0.5, 1},    {0.25, 0.74},  {0.25, 0.36},  {0.5, 0.065}}}, {0.25, 0.55}},
    // It lies on its side, the strip with the two rows at the left.
    {"V", {{0.35, 0}, {0.1, 0}, {0.1, 1}, {0.95, 1}, {0.95, 0.75}},
          {{{0.5, 1},    {0.1, 0.7},    {0.1, 0.3},    {0.22, 0}}},    {0.1, 0.5}},
    // A web with its one row, on a flange.
    {"R", {{0.75, 0}, {0.75, 1}, {0.2, 1}},
          {{{0.45, 1},   {0.75, 0.58},  {0.75, 0.58},  {0.75, 0.58}}}, {0.75, 0.3}},
    // Lips at top and bottom, sloping sides, the crown at the left.
    {"T", {{0.75, 0}, {0.75, 0.24}, {0.25, 0.33}, {0.25, 0.67}, {0.75, 0.76}, {0.75, 1}},
          {{{0.75, 0.9}, {0.5, 0.715},  {0.5, 0.285},  {0.75, 0.1}}},  {0.25, 0.5}},
    // clang-format on
}};

}  // namespace

RadioPicture HolePicture(std::string_view letter, int code) {
  RadioPicture picture;
  for (const FamilyPicture& family : FamilyPictures) {
    if (family.Letter != letter) continue;
    picture.Outline = family.Outline;
    if (code == OffGaugeCode) {
      picture.Rings.push_back(family.OffGauge);
    } else if (code >= 0 && code < OffGaugeCode) {
      const std::string_view lines = HoleLines.at(static_cast<std::size_t>(code));
      for (std::size_t line = 0; line < family.Lines.size(); ++line) {
        if (lines.at(line) == 'y') picture.Marks.push_back(family.Lines.at(line));
      }
    }
  }
  return picture;
}

}  // namespace orvane
