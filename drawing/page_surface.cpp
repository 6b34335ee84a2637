#include "drawing/page_surface.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <utility>

#include "core/numbers.h"
#include "drawing/table_parts.h"
#include "drawing/text_fit.h"
#include "drawing/text_flow.h"

namespace orvane {

namespace {

constexpr double HeaderTop = 5;  // mm below the paper's upper edge
// About what a sheet comes to, so that its shapes need not be moved while it is drawn.
constexpr std::size_t UsualShapes = 512;
constexpr double Tolerance = 1e-6;  // mm
constexpr double BandGap = 5;       // mm between the parts of a header or footer, at least

// The first two bars divide; further ones belong to the right part.
std::array<std::string_view, 3> BandParts(std::string_view text) {
  std::array<std::string_view, 3> parts;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::size_t bar = i + 1 < parts.size() ? text.find('|') : std::string_view::npos;
    parts.at(i) = text.substr(0, bar);
    if (bar == std::string_view::npos) break;
    text.remove_prefix(bar + 1);
  }
  return parts;
}

using BandWidths = std::array<double, 3>;

// What each part may take of the room that all have: the widest share what the others leave.
BandWidths BandRooms(const BandWidths& widths, double room) {
  std::array<std::size_t, 3> order{0, 1, 2};
  std::sort(order.begin(), order.end(),
            [&](std::size_t a, std::size_t b) { return widths.at(a) < widths.at(b); });
  BandWidths rooms{};
  std::size_t others = order.size();
  for (const std::size_t part : order) {
    rooms.at(part) = std::min(widths.at(part), room / static_cast<double>(others));
    room -= rooms.at(part);
    --others;
  }
  return rooms;
}

std::string WithPageNumber(std::string_view text, int number) {
  constexpr std::string_view mark = "%d";
  std::string line = OneLine(text);
  const std::string digits = DecimalText(number);
  for (std::size_t at = line.find(mark); at != std::string::npos;
       at = line.find(mark, at + digits.size())) {
    line.replace(at, mark.size(), digits);
  }
  return line;
}

}  // namespace

PageSurface::PageSurface(const FontMetrics& metrics, Paper paper)
    : metrics_(metrics), paper_(paper) {}

Document PageSurface::TakeResult() {
  Document result = std::move(document_);
  Clear();
  return result;
}

// Page and document.

void PageSurface::Orientation(PageOrientation orientation) {
  orientation_ = orientation;
  if (document_.Pages.empty() || furniture_.Stands) return;
  // A page that is still empty turns; another one keeps what stands on it where it is.
  Page& page = document_.Pages.back();
  if (!page.Shapes.empty()) return;
  page.Width = orientation == PageOrientation::Portrait ? paper_.Width : paper_.Height;
  page.Height = orientation == PageOrientation::Portrait ? paper_.Height : paper_.Width;
}

void PageSurface::MarginLeft(const Length& margin) {
  marginLeft_ = FiniteMm(margin);
}

void PageSurface::MarginTop(const Length& margin) {
  marginTop_ = FiniteMm(margin);
}

void PageSurface::MarginRight(const Length& margin) {
  marginRight_ = FiniteMm(margin);
}

void PageSurface::MarginBottom(const Length& margin) {
  marginBottom_ = FiniteMm(margin);
}

void PageSurface::MarginFooter(const Length& margin) {
  marginFooter_ = FiniteMm(margin);
}

double PageSurface::PageWidth() const {
  const bool portrait = orientation_ == PageOrientation::Portrait;
  return Nearest((portrait ? paper_.Width : paper_.Height) * TwipsPerMm);
}

double PageSurface::PageHeight() const {
  const bool portrait = orientation_ == PageOrientation::Portrait;
  return Nearest((portrait ? paper_.Height : paper_.Width) * TwipsPerMm);
}

