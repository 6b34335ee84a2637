// Tables on pages: how their cells look, and how they flow from page to page.
#pragma once

#include <functional>
#include <vector>

#include "drawing/document.h"
#include "drawing/font_metrics.h"
#include "drawing/table_grid.h"

namespace orvane {

// The page that a table stands on, mm: where its flow begins and ends, its right margin, and the
// paper's own edges.
struct FlowPage {
  std::vector<Shape>* Shapes = nullptr;
  double Top = 0;
  double Bottom = 0;
  double Right = 0;
  double PaperWidth = 0;
  double PaperHeight = 0;
};

// Lays a table out from `y` down and returns the Y below it; `nextPage` ends the page that is full
// and gives the next one.
//
// Text stands in the middle of its cell in height, with half a millimetre of padding at the sides
// alone; in a report a millimetre, and 0.3 above and below, so that figures don't run into the next
// column. A row with a height keeps it: its texts stand on one line and may use the padding to fit.
// A row without a height grows with its texts, which break into lines by words. What is wider all
// the same, such a text or a single word, is fitted into its cell (text_fit); of a cell that
// reaches over the edge of the paper the room ends at the right margin. A column of width 0 shows
// nothing.
//
// A table whose rows all have a height stays whole where it fits on the paper, bottom margin or
// not. Any other breaks between rows at the bottom margin and goes on at the top of the next page;
// a row taller than a page is split. First rows with rules of their own are the heading: it is
// repeated on each page, and never stands alone at the foot of one.
//
// Borders: none; all lines; for reports the outline and the lines between columns, around the part
// on each page. They are black and 0.1 mm wide; a row's rules run over the whole width.
double LayOutTable(const FontMetrics& metrics, const TableGrid& grid, int border, double y,
                   FlowPage page, const std::function<FlowPage()>& nextPage);

}  // namespace orvane
