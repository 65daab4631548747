#include "diagram/shapes/RouterClip.h"

#include "diagram/shapes/Shapes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace diagram {

namespace {

// A path looked at with the line lying at `level` across it: `across` is the distance from the line, `along`
// the place on it.
struct LineView {
    Axis axis;
    double level;
    double Across(const QPointF &p) const { return (axis == Axis::Horizontal ? p.y() : p.x()) - level; }
    double Along(const QPointF &p) const { return axis == Axis::Horizontal ? p.x() : p.y(); }
    QPointF At(double along) const {
        return axis == Axis::Horizontal ? QPointF(along, level) : QPointF(level, along);
    }
};

// The same for a line of any direction; along it counts from `origin`.
struct SlantedView {
    QPointF origin, direction; // of length 1
    double Across(const QPointF &p) const {
        const QPointF away = p - origin;
        return direction.x() * away.y() - direction.y() * away.x();
    }
    double Along(const QPointF &p) const { return QPointF::dotProduct(p - origin, direction); }
    QPointF At(double along) const { return origin + direction * along; }
};

// Keeps the crossing nearest to a place.
struct Nearest {
    double to;
    double best = std::numeric_limits<double>::infinity();
    void Offer(double along) {
        if (std::abs(along - to) < std::abs(best - to)) best = along;
    }
    bool Found() const { return std::isfinite(best); }
};

QPointF CubicAt(const QPointF (&c)[4], double t) {
    const double s = 1 - t;
    return c[0] * (s * s * s) + c[1] * (3 * s * s * t) + c[2] * (3 * s * t * t) + c[3] * (t * t * t);
}

template <typename View>
void OfferLine(const View &view, const QPointF &a, const QPointF &b, Nearest &nearest) {
    const double from = view.Across(a), to = view.Across(b);
    if ((from > 0 && to > 0) || (from < 0 && to < 0)) return;
    if (from == to) {
        nearest.Offer(view.Along(a));
        nearest.Offer(view.Along(b));
        return;
    }
    nearest.Offer(view.Along(a) + (view.Along(b) - view.Along(a)) * (from / (from - to)));
}

template <typename View>
void OfferCubic(const View &view, const QPointF (&curve)[4], Nearest &nearest) {
    constexpr int kPieces = 8;
    double low = 0;
    for (int piece = 1; piece <= kPieces; ++piece) {
        double high = double(piece) / kPieces;
        const double next = high;
        const double atLow = view.Across(CubicAt(curve, low)), atHigh = view.Across(CubicAt(curve, high));
        if ((atLow <= 0) != (atHigh <= 0) || atLow == 0 || atHigh == 0) {
            for (int step = 0; step < 24; ++step) {
                const double middle = (low + high) / 2;
                ((view.Across(CubicAt(curve, middle)) <= 0) == (atLow <= 0) ? low : high) = middle;
            }
            nearest.Offer(view.Along(CubicAt(curve, low)));
        }
        low = next;
    }
}

template <typename View>
void OfferPath(const View &view, const QPainterPath &path, Nearest &nearest) {
    QPointF at, start;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            start = element;
        } else if (element.isLineTo()) {
            OfferLine(view, at, element, nearest);
        } else if (element.isCurveTo()) {
            const QPointF curve[4] = {at, element, path.elementAt(i + 1), path.elementAt(i + 2)};
            OfferCubic(view, curve, nearest);
            i += 2;
        }
        at = path.elementAt(i);
    }
    OfferLine(view, at, start, nearest);
}

void OfferEllipse(const LineView &view, const QRectF &box, Nearest &nearest) {
    const QPointF middle = box.center();
    const bool level = view.axis == Axis::Horizontal;
    const double acrossRadius = (level ? box.height() : box.width()) / 2;
    const double alongRadius = (level ? box.width() : box.height()) / 2;
    const double share = acrossRadius > 0 ? view.Across(middle) / acrossRadius : 2;
    if (std::abs(share) > 1) return;
    const double half = alongRadius * std::sqrt(1 - share * share);
    nearest.Offer(view.Along(middle) - half);
    nearest.Offer(view.Along(middle) + half);
}

void OfferBox(const LineView &view, const QRectF &box, Nearest &nearest) {
    const double from = view.Across(box.topLeft()), to = view.Across(box.bottomRight());
    if (from > 0 || to < 0) return;
    nearest.Offer(view.Along(box.topLeft()));
    nearest.Offer(view.Along(box.bottomRight()));
}

} // namespace

QPointF ClipTowards(const RouteEnd &end, const QPointF &point) {
    const QPointF middle = end.box.center();
    if (!end.box.contains(point)) return OutlineCrossing(end.shape, end.orientation, end.box, point);
    QPointF direction = point - middle;
    const double length = std::hypot(direction.x(), direction.y());
    direction = length > 0 ? direction / length : QPointF(1, 0);
    const double far = end.box.width() + end.box.height() + 1;
    return OutlineCrossing(end.shape, end.orientation, end.box, middle + direction * far);
}

QPointF ClipAlong(const RouteEnd &end, Axis axis, const QPointF &point) {
    const LineView view{axis, axis == Axis::Horizontal ? point.y() : point.x()};
    Nearest nearest{view.Along(point)};
    const ShapeRow *row = FindShape(end.shape);
    const ShapeForm form = row ? row->form : ShapeForm::Rectangle;
    if (form == ShapeForm::Rectangle) {
        OfferBox(view, end.box, nearest);
    } else if (form == ShapeForm::Ellipse) {
        OfferEllipse(view, end.box, nearest);
    } else {
        OfferPath(view, Outline(end.shape, end.orientation, end.box), nearest);
    }
    if (nearest.Found()) return view.At(nearest.best);
    const double low = view.Along(end.box.topLeft()), high = view.Along(end.box.bottomRight());
    return view.At(std::clamp(nearest.to, low, high));
}

QPointF ClipBeside(const RouteEnd &end, const QPointF &from, const QPointF &towards) {
    const double length = std::hypot(towards.x() - from.x(), towards.y() - from.y());
    if (!(length > 0)) return ClipTowards(end, towards);
    const SlantedView view{from, (towards - from) / length};
    Nearest nearest{length};
    OfferPath(view, Outline(end.shape, end.orientation, end.box), nearest);
    return nearest.Found() ? view.At(nearest.best) : ClipTowards(end, towards);
}

} // namespace diagram
