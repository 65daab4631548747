#include "vector/engine/MetafilePaths.h"

#include <algorithm>
#include <cmath>

namespace vector {

namespace {

constexpr double kCoarser = 4; // the flattening is meant for pixels
constexpr int kMostBands = 60;
constexpr int kMostDashes = 20000; // of one line
constexpr double kShortest = 0.5;  // dash or gap, so that none is passed over for ever

// Where a horizontal line enters and leaves the filled part of the polygons.
std::vector<std::pair<double, double>> Inside(const QList<QPolygonF> &polygons, double y, bool winding) {
    struct Crossing {
        double x;
        int way;
    };
    std::vector<Crossing> crossings;
    for (const QPolygonF &polygon : polygons)
        for (qsizetype i = 0; i < polygon.size(); ++i) {
            const QPointF a = polygon[i], b = polygon[(i + 1) % polygon.size()];
            if ((a.y() <= y) == (b.y() <= y)) continue;
            const double x = a.x() + (y - a.y()) / (b.y() - a.y()) * (b.x() - a.x());
            crossings.push_back({x, a.y() < b.y() ? 1 : -1});
        }
    std::sort(crossings.begin(), crossings.end(), [](auto &a, auto &b) { return a.x < b.x; });
    std::vector<std::pair<double, double>> inside;
    int depth = 0;
    for (const Crossing &crossing : crossings) {
        const bool before = winding ? depth != 0 : depth & 1;
        depth += winding ? crossing.way : 1;
        const bool after = winding ? depth != 0 : depth & 1;
        if (!before && after) inside.push_back({crossing.x, crossing.x});
        if (before && !after) inside.back().second = crossing.x;
    }
    return inside;
}

// Adds the box, or makes the one above it longer.
void AddBelow(std::vector<QRectF> &boxes, const QRectF &box) {
    if (box.width() < 1) return;
    const auto joins = [&](const QRectF &above) {
        return std::abs(above.left() - box.left()) < 1 && std::abs(above.right() - box.right()) < 1 &&
               std::abs(above.bottom() - box.top()) < 0.01;
    };
    const auto recent = boxes.size() > 8 ? boxes.end() - 8 : boxes.begin();
    const auto above = std::find_if(recent, boxes.end(), joins);
    if (above == boxes.end())
        boxes.push_back(box);
    else
        above->setBottom(box.bottom());
}

} // namespace

QList<QPolygonF> Flattened(const QPainterPath &path) {
    constexpr double kShrink = 1 / kCoarser;
    QList<QPolygonF> lines = path.toSubpathPolygons(QTransform::fromScale(kShrink, kShrink));
    for (QPolygonF &line : lines)
        for (QPointF &point : line) point *= kCoarser;
    return lines;
}

bool IsClosed(const QPolygonF &line) {
    return line.size() > 2 && (line.first() - line.last()).manhattanLength() < 0.01;
}

std::optional<QRectF> PlainBox(const QPainterPath &path) {
    const int count = path.elementCount();
    if (count < 4 || count > 5) return {};
    const QRectF box = path.controlPointRect();
    QPointF before;
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element &at = path.elementAt(i);
        const bool corner =
            (at.x == box.left() || at.x == box.right()) && (at.y == box.top() || at.y == box.bottom());
        const bool along = i == 0 || at.x == before.x() || at.y == before.y();
        if (!corner || !along || (i > 0 && !at.isLineTo())) return {};
        before = at;
    }
    return box;
}

std::vector<QPolygonF> Dashes(const QPolygonF &line, const QPen &pen) {
    const QList<qreal> pattern = pen.dashPattern();
    std::vector<QPolygonF> dashes;
    if (pattern.isEmpty() || line.size() < 2) return {line};
    qsizetype part = 0;
    double left = pattern[0] * pen.widthF();
    dashes.push_back({line.first()});
    for (qsizetype i = 1; i < line.size(); ++i) {
        QLineF rest(line[i - 1], line[i]);
        while (rest.length() > left && int(dashes.size()) < kMostDashes) {
            rest.setP1(rest.pointAt(left / rest.length()));
            if (part % 2 != 0)
                dashes.push_back({rest.p1()});
            else if (dashes.back().last() != rest.p1())
                dashes.back().append(rest.p1());
            part = (part + 1) % pattern.size();
            left = std::max(pattern[part] * pen.widthF(), kShortest);
        }
        left -= rest.length();
        if (part % 2 == 0) dashes.back().append(line[i]);
    }
    std::erase_if(dashes, [](const QPolygonF &dash) { return dash.size() < 2; });
    return dashes;
}

std::vector<QRectF> Outside(const QPainterPath &path, double step) {
    const QRectF bounds = path.boundingRect();
    const int bands = std::clamp(int(std::ceil(bounds.height() / step)), 1, kMostBands);
    const double height = bounds.height() / bands;
    const QList<QPolygonF> polygons = Flattened(path);
    std::vector<QRectF> boxes;
    for (int i = 0; i < bands; ++i) {
        const double top = bounds.top() + i * height;
        double x = bounds.left();
        for (const auto &[from, to] :
             Inside(polygons, top + height / 2, path.fillRule() == Qt::WindingFill)) {
            AddBelow(boxes, QRectF(x, top, from - x, height));
            x = to;
        }
        AddBelow(boxes, QRectF(x, top, bounds.right() - x, height));
    }
    return boxes;
}

} // namespace vector
