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

// What painting the node touches, in twips: border, shadow, mark and text beside it.
QRectF PaintBounds(const Node &node);
// What painting the link touches: line, arrow heads, jumps, mark and label, which stands in the box `label`.
QRectF PaintBounds(const Link &link, const QRectF &label);
// The label is a link's, empty without one.
QRectF PaintBounds(const Item &item, const QRectF &label);

// The line without heads and jumps, of a link or of a route of at least two points.
QPainterPath RoutePath(const Link &link);
QPainterPath RoutePath(int style, const std::vector<Point> &route);
bool IsCurved(const Link &link);
bool IsCurved(int style, const std::vector<Point> &route);
// The same line as straight pieces.
std::vector<QPointF> RoutePieces(const Link &link);
std::vector<QPointF> RoutePieces(int style, const std::vector<Point> &route);
// The size of a label; with no measure it is estimated.
QSizeF LabelSize(const Link &link, TextMeasure *measure);

} // namespace diagram
