#include "drawing/recording_surface.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

namespace {

constexpr double TwipsPerPoint = 20;

// One line in the making: the operation, then its arguments.
class Line {
 public:
  explicit Line(std::string_view operation) {
    text_.reserve(UsualLength);
    text_ = operation;
  }

  Line& operator<<(const Length& length) { return Add(length.Text()); }
  Line& operator<<(double number) { return Add(ShortestText(number)); }
  Line& operator<<(int number) { return Add(DecimalText(number)); }
  Line& operator<<(bool flag) { return Add(flag ? "true" : "false"); }
  Line& operator<<(Rgb color) {
    return Add(DecimalText(color.Red) + "," + DecimalText(color.Green) + "," +
               DecimalText(color.Blue));
  }
  Line& operator<<(CellAlignment alignment) {
    switch (alignment) {
      case CellAlignment::Centre:
        return Add("centre 6");
      case CellAlignment::Right:
        return Add("right 8");
      case CellAlignment::Left:
        break;
    }
    return Add("left 6");
  }
  Line& operator<<(const std::shared_ptr<const Picture>& picture) {
    if (!picture) return Add("picture none");
    return Add("picture " + ShortestText(picture->Width) + "x" + ShortestText(picture->Height));
  }
  // Not an operator: a literal would rather become a flag.
  Line& Quoted(std::string_view text) {
    text_.append(" \"").append(text).append(1, '"');
    return *this;
  }

  void EndIn(std::vector<std::string>& lines) { lines.push_back(std::move(text_)); }

 private:
  static constexpr std::size_t UsualLength = 96;  // four lengths with all their digits

  Line& Add(std::string_view argument) {
    text_.append(1, ' ').append(argument);
    return *this;
  }

  std::string text_;
};

// A line with any number of arguments that aren't texts.
template <class... Arguments>
void Record(std::vector<std::string>& lines, std::string_view operation,
            const Arguments&... arguments) {
  Line line(operation);
  (void)(line << ... << arguments);
  line.EndIn(lines);
}

void RecordText(std::vector<std::string>& lines, std::string_view operation,
                std::string_view text) {
  Line(operation).Quoted(text).EndIn(lines);
}

}  // namespace

double PlainFontMetrics::Width(const Font& font, std::string_view text) const {
  return 0.5 * font.Size * TwipsPerPoint * static_cast<double>(CharCount(text));
}

double PlainFontMetrics::Height(const Font& font) const {
  return 1.15 * font.Size * TwipsPerPoint;
}

double PlainFontMetrics::Ascent(const Font& font) const {
  return 0.9 * font.Size * TwipsPerPoint;
}

RecordingSurface::RecordingSurface(const FontMetrics& metrics, double pageWidth, double pageHeight)
    : metrics_(metrics), pageWidth_(pageWidth), pageHeight_(pageHeight) {}

// Page and document.

void RecordingSurface::Orientation(PageOrientation orientation) {
  Record(lines_, "Orientation", static_cast<int>(orientation));
  const bool upright = pageHeight_ > pageWidth_;
  if (upright != (orientation == PageOrientation::Portrait)) std::swap(pageWidth_, pageHeight_);
}

void RecordingSurface::MarginLeft(const Length& margin) {
  Record(lines_, "MarginLeft", margin);
}

void RecordingSurface::MarginTop(const Length& margin) {
  Record(lines_, "MarginTop", margin);
}

void RecordingSurface::MarginRight(const Length& margin) {
  Record(lines_, "MarginRight", margin);
}

void RecordingSurface::MarginBottom(const Length& margin) {
  Record(lines_, "MarginBottom", margin);
}

void RecordingSurface::MarginFooter(const Length& margin) {
  Record(lines_, "MarginFooter", margin);
}

void RecordingSurface::HdrFontName(std::string_view name) {
  RecordText(lines_, "HdrFontName", name);
}

void RecordingSurface::HdrFontSize(double points) {
  Record(lines_, "HdrFontSize", points);
}

void RecordingSurface::HdrFontBold(bool bold) {
  Record(lines_, "HdrFontBold", bold);
}

void RecordingSurface::Header(std::string_view text) {
  RecordText(lines_, "Header", text);
}

void RecordingSurface::Footer(std::string_view text) {
  RecordText(lines_, "Footer", text);
}

void RecordingSurface::Clear() {
  Record(lines_, "Clear");
}

void RecordingSurface::StartDoc() {
  Record(lines_, "StartDoc");
}

void RecordingSurface::NewPage() {
  Record(lines_, "NewPage");
}

void RecordingSurface::EndDoc() {
  Record(lines_, "EndDoc");
}

void RecordingSurface::Finish() {
  Record(lines_, "Finish");
}

// Text.

void RecordingSurface::FontName(std::string_view name) {
  font_.Name = name;
  RecordText(lines_, "FontName", name);
}

