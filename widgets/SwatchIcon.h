// Small pictures of colours.
#pragma once

#include "support/Colour.h"

#include <QIcon>

namespace widgets {

// A field of the colour with a frame that is seen on any palette.
QIcon SwatchIcon(support::Colour colour);
// That there is no colour: an empty field with a stroke through it.
QIcon NoColourIcon();

// The same on a painter, for pictures that hold one. `ink` is the colour of the frame.
void PaintSwatch(QPainter &painter, const QRectF &box, support::Colour colour, const QColor &ink);
void PaintNoColour(QPainter &painter, const QRectF &box, const QColor &ink);

} // namespace widgets
