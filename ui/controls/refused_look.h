// The one look of a field that didn't take what was typed or pasted into it: a heavy frame with a
// wavy line in it, so that it is told by its shape as well as by its colour, in light and dark, and
// the reason as the field's tip.
#pragma once

#include <QPainter>
#include <QRect>
#include <QString>
#include <QWidget>

namespace orvane {

// Gives any field the look, or another reason to a field that has it. The field is neither changed
// nor disabled.
void RefuseField(QWidget& field, const QString& reason);
// Takes it away; the field has its own tip again. Nothing happens to a field without the look.
void AcceptField(QWidget& field);

bool IsFieldRefused(const QWidget& field);
// The reason; empty without the look.
QString RefusalOf(const QWidget& field);

// The look itself, for what isn't a field of its own, as the cell of a grid. `ground` is the colour
// that it stands on.
void PaintRefusedLook(QPainter& painter, const QRect& place, const QColor& ground);

}  // namespace orvane
