#include "drawing/page_surface.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "core/numbers.h"
#include "drawing/text_flow.h"

namespace orvane {

namespace {

constexpr double HeaderTop = 5;  // mm below the paper's upper edge
// About what a sheet comes to, so that its shapes need not be moved while it is drawn.
constexpr std::size_t UsualShapes = 512;
constexpr double Tolerance = 1e-6;  // mm

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
  AddBand(footer_, std::max(bottom - LineTwips(metrics_, headerFont_) / TwipsPerMm, 0.0));
}

void PageSurface::AddBand(std::string_view text, double top) {
  const auto parts = BandParts(text);
  const double right = CurrentPage().Width - marginRight_;
  // The share of the free room that stands left of each part.
  constexpr std::array<double, 3> shares{0, 0.5, 1};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (parts.at(i).empty()) continue;
    TextShape shape;
    shape.Text = WithPageNumber(parts.at(i), pageNumber_);
    shape.Type = headerFont_;
    shape.Ascent = metrics_.Ascent(headerFont_) / TwipsPerMm;
    const double width = TextTwips(metrics_, headerFont_, shape.Text) / TwipsPerMm;
    shape.TopLeft = {marginLeft_ + shares.at(i) * (right - marginLeft_ - width), top};
    Shapes().emplace_back(std::move(shape));
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
  return {&page.Shapes, marginTop_, page.Height - marginBottom_, page.Height};
}

FlowPage PageSurface::NextFlow() {
  EndPage();
  BeginPage();
  return PresentFlow();
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
  AddText(text, {x_, y_}, 0);
  x_ += TextWidth(text) / TwipsPerMm;
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
    if (y_ + height > page.Bottom + Tolerance && y_ > page.Top + Tolerance) {
      NextFlow();
      Settle();
    }
    AddText(part, {marginLeft_, y_}, 0);
    y_ += height;
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

void PageSurface::AddText(std::string_view text, Point topLeft, double angle) {
  if (text.empty()) return;
  MeasureFont();
  TextShape shape;
  shape.TopLeft = topLeft;
  shape.Text = OneLine(text);
  shape.Type = font_;
  shape.Color = textColor_;
  shape.Angle = angle;
  shape.Ascent = ascent_;
  Shapes().emplace_back(std::move(shape));
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
  FlowPage page = PresentFlow();
  if (tableOnOnePage_) page.Bottom = std::numeric_limits<double>::infinity();
  y_ = LayOutTable(metrics_, grid, tableBorder_, y_, page, [this] { return NextFlow(); });
  x_ = marginLeft_;
  moved_ = true;
}

}  // namespace orvane
