// The surface that lays a document out: what is drawn on it becomes pages of shapes.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "drawing/hatch.h"
#include "drawing/page_tables.h"
#include "drawing/papers.h"
#include "drawing/print_surface.h"
#include "drawing/table_grid.h"

namespace orvane {

// Text is measured through the metrics alone, so that screen, printer and PDF lay out alike. The
// document has the states empty, open and closed: StartDoc always begins anew; what is drawn with
// no document open goes to the last page, or to a first one that it makes, and EndDoc closes it.
//
// A new surface is in landscape, has margins of 10 mm, the font Arial in 10 points, and draws thin
// black lines without a fill. StartDoc and Clear change none of its settings.
//
// A text that is wider than its room is fitted into it (text_fit), a table that is wider broken
// into parts (table_parts). The room of flowing text is between the margins. Left, middle and right
// part of header and footer keep their own widths where all have room side by side; else the wider
// ones share what the others leave.
//
// Flowing text and tables move with the left margin and go on at the top margin of a new page when
// they reach the bottom margin. A footer's lower edge stands MarginFooter above the paper's, a
// header 5 mm below the upper one; both reach from the left to the right margin, in black. What is
// behind a second bar belongs to the right part. Lines of flowing text that stand over a table go
// to the next page with it where none of its rows has room below them; a blank line takes no new
// page.
//
// A length that is no finite number raises "Overflow".
class PageSurface : public PrintSurface {
 public:
  explicit PageSurface(const FontMetrics& metrics, Paper paper = {});

  // The pages laid out so far; header and footer of a page stand on it from the moment that it
  // ends.
  const Document& Result() const { return document_; }
  // The same handed over; the surface is empty afterwards.
  Document TakeResult();

  // Called with each page that ends, in place of keeping it: for long documents that are written as
  // their pages come. What is drawn behind the last of them begins a page of its own.
  std::function<void(Page)> PageDone;

  // The page events: called when a page ends, before its header and before its footer are laid out;
  // they may set the header font, which the two share.
  std::function<void()> BeforeHeader;
  std::function<void()> BeforeFooter;

  // PrintSurface, operation by operation.
  void Orientation(PageOrientation orientation) override;
  void MarginLeft(const Length& margin) override;
  void MarginTop(const Length& margin) override;
  void MarginRight(const Length& margin) override;
  void MarginBottom(const Length& margin) override;
  void MarginFooter(const Length& margin) override;
  void HdrFontName(std::string_view name) override { headerFont_.Name = name; }
  void HdrFontSize(double points) override { headerFont_.Size = points; }
  void HdrFontBold(bool bold) override { headerFont_.Bold = bold; }
  void Header(std::string_view text) override { header_ = text; }
  void Footer(std::string_view text) override;
  double PageWidth() const override;
  double PageHeight() const override;
  void Clear() override;
  void StartDoc() override;
  void NewPage() override;
  void EndDoc() override;
  void Within(const SheetRoom& room) override { room_ = room; }
  void FooterBreak(std::size_t at) override { footerBreak_ = at; }
  void FontName(std::string_view name) override;
  void FontSize(double points) override;
  void FontBold(bool bold) override;
  void TextColor(Rgb color) override { textColor_ = color; }
  void CurrentX(const Length& x) override;
  void CurrentY(const Length& y) override;
  void Text(std::string_view text) override;
  void Paragraph(std::string_view text) override;
  void TextAngle(int tenths) override { textAngle_ = tenths; }
  void TextAlign(int alignment) override;
  double TextWidth(std::string_view text) override;
  double TextHeight(std::string_view text) override;
  void TextBox(std::string_view text, const Length& left, const Length& top, const Length& width,
               const Length& height, bool transparent) override;
  void PenWidth(const Length& width) override;
  void PenStyle(int style) override;
  void PenColor(Rgb color) override { pen_.Color = color; }
  void BrushStyle(Brush style) override { brush_ = style; }
  void BrushColor(Rgb color) override { brushColor_ = color; }
  void DrawLine(const Length& x1, const Length& y1, const Length& x2, const Length& y2) override;
  void DrawRectangle(const Length& x1, const Length& y1, const Length& x2,
                     const Length& y2) override;
  void DrawCircle(const Length& x, const Length& y, const Length& radius) override;
  void DrawArc(const Length& x, const Length& y, const Length& radius, double start,
               double end) override;
  void DrawEllipse(const Length& x1, const Length& y1, const Length& x2, const Length& y2) override;
  void Polygon(std::string_view points) override;
  void DrawPicture(const std::shared_ptr<const Picture>& picture, const Length& left,
                   const Length& top) override;
  void DrawPicture(const std::shared_ptr<const Picture>& picture, const Length& left,
                   const Length& top, const Length& width, const Length& height) override;
  void StartTable() override;
  void TableCell(TableSetting setting, int row, int column, const TableValue& value) override;
  void TableBorder(int setting) override;
  void TableIndent(const Length& fromLeftMargin) override;
  void TableAlignment(int row, int column, CellAlignment alignment) override;
  void TableMerge(int row, int column, int columns) override;
  void TableOnOnePage() override { tableOnOnePage_ = true; }
  void EndTable() override;

