#include "drawing/sheet.h"

#include "core/numbers.h"
#include "drawing/primitives.h"

namespace orvane {

Sheet SheetOf(PrintSurface& surface, const SheetSource& source, const Item& section,
              const SectionDim& dim, double length) {
  Sheet sheet{
      .Surface = surface, .Source = source, .Section = section, .Dim = dim, .Length = length};
  // The scale of no length would be a division by zero.
  if (!HasViews(sheet)) return sheet;
  sheet.PageWidth = surface.PageWidth() / TwipsPerMm;
  sheet.Depth = DrawnDepth(section.SectionType, dim);
  sheet.Bottom = ViewBottom(section.SectionType, dim);
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
  if (sectionType != "T") return dim.Dim3;
  return dim.Dim7 + dim.Dim3 + dim.Dim8 + 2 * TopHatLean() * dim.Dim4;
}

double ViewBottom(std::string_view sectionType, const SectionDim& dim) {
  return SectionY(sectionType == "V" ? dim.Dim4 : DrawnDepth(sectionType, dim));
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
