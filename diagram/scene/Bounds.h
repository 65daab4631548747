// The parts of a scene that follow from one item alone.
#pragma once

#include "diagram/geometry/Point.h"

#include <QPainterPath>
#include <QRectF>
#include <vector>

namespace diagram {

class Item;
class Link;
class Node;
class TextMeasure;

// What painting the node touches, in twips: border, shadow and mark.
QRectF PaintBounds(const Node &node);
// What painting the link touches: line, arrow heads, jumps, mark and label.
QRectF PaintBounds(const Link &link, TextMeasure *measure);
QRectF PaintBounds(const Item &item, TextMeasure *measure);

// The line without heads and jumps, of a link or of a way of at least two points.
QPainterPath WayPath(const Link &link);
QPainterPath WayPath(int style, const std::vector<Point> &way);
bool IsCurved(const Link &link);
// The same line as straight pieces.
std::vector<QPointF> WayPieces(const Link &link);
// The box of the label, about the middle of the line; empty without text. With no measure its size is
// estimated.
QRectF LabelBox(const Link &link, TextMeasure *measure);

} // namespace diagram
