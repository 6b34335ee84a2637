// A surface that writes down what it is asked for, one operation a line: the sheets' tests compare
// these lines with what the rules give by hand.
#pragma once

#include <string>
#include <vector>

#include "drawing/print_surface.h"

namespace orvane {

// Measures every character as half an em wide and every line as 1.15 em high (ascent 0.9 em), so
// that tests can work sizes out by hand.
class PlainFontMetrics : public FontMetrics {
 public:
  double Width(const Font& font, std::string_view text) const override;
  double Height(const Font& font) const override;
  double Ascent(const Font& font) const override;
};

// A line is the operation's name and its arguments with blanks between them: lengths in the form
// they were given in, texts in double quotes (those of a table's lengths too), colours as "r,g,b",
// pictures as "picture WxH" in mm, flags as "true" and "false", the named styles and settings by
// their numbers. Alignments of cells are recorded as "left 6", "centre 6" and "right 8": reports
// and sheets mean different looks by the number 6.
class RecordingSurface : public PrintSurface {
 public:
  // Paper in twips, landscape; A4 unless another is given.
  explicit RecordingSurface(const FontMetrics& metrics, double pageWidth = 16840,
                            double pageHeight = 11907);

  const std::vector<std::string>& Lines() const { return lines_; }
  void Forget() { lines_.clear(); }

  // PrintSurface, operation by operation.
  void Orientation(PageOrientation orientation) override;
  void MarginLeft(const Length& margin) override;
  void MarginTop(const Length& margin) override;
  void MarginRight(const Length& margin) override;
  void MarginBottom(const Length& margin) override;
  void MarginFooter(const Length& margin) override;
  void HdrFontName(std::string_view name) override;
  void HdrFontSize(double points) override;
  void HdrFontBold(bool bold) override;
  void Header(std::string_view text) override;
  void Footer(std::string_view text) override;
  double PageWidth() const override { return pageWidth_; }
  double PageHeight() const override { return pageHeight_; }
  void Clear() override;
  void StartDoc() override;
  void NewPage() override;
  void EndDoc() override;
  void Finish() override;
  void FontName(std::string_view name) override;
  void FontSize(double points) override;
  void FontBold(bool bold) override;
  void TextColor(Rgb color) override;
  void CurrentX(const Length& x) override;
  void CurrentY(const Length& y) override;
  void Text(std::string_view text) override;
  void Paragraph(std::string_view text) override;
  void TextAngle(int tenths) override;
  void TextAlign(int alignment) override;
  double TextWidth(std::string_view text) override;
  double TextHeight(std::string_view text) override;
  void TextBox(std::string_view text, const Length& left, const Length& top, const Length& width,
               const Length& height, bool transparent) override;
  void PenWidth(const Length& width) override;
  void PenStyle(int style) override;
  void PenColor(Rgb color) override;
  void BrushStyle(Brush style) override;
  void BrushColor(Rgb color) override;
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
  void TableOnOnePage() override;
  void EndTable() override;

 private:
  const FontMetrics& metrics_;
  double pageWidth_;
  double pageHeight_;
  Font font_;
  std::vector<std::string> lines_;
};

}  // namespace orvane
