// Outlines in the forms that metafiles know: straight polygons, dashes as lines, clips as rectangles. All
// lengths are units of the metafile.
#pragma once

#include <optional>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <vector>

namespace vector {

// The subpaths with their curves made of lines.
QList<QPolygonF> Flattened(const QPainterPath &path);
bool IsClosed(const QPolygonF &line);
// The box, when the path is nothing but an upright one.
std::optional<QRectF> PlainBox(const QPainterPath &path);
// The drawn stretches of a line with the pen's pattern; the pen's width is above 0.
std::vector<QPolygonF> Dashes(const QPolygonF &line, const QPen &pen);
// Boxes that cover what lies in the path's bounds but outside of it, in bands of `step` or, for high paths,
// of a sixtieth of the height.
std::vector<QRectF> Outside(const QPainterPath &path, double step);

} // namespace vector
