#include "diagram/render/CoarsePainter.h"

#include "diagram/geometry/Polyline.h"
#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/render/LinkPainter.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Measures.h"
#include "diagram/shapes/Shapes.h"

#include <array>

namespace diagram {

namespace {

constexpr int kMostSide = 24;    // device pixels of a node that is drawn coarsely
constexpr int kLeastFrame = 4;   // device pixels of a box that has room for a border
constexpr double kLeastJump = 2; // device pixels of half a jump: less couldn't be told from the crossed line
constexpr double kFaintest = 0.35; // share of its colour that a line keeps at least

struct Span {
    int from = 0, to = 0; // past the last pixel
};

// The stretch of a row, at the height of its middle, that lies in the polygon.
Span PolygonSpan(const QPointF *corners, int count, double y) {
    double left = 1e9, right = -1e9;
    for (int i = 0; i < count; ++i) {
        const QPointF &a = corners[i], &b = corners[(i + 1) % count];
        if ((a.y() <= y) == (b.y() <= y)) continue;
        const double x = a.x() + (y - a.y()) / (b.y() - a.y()) * (b.x() - a.x());
        left = std::min(left, x), right = std::max(right, x);
    }
    return left > right ? Span{} : Span{int(left), std::max(int(left) + 1, qRound(right))};
}

Span EllipseSpan(const QRectF &box, double y) {
    const double down = (y - box.center().y()) / (box.height() / 2);
    const double half = box.width() / 2 * std::sqrt(std::max(0.0, 1 - down * down));
    return {qRound(box.center().x() - half), qRound(box.center().x() + half)};
}

} // namespace

bool CoarsePainter::Takes(const Node &node) const {
    return node.Width() * paint_.frame.xScale <= kMostSide &&
           node.Height() * paint_.frame.yScale <= kMostSide && node.Picture().IsNull();
}

// A line that is thinner than a pixel looks fainter.
QRgb CoarsePainter::Faint(QRgb colour, QRgb ground, double drawWidth) const {
    const double width = paint_.frame.Length(kTwipsPerPixel * std::max(drawWidth, 1.0));
    return width >= 1 ? colour : Mix(ground, colour, std::max(width, kFaintest));
}

void CoarsePainter::PaintRectangle(const QRect &box, QRgb fill, QRgb border, bool filled) {
    const int x = box.x(), y = box.y(), width = box.width(), height = box.height();
    if (width < kLeastFrame || height < kLeastFrame) {
        blocks_.Fill(x, y, width, height, Mix(fill, border, 0.3));
        return;
    }
    blocks_.Fill(x, y, width, 1, border);
    blocks_.Fill(x, y + height - 1, width, 1, border);
    blocks_.Fill(x, y + 1, 1, height - 2, border);
    blocks_.Fill(x + width - 1, y + 1, 1, height - 2, border);
    if (filled) blocks_.Fill(x + 1, y + 1, width - 2, height - 2, fill);
}

// Row by row; pixels that the row above or the one below doesn't have belong to the border. `spanOf(y)` gives
// the span of a row.
template <typename SpanOf>
void CoarsePainter::PaintRows(const QRect &box, QRgb fill, QRgb border, bool filled, SpanOf spanOf) {
    Span rows[kMostSide + 4];
    const int count = std::min(box.height(), kMostSide + 2);
    for (int i = 0; i < count; ++i) rows[i + 1] = spanOf(box.y() + i + 0.5);
    rows[0] = rows[count + 1] = {0, 0};
    for (int i = 1; i <= count; ++i) {
        const Span row = rows[i], above = rows[i - 1], below = rows[i + 1];
        if (row.from >= row.to) continue;
        const int from = std::max({row.from + 1, above.from, below.from}),
                  to = std::min({row.to - 1, above.to, below.to});
        const int y = box.y() + i - 1;
        if (from >= to) {
            blocks_.Fill(row.from, y, row.to - row.from, 1, border);
            continue;
        }
        blocks_.Fill(row.from, y, from - row.from, 1, border);
        blocks_.Fill(to, y, row.to - to, 1, border);
        if (filled) blocks_.Fill(from, y, to - from, 1, fill);
    }
}

void CoarsePainter::PaintForm(const Node &node) {
    const NodeData &data = node.Data();
    const QRectF exact = paint_.frame.Map(node.ShownBounds());
    const int left = int(std::floor(exact.left() + 0.5)), top = int(std::floor(exact.top() + 0.5));
    const int right = std::max(left + 1, int(std::floor(exact.right() + 0.5))),
              bottom = std::max(top + 1, int(std::floor(exact.bottom() + 0.5)));
    const QRect box(left, top, right - left, bottom - top);
    if (!box.intersects(blocks_.Area())) return;
    const bool lined = data.drawStyle != kTransparentLine, filled = !data.transparent;
    if (!lined && !filled) return;
    const QRgb fill = filled ? ToRgb(data.fillColor) : paint_.paper;
    const QRgb border = lined ? Faint(ToRgb(data.borderColor), fill, data.drawWidth) : fill;
    const ShapeRow *row = FindShape(data.shape);
    const bool plain = !row || row->form == ShapeForm::Rectangle || row->form == ShapeForm::Path;
    if (plain || box.width() < kLeastFrame || box.height() < kLeastFrame)
        return PaintRectangle(box, fill, border, filled);
    const QRectF whole(box);
    if (row->form == ShapeForm::Ellipse)
        return PaintRows(box, fill, border, filled, [&](double y) { return EllipseSpan(whole, y); });
    QPointF corners[kMostCorners];
    const int count = TurnedCorners(*row, data.shapeOrientation, whole, corners);
    PaintRows(box, fill, border, filled, [&](double y) { return PolygonSpan(corners, count, y); });
}

// In device pixels; a curve in few pieces.
void CoarsePainter::FillRoute(const Link &link) {
    constexpr int kSteps = 6;
    std::vector<QPointF> &route = paint_.route;
    route.clear();
    for (const Point &point : link.Route()) route.push_back(paint_.frame.Map(point));
    const LinkStyleRow *row = FindLinkStyle(link.Data().style);
    if (!row || row->form != LinkForm::Bezier || route.size() != 4) return;
    const std::array<QPointF, 4> at{route[0], route[1], route[2], route[3]};
    route.resize(1);
    for (int i = 1; i <= kSteps; ++i) {
        const double t = double(i) / kSteps, s = 1 - t;
        route.push_back(at[0] * (s * s * s) + at[1] * (3 * s * s * t) + at[2] * (3 * s * t * t) +
                        at[3] * (t * t * t));
    }
}

void CoarsePainter::PaintLine(const Link &link) {
    const LinkData &data = link.Data();
    if (data.drawStyle == kTransparentLine) return;
    const QRgb colour = Faint(ColourOfLine(paint_.paper, link), paint_.paper, data.drawWidth);
    FillRoute(link);
    const std::vector<QPointF> &route = paint_.route;
    const std::vector<Crossing> crossings = paint_.scene.Crossings(link); // none where it doesn't jump
    if (!crossings.empty() && IsCurved(link)) return PaintCurve(crossings, data.jumpStyle, colour);
    auto crossing = crossings.begin();
    QPointF from = route.front();
    for (std::size_t i = 1; i < route.size(); ++i) {
        for (; crossing != crossings.end() && std::size_t(crossing->segment) < i; ++crossing)
            PaintJump(from, paint_.frame.Map(crossing->point), route[i], data.jumpStyle, colour);
        blocks_.Line(from.x(), from.y(), route[i].x(), route[i].y(), colour);
        from = route[i];
    }
}

// From each crossing to the next; a jump that has too little room isn't painted.
void CoarsePainter::PaintCurve(const std::vector<Crossing> &crossings, int style, QRgb colour) {
    const std::vector<QPointF> &route = paint_.route;
    const double half = std::max(kLeastJump, paint_.frame.Length(kJumpRadius)), length = RouteLength(route);
    double at = 0;
    for (const Crossing &crossing : crossings) {
        const double along = NearestOnRoute(route, paint_.frame.Map(crossing.point));
        if (along - at <= half || length - along <= half) continue;
        PaintRun(StretchOfRoute(route, at, along - half), colour);
        at = along + half;
        if (style == kArchJump)
            PaintArch(PlaceOnRoute(route, along - half).point, PlaceOnRoute(route, at).point, colour);
    }
    PaintRun(StretchOfRoute(route, at, length), colour);
}

void CoarsePainter::PaintRun(const std::vector<QPointF> &run, QRgb colour) {
    for (std::size_t i = 1; i < run.size(); ++i)
        blocks_.Line(run[i - 1].x(), run[i - 1].y(), run[i].x(), run[i].y(), colour);
}

void CoarsePainter::PaintArch(const QPointF &from, const QPointF &to, QRgb colour) {
    const double half = Distance(from, to) / 2;
    const QPointF top = (from + to) / 2 + ArchSide((to - from) / std::max(2 * half, 1e-9)) * half;
    PaintRun({from, top, to}, colour);
}

// The line from `from` over the crossing `at` on the way to `to`; `from` is put behind it. Where there is too
// little room for a jump nothing is painted yet.
void CoarsePainter::PaintJump(QPointF &from, const QPointF &at, const QPointF &to, int style, QRgb colour) {
    const double half = std::max(kLeastJump, paint_.frame.Length(kJumpRadius));
    const double length = Distance(from, to), along = Distance(from, at);
    if (along <= half || length - along <= half) return;
    const QPointF direction = (to - from) / length;
    const QPointF before = at - direction * half, behind = at + direction * half;
    blocks_.Line(from.x(), from.y(), before.x(), before.y(), colour);
    from = behind;
    if (style == kArchJump) PaintArch(before, behind, colour);
}

} // namespace diagram