void RecordingSurface::FontSize(double points) {
  font_.Size = points;
  Record(lines_, "FontSize", points);
}

void RecordingSurface::FontBold(bool bold) {
  font_.Bold = bold;
  Record(lines_, "FontBold", bold);
}

void RecordingSurface::TextColor(Rgb color) {
  Record(lines_, "TextColor", color);
}

void RecordingSurface::CurrentX(const Length& x) {
  Record(lines_, "CurrentX", x);
}

void RecordingSurface::CurrentY(const Length& y) {
  Record(lines_, "CurrentY", y);
}

void RecordingSurface::Text(std::string_view text) {
  RecordText(lines_, "Text", text);
}

void RecordingSurface::Paragraph(std::string_view text) {
  RecordText(lines_, "Paragraph", text);
}

void RecordingSurface::TextAngle(int tenths) {
  Record(lines_, "TextAngle", tenths);
}

void RecordingSurface::TextAlign(int alignment) {
  Record(lines_, "TextAlign", alignment);
}

// Measuring changes nothing and is not recorded.
double RecordingSurface::TextWidth(std::string_view text) {
  return Nearest(metrics_.Width(font_, text));
}

double RecordingSurface::TextHeight(std::string_view) {
  return Nearest(metrics_.Height(font_));
}

void RecordingSurface::TextBox(std::string_view text, const Length& left, const Length& top,
                               const Length& width, const Length& height, bool transparent) {
  Line line("TextBox");
  line.Quoted(text) << left << top << width << height << transparent;
  line.EndIn(lines_);
}

// Lines and shapes.

void RecordingSurface::PenWidth(const Length& width) {
  Record(lines_, "PenWidth", width);
}

void RecordingSurface::PenStyle(int style) {
  Record(lines_, "PenStyle", style);
}

void RecordingSurface::PenColor(Rgb color) {
  Record(lines_, "PenColor", color);
}

void RecordingSurface::BrushStyle(Brush style) {
  Record(lines_, "BrushStyle", static_cast<int>(style));
}

void RecordingSurface::BrushColor(Rgb color) {
  Record(lines_, "BrushColor", color);
}

void RecordingSurface::DrawLine(const Length& x1, const Length& y1, const Length& x2,
                                const Length& y2) {
  Record(lines_, "DrawLine", x1, y1, x2, y2);
}

void RecordingSurface::DrawRectangle(const Length& x1, const Length& y1, const Length& x2,
                                     const Length& y2) {
  Record(lines_, "DrawRectangle", x1, y1, x2, y2);
}

void RecordingSurface::DrawCircle(const Length& x, const Length& y, const Length& radius) {
  Record(lines_, "DrawCircle", x, y, radius);
}

void RecordingSurface::DrawArc(const Length& x, const Length& y, const Length& radius, double start,
                               double end) {
  Record(lines_, "DrawArc", x, y, radius, start, end);
}

void RecordingSurface::DrawEllipse(const Length& x1, const Length& y1, const Length& x2,
                                   const Length& y2) {
  Record(lines_, "DrawEllipse", x1, y1, x2, y2);
}

void RecordingSurface::Polygon(std::string_view points) {
  RecordText(lines_, "Polygon", points);
}

void RecordingSurface::DrawPicture(const std::shared_ptr<const Picture>& picture,
                                   const Length& left, const Length& top) {
  Record(lines_, "DrawPicture", picture, left, top);
}

void RecordingSurface::DrawPicture(const std::shared_ptr<const Picture>& picture,
                                   const Length& left, const Length& top, const Length& width,
                                   const Length& height) {
  Record(lines_, "DrawPicture", picture, left, top, width, height);
}

// Tables.

void RecordingSurface::StartTable() {
  Record(lines_, "StartTable");
}

void RecordingSurface::TableCell(TableSetting setting, int row, int column,
                                 const TableValue& value) {
  Line line("TableCell");
  line << static_cast<int>(setting) << row << column;
  if (const auto* text = std::get_if<std::string>(&value)) {
    line.Quoted(*text);
  } else if (const auto* color = std::get_if<Rgb>(&value)) {
    line << *color;
  } else {
    line << std::get<int>(value);
  }
  line.EndIn(lines_);
}

void RecordingSurface::TableBorder(int setting) {
  Record(lines_, "TableBorder", setting);
}

void RecordingSurface::TableIndent(const Length& fromLeftMargin) {
  Record(lines_, "TableIndent", fromLeftMargin);
}

void RecordingSurface::TableAlignment(int row, int column, CellAlignment alignment) {
  Record(lines_, "TableAlignment", row, column, alignment);
}

void RecordingSurface::TableMerge(int row, int column, int columns) {
  Record(lines_, "TableMerge", row, column, columns);
}

void RecordingSurface::TableOnOnePage() {
  Record(lines_, "TableOnOnePage");
}

void RecordingSurface::EndTable() {
  Record(lines_, "EndTable");
}

}  // namespace orvane