void PageSurface::Clear() {
  document_.Pages.clear();
  pageNumber_ = 0;
  furniture_ = {};
  moved_ = false;
  tableOpen_ = false;
  room_ = {};
}

void PageSurface::StartDoc() {
  // The live sheet is drawn anew at every key: the first page's memory serves again.
  std::vector<Shape> spare;
  if (!document_.Pages.empty()) spare = std::move(document_.Pages.front().Shapes);
  Clear();
  spare.clear();
  BeginPage(std::move(spare));
}

void PageSurface::NewPage() {
  if (tableOpen_) EndTable();
  CurrentPage();
  EndPage();
  BeginPage();
}

void PageSurface::EndDoc() {
  if (tableOpen_) EndTable();
  if (!document_.Pages.empty()) EndPage();
}

Page& PageSurface::CurrentPage() {
  if (document_.Pages.empty()) AddPage({});
  return document_.Pages.back();
}

void PageSurface::AddPage(std::vector<Shape> shapes) {
  const bool portrait = orientation_ == PageOrientation::Portrait;
  shapes.reserve(UsualShapes);
  document_.Pages.push_back({portrait ? paper_.Width : paper_.Height,
                             portrait ? paper_.Height : paper_.Width, std::move(shapes)});
  ++pageNumber_;
  furniture_ = {};
  title_ = {};
}

void PageSurface::BeginPage(std::vector<Shape> shapes) {
  AddPage(std::move(shapes));
  moved_ = false;
}

// What was drawn on a page after its end lets it end again.
void PageSurface::EndPage() {
  std::vector<Shape>& shapes = Shapes();
  if (furniture_.Stands) {
    const auto first = shapes.begin() + static_cast<std::ptrdiff_t>(furniture_.First);
    shapes.erase(first, first + static_cast<std::ptrdiff_t>(furniture_.Count));
  }
  furniture_.First = shapes.size();
  LayOutFurniture();
  furniture_.Count = shapes.size() - furniture_.First;
  furniture_.Stands = true;
  if (!PageDone) return;
  Page page = std::move(document_.Pages.back());
  document_.Pages.pop_back();
  furniture_ = {};
  PageDone(std::move(page));
}

void PageSurface::LayOutFurniture() {
  if (BeforeHeader) BeforeHeader();
  AddBand(header_, HeaderTop);
  if (BeforeFooter) BeforeFooter();
  // Margins below 5 mm give a footer margin below 0.
  const double bottom = CurrentPage().Height - std::max(marginFooter_, 0.0);
  std::string footer = footer_;
  if (footerBreak_ < footer.size()) footer.replace(footerBreak_, 1, ", ");
  AddBand(footer, std::max(bottom - LineTwips(metrics_, headerFont_) / TwipsPerMm, 0.0));
}

void PageSurface::Footer(std::string_view text) {
  footer_ = text;
  footerBreak_ = std::string::npos;
}

void PageSurface::AddBand(std::string_view text, double top) {
  const auto parts = BandParts(text);
  std::array<TextShape, 3> shapes;
  BandWidths widths{};
  double gaps = -BandGap;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (parts.at(i).empty()) continue;
    TextShape& shape = shapes.at(i);
    shape.Text = WithPageNumber(parts.at(i), pageNumber_);
    shape.Type = headerFont_;
    shape.TopLeft.Y = top;
    shape.Ascent = metrics_.Ascent(headerFont_) / TwipsPerMm;
    widths.at(i) = TextTwips(metrics_, headerFont_, shape.Text) / TwipsPerMm;
    gaps += BandGap;
  }
  const double right = CurrentPage().Width - marginRight_;
  const BandWidths rooms = BandRooms(widths, right - marginLeft_ - std::max(gaps, 0.0));
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!parts.at(i).empty()) widths.at(i) = FitText(shapes.at(i), metrics_, rooms.at(i));
  }
  const auto& [leftWidth, middleWidth, rightWidth] = widths;
  shapes.at(0).TopLeft.X = marginLeft_;
  shapes.at(2).TopLeft.X = right - rightWidth;
  // In the middle of the page, unless a neighbour is as long as that.
  const double least = leftWidth > 0 ? marginLeft_ + leftWidth + BandGap : marginLeft_;
  const double most = (rightWidth > 0 ? right - rightWidth - BandGap : right) - middleWidth;
  const double middle = marginLeft_ + (right - marginLeft_ - middleWidth) / 2;
  shapes.at(1).TopLeft.X = std::max(std::min(middle, most), least);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!parts.at(i).empty()) Shapes().emplace_back(std::move(shapes.at(i)));
  }
}

