// Paints the pages of a document: the one painter for window, printer, PDF and SVG.
#pragma once

#include <QPainter>
#include <QPointF>

#include "drawing/document.h"

namespace orvane {

enum class PaintDevice {
  Screen,  // lines are a pixel wide at least, level and upright ones begin on whole pixels
  Paper    // lines are as wide as they were drawn
};

// Paints the page's shapes with its upper left corner at `corner` of the painter, `unitsPerMm` of
// the painter's units to the millimetre. The paper itself is the caller's. Leaves the painter as it
// was. Pens scale with the page; the lines' ends are flat, their corners mitred.
void PaintPage(QPainter& painter, const Page& page, QPointF corner, double unitsPerMm,
               PaintDevice device);

}  // namespace orvane
