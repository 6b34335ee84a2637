#include "ui/dialogs/hole_pictures.h"

#include <array>
#include <span>

#include "core/section_families.h"
#include "project/rules/custom_holes.h"

namespace orvane {

namespace {

// A cross-section in the proportions of its family, as it stands on the sheets, in a square of side
// 1; and where each line of holes lies on it.
struct FamilyPicture {
  std::span<const QPointF> Outline;  // from one end of the sheet to the other
  std::array<QPointF, HoleLineNames.size()> Lines;
  QPointF OffGauge;
};

// clang-format off
constexpr auto ZOutline = std::to_array<QPointF>(
    {{0.9, 0.14}, {0.9, 0}, {0.5, 0}, {0.5, 1}, {0.1, 1}, {0.1, 0.86}});
constexpr auto COutline = std::to_array<QPointF>(
    {{0.75, 0.14}, {0.75, 0}, {0.25, 0}, {0.25, 1}, {0.75, 1}, {0.75, 0.86}});
// Its top flange follows the roof.
constexpr auto EavesOutline = std::to_array<QPointF>(
    {{0.79, 0.14}, {0.75, 0}, {0.25, 0.13}, {0.25, 1}, {0.75, 1}, {0.75, 0.86}});
// It lies on its side, the strip with the two rows at the left.
constexpr auto VcrOutline = std::to_array<QPointF>(
    {{0.35, 0}, {0.1, 0}, {0.1, 1}, {0.95, 1}, {0.95, 0.75}});
// A web with its one row, on a flange.
constexpr auto RailOutline = std::to_array<QPointF>(
    {{0.75, 0}, {0.75, 1}, {0.2, 1}});
// Lips at top and bottom, sloping sides, the crown at the left.
constexpr auto TopHatOutline = std::to_array<QPointF>(
    {{0.75, 0}, {0.75, 0.24}, {0.25, 0.33}, {0.25, 0.67}, {0.75, 0.76}, {0.75, 1}});

constexpr PerFamily<FamilyPicture> FamilyPictures = {{
    //                     BF           W1             W2             TF              off gauge
    {"Z", {ZOutline,      {{{0.3, 1},    {0.5, 0.72},   {0.5, 0.28},   {0.7, 0}}},     {0.5, 0.5}}},
    {"C", {COutline,      {{{0.5, 1},    {0.25, 0.72},  {0.25, 0.28},  {0.5, 0}}},     {0.25, 0.5}}},
    {"E", {EavesOutline,  {{{0.5, 1},    {0.25, 0.74},  {0.25, 0.36},  {0.5, 0.065}}}, {0.25, 0.55}}},
    {"V", {VcrOutline,    {{{0.5, 1},    {0.1, 0.7},    {0.1, 0.3},    {0.22, 0}}},    {0.1, 0.5}}},
    {"R", {RailOutline,   {{{0.45, 1},   {0.75, 0.58},  {0.75, 0.58},  {0.75, 0.58}}}, {0.75, 0.3}}},
    {"T", {TopHatOutline, {{{0.75, 0.9}, {0.5, 0.715},  {0.5, 0.285},  {0.75, 0.1}}},  {0.25, 0.5}}},
}};
// clang-format on
static_assert(NamesEachFamily(FamilyPictures),
              "FamilyPictures needs one row for each section family");

}  // namespace

RadioPicture HolePicture(std::string_view letter, int code) {
  RadioPicture picture;
  const FamilyPicture* family = FactOf(FamilyPictures, letter);
  if (family == nullptr) return picture;
  picture.Outline.assign(family->Outline.begin(), family->Outline.end());
  if (code == OffGaugeCode) {
    picture.Rings.push_back(family->OffGauge);
  } else if (code >= 0 && code < OffGaugeCode) {
    const std::string_view lines = HoleLines.at(static_cast<std::size_t>(code));
    for (std::size_t line = 0; line < family->Lines.size(); ++line) {
      if (lines.at(line) == 'y') picture.Marks.push_back(family->Lines.at(line));
    }
  }
  return picture;
}

}  // namespace orvane