 private:
  // Where header and footer stand among the shapes of the last page, if it has ended.
  struct Furniture {
    bool Stands = false;
    std::size_t First = 0;
    std::size_t Count = 0;
  };

  // Lines of flowing text with nothing behind them, from the first one that isn't blank on.
  struct Title {
    std::size_t FirstShape = 0;
    std::size_t EndShape = 0;
    double Top = 0;  // mm
    double Bottom = 0;
  };

  // Pages.
  Page& CurrentPage();
  std::vector<Shape>& Shapes() { return CurrentPage().Shapes; }
  void AddPage(std::vector<Shape> shapes);
  void BeginPage(std::vector<Shape> shapes = {});
  void EndPage();
  void LayOutFurniture();
  void AddBand(std::string_view text, double top);
  void Settle();
  FlowPage PresentFlow();
  FlowPage NextFlow();
  bool TitleStands() const;
  FlowPage NextFlowWithTitle();

  // Shapes.
  void MeasureFont();
  double AddText(std::string_view text, Point topLeft, double angle, double room);
  void AddEllipse(const Box& place);
  void AddRectangle(const Box& place);
  void AddPolygon(std::vector<Point> corners);
  bool Hatched() const { return brush_ == Brush::DiagonalHatch; }
  Hatch PresentHatch() const;
  Fill PresentFill() const { return {brush_ == Brush::Solid, brushColor_}; }

  const FontMetrics& metrics_;
  Paper paper_;
  Document document_;
  int pageNumber_ = 0;
  Furniture furniture_;

  PageOrientation orientation_ = PageOrientation::Landscape;
  double marginLeft_ = 10;  // mm
  double marginTop_ = 10;
  double marginRight_ = 10;
  double marginBottom_ = 10;
  double marginFooter_ = 5;
  Font headerFont_;
  std::string header_;
  std::string footer_;
  std::size_t footerBreak_ = std::string::npos;
  SheetRoom room_;

  Font font_;
  bool fontMeasured_ = false;
  double lineHeight_ = 0;  // of the font, twips
  double ascent_ = 0;      // mm
  Rgb textColor_ = Black;
  int textAngle_ = 0;  // tenths of a degree
  Pen pen_;
  Brush brush_ = Brush::Transparent;
  Rgb brushColor_ = White;

  // The position; at the margins until something moves it on a page.
  double x_ = 0;
  double y_ = 0;
  bool moved_ = false;
  Title title_;

  bool tableOpen_ = false;
  TableSettings table_;
  Font tableFont_;
  Rgb tableColor_;
  int tableBorder_ = NoTableBorder;
  double tableIndent_ = 0;
  bool tableOnOnePage_ = false;
};

}  // namespace orvane