// The position follows the margins until something moves it.
void PageSurface::Settle() {
  if (moved_) return;
  x_ = marginLeft_;
  y_ = marginTop_;
  moved_ = true;
}

FlowPage PageSurface::PresentFlow() {
  Page& page = CurrentPage();
  return {&page.Shapes, marginTop_, page.Height - marginBottom_, page.Width - marginRight_,
          page.Width,   page.Height};
}

FlowPage PageSurface::NextFlow() {
  EndPage();
  BeginPage();
  return PresentFlow();
}

// Whether the title is the last that was drawn, and there is more on its page than that.
bool PageSurface::TitleStands() const {
  if (title_.EndShape == title_.FirstShape || y_ != title_.Bottom) return false;
  const Page& page = document_.Pages.back();
  const double most = (page.Height - marginTop_ - marginBottom_) / 2;
  return page.Shapes.size() == title_.EndShape && title_.Top > marginTop_ + Tolerance &&
         title_.Bottom - title_.Top <= most;
}

// The next page, begun with the title that stands at the foot of this one.
FlowPage PageSurface::NextFlowWithTitle() {
  const Title title = title_;
  std::vector<Shape>& shapes = Shapes();
  const auto first = shapes.begin() + static_cast<std::ptrdiff_t>(title.FirstShape);
  std::vector<Shape> lines(std::make_move_iterator(first), std::make_move_iterator(shapes.end()));
  shapes.erase(first, shapes.end());
  FlowPage page = NextFlow();
  for (Shape& line : lines) {
    std::get<TextShape>(line).TopLeft.Y += page.Top - title.Top;
    page.Shapes->push_back(std::move(line));
  }
  page.Top += title.Bottom - title.Top;
  return page;
}

// Text.

void PageSurface::FontName(std::string_view name) {
  if (font_.Name == name) return;
  font_.Name = name;
  fontMeasured_ = false;
}

void PageSurface::FontSize(double points) {
  if (font_.Size == points) return;
  font_.Size = points;
  fontMeasured_ = false;
}

void PageSurface::FontBold(bool bold) {
  if (font_.Bold == bold) return;
  font_.Bold = bold;
  fontMeasured_ = false;
}

void PageSurface::MeasureFont() {
  if (fontMeasured_) return;
  lineHeight_ = LineTwips(metrics_, font_);
  ascent_ = metrics_.Ascent(font_) / TwipsPerMm;
  fontMeasured_ = true;
}

void PageSurface::CurrentX(const Length& x) {
  Settle();
  x_ = FiniteMm(x);
}

void PageSurface::CurrentY(const Length& y) {
  Settle();
  y_ = FiniteMm(y);
}

void PageSurface::Text(std::string_view text) {
  Settle();
  if (text.empty()) return;
  x_ = std::max(x_, room_.Left);
  x_ += AddText(text, {x_, y_}, 0, room_.Right - x_);
}

