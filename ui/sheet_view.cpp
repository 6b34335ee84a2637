#include "ui/sheet_view.h"

#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "drawing/draw_section.h"
#include "drawing/drawing_state.h"
#include "drawing/sheet_frame.h"
#include "holes/hole_list.h"
#include "ui/platform/qt_font_metrics.h"

namespace orvane {

namespace {

// What is drawn of a section and its holes around the upper edge of the elevation, mm of the sheet:
// letters and sloping flanges above it, the deepest section, the chain of gaps below that.
constexpr double AboveElevation = 8;
constexpr double DeepestElevation = 35;
constexpr double BelowElevation = 10;

}  // namespace

SheetView::SheetView(QWidget* parent)
    : PageView(parent),
      shown_(std::make_unique<PageSurface>(SheetMetrics())),
      spare_(std::make_unique<PageSurface>(SheetMetrics())) {
  setObjectName("VSPrinter1");
}

void SheetView::DrawSection(int ItemIndex) {
  if (ItemIndex < 1) return;
  const std::int16_t row = Int16(ItemIndex);
  const int draw = ++drawCount_;
  // Pending events run at the end of a drawing and may ask for the next one.
  std::unique_ptr<PageSurface> sheet = std::move(spare_);
  if (!sheet) sheet = std::make_unique<PageSurface>(SheetMetrics());
  const std::int16_t formerWidth = DrawingWidth;
  bool spaced = true;
  try {
    if (PrepareDrawingWidth(*sheet)) {
      spaced = false;
      AdjustHoleSpacing(row);
      spaced = true;
    }
    orvane::DrawSection(*sheet, row, true, true);
  } catch (...) {
    spare_ = std::move(sheet);
    if (!spaced) DrawingWidth = formerWidth;  // tried again with the next drawing
    // The sheet of another section would be taken for this one's.
    if (shownRow_ != ItemIndex) Clear();
    throw;
  }
  if (draw > shownDraw_) {
    std::swap(sheet, shown_);
    shownDraw_ = draw;
    shownRow_ = ItemIndex;
    ShowPage(&shown_->Result().Pages.front());
    if (Shown) Shown();
  }
  spare_ = std::move(sheet);
}

void SheetView::Follow(const ChangeNotice& change) {
  if (change.Kind == ChangeKind::Registration) ApplyMargins();
  if (RuleOf(change.Kind).Redraws && !change.Failed) DrawSection(change.Row);
}

void SheetView::Clear() {
  shownDraw_ = drawCount_;
  shownRow_ = 0;
  ShowPage(nullptr);
  if (Shown) Shown();
}

QRect SheetView::ElevationPlace() const {
  const QRectF paper = PaperPlace();
  if (paper.isEmpty()) return {};
  QRectF elevation = paper;
  elevation.setLeft(paper.left() + (LeftMargin + ElevationInset) * PixelsPerMm());
  elevation.setTop(paper.top() + (ViewTop - AboveElevation) * PixelsPerMm());
  elevation.setHeight((AboveElevation + DeepestElevation + BelowElevation) * PixelsPerMm());
  const QRect seen = elevation.toAlignedRect().intersected(viewport()->rect());
  return {viewport()->mapToGlobal(seen.topLeft()), seen.size()};
}

void SheetView::ApplyMargins() {
  for (const auto& sheet : {&shown_, &spare_}) {
    if (*sheet) ApplyPageMargins(**sheet);
  }
  // The room for the elevation is known from here on, before the first section is drawn, so that
  // its holes are spaced for it already.
  const bool newRoom = PrepareDrawingWidth(*shown_);
  if (!newRoom && MinHoleSep == separation_) return;
  separation_ = MinHoleSep;
  for (int row = 1; row <= Items.UBound(); ++row) {
    try {
      AdjustHoleSpacing(Int16(row));
    } catch (const RuntimeError&) {
      // Holes that leave no room for one another are told when the section is looked at.
    }
  }
}

}  // namespace orvane
