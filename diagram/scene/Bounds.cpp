#include "diagram/scene/Bounds.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/Surface.h"
#include "diagram/model/TextBeside.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Measures.h"

#include <algorithm>
#include <cmath>

namespace diagram {

namespace {

constexpr double kMarkReach = 3 * kTwipsPerPixel;  // of a mark out of its item
constexpr double kLabelReach = 4 * kTwipsPerPixel; // of a label's paper out of its text
constexpr double kSmoothing = kTwipsPerPixel;      // what smooth edges touch beyond the form
constexpr int kCurvePieces = 16;

LinkForm FormOf(int style) {
    const LinkStyleRow *row = FindLinkStyle(style);
    return row ? row->form : LinkForm::Polyline;
}

// A pointed corner stands out up to twice the width of its line.
double LineReach(float drawWidth) { return 2 * drawWidth * kTwipsPerPixel + kSmoothing; }

QRectF Grown(const QRectF &rect, double by) { return rect.adjusted(-by, -by, by, by); }

QRectF Box(const std::vector<Point> &points) {
    float left = points[0].x, right = left, top = points[0].y, bottom = top;
    for (const Point &point : points) {
        left = std::min(left, point.x), right = std::max(right, point.x);
        top = std::min(top, point.y), bottom = std::max(bottom, point.y);
    }
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

// Through all points, at each in the direction from the one before to the one behind.
QPainterPath SmoothPath(const std::vector<Point> &points) {
    QPainterPath path(ToQPointF(points[0]));
    const auto at = [&points](std::size_t i) { return ToQPointF(points[std::min(i, points.size() - 1)]); };
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const QPointF before = i == 0 ? at(0) : at(i - 1);
        const QPointF from = at(i), to = at(i + 1), behind = at(i + 2);
        path.cubicTo(from + (to - before) / 6, to - (behind - from) / 6, to);
    }
    return path;
}

QPainterPath StraightPath(const std::vector<Point> &points) {
    QPainterPath path(ToQPointF(points[0]));
    for (std::size_t i = 1; i < points.size(); ++i) path.lineTo(ToQPointF(points[i]));
    return path;
}

QPainterPath BezierPath(const std::vector<Point> &points) {
    if (points.size() % 3 != 1) return SmoothPath(points);
    QPainterPath path(ToQPointF(points[0]));
    for (std::size_t i = 1; i + 2 < points.size(); i += 3) {
        path.cubicTo(ToQPointF(points[i]), ToQPointF(points[i + 1]), ToQPointF(points[i + 2]));
    }
    return path;
}

double HeadReach(const LinkData &data) {
    const auto reach = [&data](int arrow, int size) { return arrow ? ArrowScale(size, data.drawWidth) : 0; };
    return std::max({reach(data.arrowSource, data.arrowSizeSource),
                     reach(data.arrowMiddle, data.arrowSizeMiddle),
                     reach(data.arrowDest, data.arrowSizeDest)});
}

// A box that holds about what a common font needs.
QSizeF Estimate(const QString &text, const Font &font) {
    const double line = font.Size() * kTwipsPerPoint * 1.25;
    qsizetype longest = 0, start = 0, lines = 0;
    while (start <= text.size()) {
        qsizetype end = text.indexOf(QLatin1Char('\n'), start);
        if (end < 0) end = text.size();
        longest = std::max(longest, end - start);
        start = end + 1;
        ++lines;
    }
    return {double(longest) * font.Size() * kTwipsPerPoint * 0.6, double(lines) * line};
}

// The mark of what can't be selected isn't painted.
template <typename Item>
double MarkReach(const Item &item) {
    return item.Marked() && item.Selectable() ? kMarkReach : 0;
}

} // namespace

QRectF PaintBounds(const Node &node) {
    QRectF bounds = node.ShownBounds();
    if (node.Shadow()) bounds |= bounds.translated(kShadowWays[node.Shadow()] * kShadowOffset);
    if (const QRectF text = TextBeside(node, node.Owner().Measure()); !text.isEmpty()) bounds |= text;
    return Grown(bounds, LineReach(node.DrawWidth()) + MarkReach(node));
}

QRectF PaintBounds(const Link &link, const QRectF &label) {
    const LinkData &data = link.Data();
    double reach = std::max(LineReach(data.drawWidth) + MarkReach(link), HeadReach(data) + kSmoothing);
    if (data.jumpStyle) reach = std::max(reach, kJumpRadius + LineReach(data.drawWidth));
    const bool smooth =
        IsCurved(link) && (FormOf(link.Style()) == LinkForm::Spline || link.Route().size() % 3 != 1);
    const QRectF route = smooth ? RoutePath(link).controlPointRect() : Box(link.Route());
    const QRectF bounds = Grown(route, reach);
    return label.isEmpty() ? bounds : bounds | Grown(label, kLabelReach);
}

QRectF PaintBounds(const Item &item, const QRectF &label) {
    return item.AsNode() ? PaintBounds(*item.AsNode()) : PaintBounds(*item.AsLink(), label);
}

bool IsCurved(int style, const std::vector<Point> &route) {
    if (route.size() <= 2) return false;
    const LinkForm form = FormOf(style);
    return form == LinkForm::Bezier || form == LinkForm::Spline;
}

bool IsCurved(const Link &link) { return IsCurved(link.Style(), link.Route()); }

QPainterPath RoutePath(int style, const std::vector<Point> &route) {
    if (!IsCurved(style, route)) return StraightPath(route);
    return FormOf(style) == LinkForm::Bezier ? BezierPath(route) : SmoothPath(route);
}

QPainterPath RoutePath(const Link &link) { return RoutePath(link.Style(), link.Route()); }

std::vector<QPointF> RoutePieces(const Link &link) { return RoutePieces(link.Style(), link.Route()); }

std::vector<QPointF> RoutePieces(int style, const std::vector<Point> &route) {
    std::vector<QPointF> pieces;
    if (!IsCurved(style, route)) {
        pieces.reserve(route.size());
        for (const Point &point : route) pieces.push_back(ToQPointF(point));
        return pieces;
    }
    const QPainterPath path = RoutePath(style, route);
    pieces.push_back(path.elementAt(0));
    for (int i = 1; i + 2 < path.elementCount(); i += 3) {
        const QPointF from = path.elementAt(i - 1), c1 = path.elementAt(i), c2 = path.elementAt(i + 1),
                      to = path.elementAt(i + 2);
        for (int k = 1; k <= kCurvePieces; ++k) {
            const double t = double(k) / kCurvePieces, s = 1 - t;
            pieces.push_back(from * (s * s * s) + c1 * (3 * s * s * t) + c2 * (3 * s * t * t) +
                             to * (t * t * t));
        }
    }
    return pieces;
}

QSizeF LabelSize(const Link &link, TextMeasure *measure) {
    return measure ? measure->Measure(link.Text(), link.Font(), 0) : Estimate(link.Text(), link.Font());
}

} // namespace diagram
