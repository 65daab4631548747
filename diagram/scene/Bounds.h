// What follows from one item alone: its bounds, and the line of a link.
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
// Of a node or a link; `label` matters for a link alone.
QRectF PaintBounds(const Item &item, const QRectF &label);

// The line without heads and jumps, of a link or of a route of at least two points.
QPainterPath RoutePath(const Link &link);
QPainterPath RoutePath(int style, const std::vector<Point> &route);
// Whether that line bends in curves: a style that does so, and more than two points.
bool IsCurved(const Link &link);
bool IsCurved(int style, const std::vector<Point> &route);
// The same line as straight pieces.
std::vector<QPointF> RoutePieces(const Link &link);
std::vector<QPointF> RoutePieces(int style, const std::vector<Point> &route);
// The size of a link's label in twips; estimated without a measure.
QSizeF LabelSize(const Link &link, TextMeasure *measure);

} // namespace diagram
