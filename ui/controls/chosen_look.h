// The look of a chosen row: its fixed column in the colours of a selection and in bold, with a bar
// at the row's left that tells it without colours. The cells keep the backgrounds that tell the
// current row.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QStyleOptionViewItem>

namespace orvane {

// Gives a cell of the fixed column the colours of one that is chosen.
void TakeChosenLook(QStyleOptionViewItem& option);

// The bar, over the cell as it is painted.
void PaintChosenBar(QPainter& painter, const QRect& cell, const QPalette& palette);

}  // namespace orvane
