#include "drawing/sheet.h"

#include "core/numbers.h"
#include "core/section_families.h"
#include "drawing/primitives.h"

namespace orvane {

namespace {

double Web(const SectionDim& dim) {
  return dim.Dim3;
}

// The strip of a section that lies on its side.
double Strip(const SectionDim& dim) {
  return dim.Dim4;
}

// Of a top hat: both lips, the crown, and the drop of both leaning sides.
double Overall(const SectionDim& dim) {
  return dim.Dim7 + dim.Dim3 + dim.Dim8 + 2 * TopHatLean() * dim.Dim4;
}

// Sizes of a family's views, mm of the section.
struct Extent {
  double (*Depth)(const SectionDim& dim) = Web;
  double (*Height)(const SectionDim& dim) = Web;
};

constexpr PerFamily<Extent> Extents = {{
    {"Z", {Web, Web}},
    {"E", {Web, Web}},
    {"C", {Web, Web}},
    {"V", {Web, Strip}},
    {"R", {Web, Web}},
    {"T", {Overall, Overall}},
}};
static_assert(NamesEachFamily(Extents), "Extents needs one row for each section family");

// A section of no family has its text, mitres and holes over the depth of its product.
Extent ExtentOf(std::string_view sectionType) {
  const Extent* extent = FactOf(Extents, sectionType);
  return extent == nullptr ? Extent{} : *extent;
}

}  // namespace

Sheet SheetOf(PrintSurface& surface, const SheetSource& source, const Item& section,
              const SectionDim& dim, double length) {
  Sheet sheet{
      .Surface = surface, .Source = source, .Section = section, .Dim = dim, .Length = length};
  // The scale of no length would be a division by zero.
  if (!HasViews(sheet)) return sheet;
  sheet.PageWidth = surface.PageWidth() / TwipsPerMm;
  sheet.Depth = DrawnDepth(section.SectionType, dim);
  sheet.Height = ViewHeight(section.SectionType, dim);
  sheet.Bottom = SectionY(sheet.Height);
  sheet.SectionViewLeft = source.Margins.LeftMargin + SectionViewInset;
  sheet.ElevationLeft = source.Margins.LeftMargin + ElevationInset;
  sheet.DrawingWidth = DrawingWidthOf(surface.PageWidth(), source.Margins);
  sheet.LengthScale = LengthScaleOf(sheet.DrawingWidth, length);
  return sheet;
}

bool HasViews(const Sheet& sheet) {
  return sheet.Dim.Dim3 > 0 && sheet.Length > 0;
}

double DrawnDepth(std::string_view sectionType, const SectionDim& dim) {
  return ExtentOf(sectionType).Depth(dim);
}

double ViewHeight(std::string_view sectionType, const SectionDim& dim) {
  return ExtentOf(sectionType).Height(dim);
}

double ViewBottom(std::string_view sectionType, const SectionDim& dim) {
  return SectionY(ViewHeight(sectionType, dim));
}

std::int16_t DrawingWidthOf(double pageWidth, const PageMargins& margins) {
  return Whole(pageWidth / TwipsPerMm - (margins.LeftMargin + ElevationInset) -
               margins.RightMargin - ElevationRightGap);
}

double LengthScaleOf(std::int16_t drawingWidth, double length) {
  const double fitted = Divide(drawingWidth, length);
  const double scale = fitted > CrossScale ? CrossScale : fitted;
  // A length that just fits at 1:10 must not pass the room by a rounding of the product.
  return scale * length > drawingWidth ? fitted : scale;
}

double ElevationX(const Sheet& sheet, double along) {
  return sheet.ElevationLeft + sheet.LengthScale * along;
}

double SectionX(const Sheet& sheet, double x) {
  return sheet.SectionViewLeft + CrossScale * x;
}

double SectionY(double y) {
  return ViewTop + CrossScale * y;
}

void DrawRowLabel(const Sheet& sheet, std::string_view text, double y) {
  PrintSurface& surface = sheet.Surface;
  const double width = surface.TextWidth(text) / TwipsPerMm;
  const double height = surface.TextHeight(text) / TwipsPerMm;
  WriteTextAt(surface, text, sheet.ElevationLeft - RowLabelGap - width, y - height / 2);
}

}  // namespace orvane
