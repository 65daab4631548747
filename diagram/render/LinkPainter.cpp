#include "diagram/render/LinkPainter.h"

#include "diagram/geometry/Polyline.h"
#include "diagram/geometry/Units.h"
#include "diagram/model/Calendar.h"
#include "diagram/model/Link.h"
#include "diagram/render/ArrowPainter.h"
#include "diagram/render/FarForms.h"
#include "diagram/render/Lines.h"
#include "diagram/render/NodeContent.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Measures.h"

#include <QTransform>

namespace diagram {

namespace {

constexpr double kHeadLook = 60;       // twips of the route along which a head at its end points
constexpr double kLeastJump = 1 / 4.0; // of a jump's radius; where there is less room there is no jump
constexpr double kMostEaten = 0.99;    // of its segment that a head may replace

// A line straight upwards counts as one from left to right.
bool IsLeftToRight(const QPointF &direction) {
    return direction.x() > 0.001 || (std::abs(direction.x()) <= 0.001 && direction.y() < 0);
}

// Whether the style draws curves; one of two points is straight all the same, see IsCurved.
bool HasCurveStyle(const Link &link) {
    return HasForm(link.Style(), LinkForm::Bezier) || HasForm(link.Style(), LinkForm::Spline);
}

QTransform ToDevice(const Frame &frame) {
    return {
        frame.xScale, 0, 0, frame.yScale, -frame.origin.x() * frame.xScale, -frame.origin.y() * frame.yScale};
}

struct Heads {
    ArrowHead source, middle, destination;
};

ArrowHead HeadOf(const Paint &paint, int value, int size, double drawWidth) {
    if (value == 0) return {};
    return {value, paint.frame.Length(ArrowScale(size, drawWidth)), {}, {}};
}

double Eaten(const ArrowHead &head) {
    const ArrowRow *row = FindArrow(head.value);
    return row ? row->eats * head.scale : 0;
}

// Puts a head at the end `tip` of the route, pointing from `inner`.
void PlaceAtEnd(ArrowHead &head, const QPointF &tip, const QPointF &inner, const QPointF &otherwise) {
    const double away = Distance(tip, inner);
    head.tip = tip;
    head.direction = away > 0 ? (tip - inner) / away : otherwise;
}

// The heads at the ends point along the last piece of the route, as long as kHeadLook or a third of the
// route.
Heads PlaceHeads(const Paint &paint, const LinkData &data) {
    const std::vector<QPointF> &route = paint.route;
    Heads heads{HeadOf(paint, data.arrowSource, data.arrowSizeSource, data.drawWidth),
                HeadOf(paint, data.arrowMiddle, data.arrowSizeMiddle, data.drawWidth),
                HeadOf(paint, data.arrowDest, data.arrowSizeDest, data.drawWidth)};
    if (!heads.source.value && !heads.middle.value && !heads.destination.value) return heads;
    const double length = RouteLength(route);
    const double look = std::min(length / 3, paint.frame.Length(kHeadLook));
    if (heads.source.value) PlaceAtEnd(heads.source, route.front(), PlaceOnRoute(route, look).point, {-1, 0});
    if (heads.destination.value)
        PlaceAtEnd(heads.destination, route.back(), PlaceOnRoute(route, length - look).point, {1, 0});
    if (heads.middle.value) {
        const RoutePlace place = PlaceOnRoute(route, length / 2 + heads.middle.scale / 2);
        heads.middle.tip = place.point;
        heads.middle.direction = place.direction;
    }
    return heads;
}

QPointF Toward(const QPointF &from, const QPointF &to, double length) {
    const double away = Distance(from, to);
    return away > length ? from + (to - from) * (length / away) : from;
}

// An arch between two points of a line.
void AddArch(QPainterPath &path, const QPointF &from, const QPointF &to, const QPointF &direction) {
    const QPointF middle = (from + to) / 2;
    const double radius = Distance(from, to) / 2;
    const double angle = -std::atan2(direction.y(), direction.x()) * 180 / M_PI;
    const bool upward = IsLeftToRight(direction);
    path.arcTo(QRectF(middle - QPointF(radius, radius), middle + QPointF(radius, radius)), angle + 180,
               upward ? -180 : 180);
}

// A stretch of the route between two of its points, on which crossings may lie from `first` to `last`.
struct Stretch {
    QPointF start, direction;
    double first, last;
};

// The line up to the crossing, and a jump over it: smaller where there is less room, and none where there is
// next to no room. `past` is where the jump before it ends.
void AddJump(QPainterPath &path, const Stretch &stretch, double along, double largest, int style,
             double &past) {
    const double radius = std::min({largest, along - std::max(past, stretch.first), stretch.last - along});
    if (radius < largest * kLeastJump) return;
    const QPointF from = stretch.start + stretch.direction * (along - radius),
                  to = stretch.start + stretch.direction * (along + radius);
    path.lineTo(from);
    if (style == kArchJump)
        AddArch(path, from, to, stretch.direction);
    else
        path.moveTo(to);
    past = along + radius;
}

// The route with arches over the crossings, or gaps; crossings inside of the heads are left out.
QPainterPath RouteWithJumps(Paint &paint, const Link &link, const std::vector<Crossing> &crossings,
                            const Heads &heads) {
    const std::vector<QPointF> &route = paint.route;
    const double radius = paint.frame.Length(kJumpRadius);
    QPainterPath path(Toward(route[0], route[1], Eaten(heads.source)));
    auto crossing = crossings.begin();
    for (std::size_t i = 1; i < route.size(); ++i) {
        const bool isLast = i + 1 == route.size();
        const double length = Distance(route[i - 1], route[i]);
        const Stretch stretch{route[i - 1], length > 0 ? (route[i] - route[i - 1]) / length : QPointF(1, 0),
                              i == 1 ? Eaten(heads.source) + radius : 0,
                              isLast ? length - Eaten(heads.destination) - radius : length};
        double past = -1;
        for (; crossing != crossings.end() && std::size_t(crossing->segment) < i; ++crossing) {
            if (std::size_t(crossing->segment) + 1 != i) continue;
            const QPointF at = paint.frame.Map(crossing->point) - stretch.start;
            const double along = QPointF::dotProduct(at, stretch.direction);
            AddJump(path, stretch, along, radius, link.JumpStyle(), past);
        }
        path.lineTo(isLast ? Toward(route[i], route[i - 1], Eaten(heads.destination)) : route[i]);
    }
    return path;
}

void AddStretch(QPainterPath &path, const std::vector<QPointF> &route, double from, double to) {
    const std::vector<QPointF> stretch = StretchOfRoute(route, from, to);
    for (std::size_t i = 1; i < stretch.size(); ++i) path.lineTo(stretch[i]);
}

// The same for a curve, whose jumps are longer than the pieces that it is made of.
QPainterPath CurveWithJumps(Paint &paint, const Link &link, const std::vector<Crossing> &crossings,
                            const Heads &heads) {
    const std::vector<QPointF> &route = paint.route;
    const double largest = paint.frame.Length(kJumpRadius), length = RouteLength(route);
    const double first = Eaten(heads.source), last = length - Eaten(heads.destination);
    double at = first;
    QPainterPath path(PlaceOnRoute(route, at).point);
    for (const Crossing &crossing : crossings) {
        const double along = NearestOnRoute(route, paint.frame.Map(crossing.point));
        const double room = along - (at > first ? at : first + largest);
        const double radius = std::min({largest, room, last - largest - along});
        if (radius < largest * kLeastJump) continue;
        AddStretch(path, route, at, along - radius);
        at = along + radius;
        const QPointF from = path.currentPosition(), to = PlaceOnRoute(route, at).point;
        if (link.JumpStyle() == kArchJump)
            AddArch(path, from, to, (to - from) / std::max(Distance(from, to), 1e-9));
        else
            path.moveTo(to);
    }
    AddStretch(path, route, at, last);
    return path;
}

// A curve may be level too, between two nodes in a row.
void DrawRun(Paint &paint, const LinkData &data, bool curve, double width, QRgb colour) {
    const bool level = paint.frame.snap && IsLevel(paint.route);
    if (level && (data.drawStyle == 0 || data.drawStyle == kInsideLine)) {
        paint.pencil.Smooth(false); // else the painter doesn't see that these are whole pixels
        return DrawLevelRoute(paint.Painter(), paint.route, int(width), colour);
    }
    paint.pencil.Smooth(true);
    paint.pencil.Line(colour, width, data.drawStyle);
    curve ? DrawCurve(paint, paint.route) : DrawRoute(paint, paint.route);
}

void PaintLabel(Paint &paint, const Link &link) {
    const LinkData &data = link.Data();
    const double scale = paint.frame.Scale();
    if (data.text.isEmpty()) return;
    if (!paint.options.vector && data.font.Size() * kTwipsPerPoint * scale < kLegiblePixels) return;
    const QRectF bounds = paint.scene.LabelBounds(link);
    if (bounds.isEmpty()) return;
    const TextBlock &block =
        paint.caches.texts.Find(data.text, data.font, 0, paint.options.vector ? 0 : scale);
    const QRectF place(bounds.center() - QPointF(block.width, block.height) / 2,
                       QSizeF(block.width, block.height));
    paint.pencil.NoLine();
    paint.pencil.Fill(paint.paper);
    paint.pencil.Smooth(!paint.frame.snap);
    paint.Painter().drawRect(paint.frame.Map(place.adjusted(-kLabelPadding, 0, kLabelPadding, 0)));
    DrawBlock(paint, block, paint.frame.Map(place.topLeft()), place.width(), 2, ToRgb(data.foreColor));
}

// A vector target keeps a curve as a curve; its ends under the heads are covered by these.
bool DrawsWholeCurve(const Paint &paint, const Link &link, double width) {
    return !paint.frame.snap && HasCurveStyle(link) && width <= paint.frame.Length(2 * kTwipsPerPixel);
}

void DrawLine(Paint &paint, const Link &link, const Heads &heads, double width, QRgb colour) {
    const LinkData &data = link.Data();
    paint.pencil.NoFill();
    const std::vector<Crossing> crossings = paint.scene.Crossings(link); // none where it doesn't jump
    if (!crossings.empty()) {
        const auto withJumps = IsCurved(link) ? CurveWithJumps : RouteWithJumps;
        paint.pencil.Smooth(true);
        paint.pencil.Line(colour, width, data.drawStyle, Qt::RoundJoin);
        return DrawFarPath(paint, withJumps(paint, link, crossings, heads));
    }
    if (DrawsWholeCurve(paint, link, width)) {
        paint.pencil.Line(colour, width, data.drawStyle);
        paint.Painter().drawPath(ToDevice(paint.frame).map(paint.scene.LinkPath(link)));
        return;
    }
    // A head replaces part of its own segment only.
    const bool curve = HasCurveStyle(link);
    const std::size_t count = paint.route.size();
    const double first = curve ? RouteLength(paint.route) : Distance(paint.route[0], paint.route[1]);
    const double last = curve ? first : Distance(paint.route[count - 2], paint.route[count - 1]);
    CutStart(paint.route, std::min(Eaten(heads.source), first * kMostEaten));
    CutEnd(paint.route, std::min(Eaten(heads.destination), last * kMostEaten));
    if (count > 2 && IsQuietDateLink(link)) {
        paint.pencil.Smooth(true);
        paint.pencil.Line(colour, width, data.drawStyle, Qt::RoundJoin);
        return DrawFarPath(paint, RoundedRoute(paint.route, paint.frame.Length(kDateCorner)));
    }
    DrawRun(paint, data, curve, width, colour);
}

} // namespace

QPointF ArchSide(const QPointF &direction) {
    const QPointF left(direction.y(), -direction.x());
    return IsLeftToRight(direction) ? left : -left;
}

QRgb ColourOfLine(QRgb paper, const Link &link) {
    constexpr double kPaler = 0.7;
    const QRgb colour = ToRgb(link.LineColor());
    return IsQuietDateLink(link) ? Mix(colour, paper, kPaler) : colour;
}

void FillRoute(Paint &paint, const Link &link, double width) {
    paint.route.clear();
    if (HasCurveStyle(link)) {
        for (const QPolygonF &run : paint.scene.LinkPath(link).toSubpathPolygons(ToDevice(paint.frame)))
            paint.route.assign(run.begin(), run.end());
    } else {
        for (const Point &point : link.Route()) {
            const QPointF at = paint.frame.Map(point);
            paint.route.push_back(paint.frame.SnapLine(at, width));
        }
    }
}

void PaintLink(Paint &paint, const Link &link) {
    const LinkData &data = link.Data();
    const double width = paint.frame.LineWidth(data.drawWidth);
    const QRgb colour = ColourOfLine(paint.paper, link);
    if (data.drawStyle != kTransparentLine) {
        FillRoute(paint, link, width);
        if (paint.route.size() >= 2) {
            const Heads heads = PlaceHeads(paint, data);
            DrawLine(paint, link, heads, width, colour);
            PaintArrow(paint, heads.source, colour, width);
            PaintArrow(paint, heads.middle, colour, width);
            PaintArrow(paint, heads.destination, colour, width);
        }
    }
    PaintLabel(paint, link);
}

} // namespace diagram