void PageSurface::Paragraph(std::string_view text) {
  Settle();
  MeasureFont();
  const std::string line = OneLine(text);
  const double height = lineHeight_ / TwipsPerMm;
  const double room = CurrentPage().Width - marginLeft_ - marginRight_;
  std::vector<std::string_view> lines;
  AddWrappedLines(lines, metrics_, font_, line, (room + Tolerance) * TwipsPerMm);
  for (const std::string_view part : lines) {
    const FlowPage page = PresentFlow();
    const bool fits = y_ + height <= page.Bottom + Tolerance || y_ <= page.Top + Tolerance;
    if (!fits && !part.empty()) {
      NextFlow();
      Settle();
    }
    const std::size_t shape = Shapes().size();
    const bool goesOn =
        title_.EndShape > title_.FirstShape && title_.EndShape == shape && title_.Bottom == y_;
    if (!goesOn) title_ = {shape, shape, y_, y_};
    AddText(part, {marginLeft_, y_}, 0, room);
    y_ += height;
    if (goesOn || !part.empty()) title_ = {title_.FirstShape, Shapes().size(), title_.Top, y_};
  }
  x_ = marginLeft_;
}

// The alignment of flowing text that sheets set moves neither Text nor TextBox.
void PageSurface::TextAlign(int) {}

double PageSurface::TextWidth(std::string_view text) {
  if (text.find_first_of("\r\n") == std::string_view::npos) {
    return TextTwips(metrics_, font_, text);
  }
  return TextTwips(metrics_, font_, OneLine(text));
}

double PageSurface::TextHeight(std::string_view) {
  MeasureFont();
  return lineHeight_;
}

// How wide it is then, mm.
double PageSurface::AddText(std::string_view text, Point topLeft, double angle, double room) {
  if (text.empty()) return 0;
  MeasureFont();
  TextShape shape;
  shape.TopLeft = topLeft;
  shape.Text = OneLine(text);
  shape.Type = font_;
  shape.Color = textColor_;
  shape.Angle = angle;
  shape.Ascent = ascent_;
  const double width = FitText(shape, metrics_, room);
  Shapes().emplace_back(std::move(shape));
  return width;
}

// Tables.

void PageSurface::StartTable() {
  tableOpen_ = true;
  table_.Forget();
  tableFont_ = font_;
  tableColor_ = textColor_;
  tableBorder_ = NoTableBorder;
  tableIndent_ = 0;
  tableOnOnePage_ = false;
}

void PageSurface::TableCell(TableSetting setting, int row, int column, const TableValue& value) {
  if (tableOpen_) table_.Set(setting, row, column, value);
}

void PageSurface::TableBorder(int setting) {
  tableBorder_ = setting;
}

void PageSurface::TableIndent(const Length& fromLeftMargin) {
  tableIndent_ = FiniteMm(fromLeftMargin);
}

void PageSurface::TableAlignment(int row, int column, CellAlignment alignment) {
  if (tableOpen_) table_.SetAlignment(row, column, alignment);
}

void PageSurface::TableMerge(int row, int column, int columns) {
  if (tableOpen_) table_.SetMerge(row, column, columns);
}

// The table stands at the left margin, wherever the last text ended.
void PageSurface::EndTable() {
  if (!tableOpen_) return;
  tableOpen_ = false;
  Settle();
  const double left = marginLeft_ + tableIndent_;
  const double room = CurrentPage().Width - marginRight_ - left;
  const TableGrid grid = table_.Grid(tableFont_, tableColor_, left, room);
  CurrentPage();
  bool underTitle = TitleStands();
  const auto nextPage = [&] {
    const bool bare = std::exchange(underTitle, false) && Shapes().size() == title_.EndShape;
    return bare ? NextFlowWithTitle() : NextFlow();
  };
  double y = y_;
  for (const TableGrid& part : TableParts(grid, room_, y)) {
    FlowPage page = PresentFlow();
    if (tableOnOnePage_) page.Bottom = std::numeric_limits<double>::infinity();
    y_ = LayOutTable(metrics_, part, tableBorder_, y, page, nextPage);
    y = y_ + TablePartGap;
  }
  x_ = marginLeft_;
  moved_ = true;
}

}  // namespace orvane
