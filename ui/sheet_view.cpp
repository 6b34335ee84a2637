#include "ui/sheet_view.h"

#include <utility>

#include "core/desktop.h"
#include "core/model.h"
#include "core/numbers.h"
#include "drawing/draw_section.h"
#include "drawing/sheet_frame.h"
#include "drawing/sheet_layout.h"
#include "drawing/sheet_words.h"
#include "output/page_room.h"
#include "project/section_look.h"
#include "ui/platform/qt_font_metrics.h"
#include "ui/platform/qt_text.h"

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
  setAccessibleName("Fabrication sheet");
  Tell();
}

void SheetView::DrawSection(int ItemIndex) {
  if (ItemIndex < 1) return;
  ++drawCount_;
  // A box that the drawing shows is modal: nothing asks for another sheet behind it.
  try {
    const std::int16_t row = Int16(ItemIndex);
    FitHolesToPage(*spare_, row);
    orvane::DrawSection(*spare_, row, true, true, TakeLookError);
  } catch (...) {
    // The sheet of another section would be taken for this one's.
    if (shownRow_ != ItemIndex) Clear();
    throw;
  }
  std::swap(spare_, shown_);
  shownRow_ = ItemIndex;
  ShowPage(&shown_->Result().Pages.front());
  Tell();
  if (Shown) Shown();
  // Last of all: what they ask for, the next drawing too, finds this one done.
  TheDesktop().ProcessEvents();
}

void SheetView::Follow(const ChangeNotice& change) {
  if (change.Kind == ChangeKind::Registration) {
    const std::int16_t room = DrawingWidth;
    const double separation = separation_;
    ApplyMargins();
    spacedAnew_ = spacedAnew_ || room != DrawingWidth || separation != separation_;
  }
  if (change.Kind == ChangeKind::NewProject) spacedAnew_ = false;
  // Steps from before bring the gaps of their room back.
  if (change.Kind == ChangeKind::Undo || change.Kind == ChangeKind::Redo) {
    if (spacedAnew_) FitAllHolesToPage(*shown_, true);
  }
  // A file has the gaps of the room and the separation that it was saved under.
  if (change.Kind == ChangeKind::OpenProject) FitAllHolesToPage(*shown_, true);
  if (!RuleOf(change.Kind).Redraws || change.Failed) return;
  LookAndSay(change.Row, [&] { DrawSection(change.Row); });
}

void SheetView::Clear() {
  shownRow_ = 0;
  ShowPage(nullptr);
  Tell();
  if (Shown) Shown();
}

// The words cost nothing that a key would feel.
void SheetView::Tell() {
  const bool shows = shownRow_ >= 1 && shownRow_ <= Items.UBound();
  setAccessibleDescription(shows ? ToQt(SheetWords(Items.At(shownRow_))) : QString("empty"));
}

void SheetView::PointAt(const std::vector<SheetPointer>& pointers) {
  std::vector<PageRing> rings;
  if (shownRow_ >= 1 && shownRow_ <= Items.UBound()) {
    const Item& section = Items.At(shownRow_);
    for (const SheetPointer& pointer : pointers) {
      const auto place = PlaceOnSheet(*shown_, PresentMargins(), section, pointer.Thing);
      if (!place) continue;
      rings.push_back(
          {QRectF(QPointF(place->Left, place->Top), QPointF(place->Right, place->Bottom)),
           pointer.IsStrong});
    }
  }
  ShowRings(std::move(rings));
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
  for (const auto& sheet : {&shown_, &spare_}) ApplyPageMargins(**sheet);
  // The room for the elevation is known from here on, before the first section is drawn, so that
  // its holes are spaced for it already.
  FitAllHolesToPage(*shown_, MinHoleSep != separation_);
  separation_ = MinHoleSep;
}

}  // namespace orvane
