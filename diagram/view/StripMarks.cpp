#include "diagram/view/StripMarks.h"

#include "diagram/geometry/Polyline.h"
#include "diagram/model/Calendar.h"
#include "diagram/model/Surface.h"
#include "diagram/render/CalendarRows.h"
#include "diagram/render/LinkPainter.h"
#include "diagram/view/OverlayLook.h"
#include "diagram/view/Viewport.h"

#include <iterator>
#include <QFontMetrics>
#include <QPainter>

namespace diagram {

namespace {

constexpr int kFaint = 90;      // of 255, of today's line beside the strip
constexpr int kSlim = 22;       // pixels of the copy's height
constexpr int kSlimAside = 112; // the same at a side, where captions stand one below the other
constexpr int kBesideText = 6;
constexpr int kSolid = 252;       // of 255
constexpr int kFoldedGround = 30; // of 255
constexpr int kMark = 2;          // pixels of today on the copy
constexpr int kDarkPaper = 128;   // grey value below which the copy is light on dark

// Of a torn strip, pixels.
constexpr double kTooth = 7, kToothDepth = 2.5, kTearWidth = 6, kBeyondStrip = 3;
constexpr int kMostTeeth = 400;

// Where a span is shown, pixels along the strip.
struct Seen {
    double from, to;
};

Seen PixelsOf(const Calendar::Span &span, bool rightwards, const Viewport &viewport) {
    const QPointF from = viewport.FromSurface({span.from, span.from}),
                  to = viewport.FromSurface({span.to, span.to});
    return rightwards ? Seen{from.x(), to.x()} : Seen{from.y(), to.y()};
}

// Whether the copy shows months; else years, as the captions of months have no room.
bool ShowsMonths(const Calendar &calendar, const Viewport &viewport, const QFontMetrics &metrics) {
    std::vector<const Calendar::Span *> unfolded;
    for (const Calendar::Span &month : calendar.months)
        if (!month.folded) unfolded.push_back(&month);
    if (unfolded.empty()) return true;
    const Calendar::Span &middle = *unfolded[unfolded.size() / 2];
    const Seen seen = PixelsOf(middle, calendar.rightwards, viewport);
    const int room = calendar.rightwards ? metrics.horizontalAdvance(middle.caption) : metrics.height();
    return seen.to - seen.from >= room + kBesideText;
}

// One pixel to the side of the line.
QPointF Aside(const QLineF &line) {
    const QLineF normal = line.normalVector().unitVector();
    return normal.p2() - normal.p1();
}

// A zigzag along the line and a little beyond its ends, of teeth that are all the same.
QPolygonF TearAlong(const QLineF &line) {
    const int teeth = qBound(2, qRound(line.length() / kTooth), kMostTeeth);
    QPolygonF tear;
    for (int i = 0; i <= teeth; ++i) {
        const double along = double(i) / teeth;
        const double beyond = i == 0 ? -kBeyondStrip : i == teeth ? kBeyondStrip : 0;
        tear << line.pointAt(along + beyond / line.length()) +
                    Aside(line) * (i % 2 ? kToothDepth : -kToothDepth);
    }
    return tear;
}

class SlimStrip {
public:
    SlimStrip(QPainter &painter, const Calendar &calendar, const Surface &surface, const Viewport &viewport,
              const QRect &place, const std::optional<QLineF> &today)
        : painter_(painter),
          calendar_(calendar),
          viewport_(viewport),
          place_(place),
          today_(today),
          mark_(LookFor(surface, painter).guide),
          paper_(support::ToQColor(surface.BackColor())),
          dark_(qGray(paper_.rgb()) < kDarkPaper) {}

    void Paint() {
        const QColor ink = dark_ ? QColor(235, 240, 245) : QColor(40, 50, 60);
        const QColor ground = dark_ ? paper_.lighter(150) : paper_.darker(104);
        painter_.fillRect(place_, Faded(ground, kSolid));
        const QColor line = Faded(ink, kFaint);
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.setFont(QFont());
        const bool months = ShowsMonths(calendar_, viewport_, QFontMetrics(QFont()));
        for (const Calendar::Span &span : months ? calendar_.months : calendar_.years)
            PaintSpan(span, ink, line);
        PaintToday();
        painter_.setPen(line);
        painter_.drawRect(place_.adjusted(0, 0, -1, -1));
    }

private:
    // The caption stays in what is seen of its piece.
    void PaintSpan(const Calendar::Span &span, const QColor &ink, const QColor &line) {
        const Seen seen = PixelsOf(span, calendar_.rightwards, viewport_);
        const QRect box = calendar_.rightwards ? QRect(QPoint(qRound(seen.from), place_.top()),
                                                       QPoint(qRound(seen.to) - 1, place_.bottom()))
                                               : QRect(QPoint(place_.left(), qRound(seen.from)),
                                                       QPoint(place_.right(), qRound(seen.to) - 1));
        const QRect shown = box & place_;
        if (shown.isEmpty()) return;
        if (span.folded) painter_.fillRect(shown, Faded(ink, kFoldedGround));
        painter_.setPen(line);
        if (calendar_.rightwards)
            painter_.drawLine(box.topRight(), box.bottomRight());
        else
            painter_.drawLine(box.bottomLeft(), box.bottomRight());
        painter_.setPen(ink);
        const QFontMetrics metrics = painter_.fontMetrics();
        const bool fits = metrics.horizontalAdvance(span.caption) + kBesideText / 2 <= shown.width() &&
                          metrics.height() <= shown.height();
        if (fits) painter_.drawText(shown, Qt::AlignCenter | Qt::TextSingleLine, span.caption);
    }

    void PaintToday() {
        if (!today_) return;
        const QPoint at = viewport_.FromSurface(today_->center()).toPoint();
        const QRect line = calendar_.rightwards ? QRect(at.x(), place_.top(), kMark, place_.height())
                                                : QRect(place_.left(), at.y(), place_.width(), kMark);
        painter_.fillRect(line & place_, mark_);
    }

    QPainter &painter_;
    const Calendar &calendar_;
    const Viewport &viewport_;
    const QRect place_;
    const std::optional<QLineF> today_;
    const QColor mark_;
    const QColor paper_;
    const bool dark_;
};

} // namespace

void PaintToday(QPainter &painter, const QLineF &place, const Surface &surface, const Viewport &viewport,
                const QRect &canvas) {
    const OverlayLook look = LookFor(surface, painter);
    const QLineF line = viewport.ToPixels().map(place);
    const QPointF origin = viewport.FromSurface(QPointF(0, 0));
    QLineF page = line;
    if (qAbs(line.dx()) < qAbs(line.dy()))
        page.setLine(line.x1(), std::max(origin.y(), double(canvas.top())), line.x1(), canvas.bottom() + 1);
    else
        page.setLine(std::max(origin.x(), double(canvas.left())), line.y1(), canvas.right() + 1, line.y1());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(look.Line(Faded(look.guide, kFaint), 1));
    painter.drawLine(look.Crisp(page.p1()), look.Crisp(page.p2()));
    painter.setPen(look.Line(look.guide, 1));
    painter.drawLine(look.Crisp(line.p1()), look.Crisp(line.p2()));
    painter.restore();
}

std::vector<const Link *> QuietLinksOf(const Node &node) {
    std::vector<const Link *> links;
    for (const Link *link : node.Links())
        if (IsQuietDateLink(*link) && !link->Hidden() && &link->Source() == &node) links.push_back(link);
    return links;
}

void PaintDateLinks(QPainter &painter, const std::vector<const Link *> &links, const Viewport &viewport) {
    if (links.empty()) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const Link *link : links) {
        std::vector<QPointF> route;
        for (const Point &point : link->Route()) route.push_back(viewport.FromSurface(ToQPointF(point)));
        painter.setPen(QPen(support::ToQColor(link->LineColor()), 1.5));
        painter.drawPath(RoundedRoute(route, kDateCorner * viewport.xScale()));
    }
    painter.restore();
}

void PaintBreaks(QPainter &painter, std::span<const QLineF> breaks, const Surface &surface,
                 const Viewport &viewport) {
    if (breaks.empty()) return;
    const OverlayLook look = LookFor(surface, painter);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QLineF &each : breaks) {
        const QLineF line = viewport.ToPixels().map(each);
        if (line.length() < kTooth) continue;
        const QPolygonF tear = TearAlong(line);
        const QPointF half = Aside(line) * kTearWidth / 2;
        QPolygonF gap = tear.translated(half);
        const QPolygonF other = tear.translated(-half);
        std::copy(other.rbegin(), other.rend(), std::back_inserter(gap));
        painter.setPen(Qt::NoPen);
        painter.setBrush(support::ToQColor(surface.BackColor()));
        painter.drawPolygon(gap);
        painter.setPen(look.Line(look.guide, 1));
        for (const QPointF &side : {half, -half}) painter.drawPolyline(tear.translated(side));
    }
    painter.restore();
}

// At the edge beyond which the strip lies.
QRect SlimStripPlace(const Calendar &calendar, const QRectF &seen, const QRect &canvas) {
    if (calendar.IsEmpty()) return {};
    const QRectF all = calendar.Bounds();
    if (calendar.rightwards) {
        if (all.right() <= seen.left() || all.left() >= seen.right()) return {};
        if (all.bottom() <= seen.top()) return {canvas.left(), canvas.top(), canvas.width(), kSlim};
        if (all.top() >= seen.bottom())
            return {canvas.left(), canvas.bottom() + 1 - kSlim, canvas.width(), kSlim};
        return {};
    }
    if (all.bottom() <= seen.top() || all.top() >= seen.bottom()) return {};
    if (all.right() <= seen.left()) return {canvas.left(), canvas.top(), kSlimAside, canvas.height()};
    if (all.left() >= seen.right())
        return {canvas.right() + 1 - kSlimAside, canvas.top(), kSlimAside, canvas.height()};
    return {};
}

void PaintSlimStrip(QPainter &painter, const Calendar &calendar, const Surface &surface,
                    const Viewport &viewport, const QRect &canvas, const std::optional<QLineF> &today) {
    const QRect place = SlimStripPlace(calendar, viewport.Seen(), canvas);
    if (place.isEmpty()) return;
    painter.save();
    SlimStrip(painter, calendar, surface, viewport, place, today).Paint();
    painter.restore();
}

std::optional<StripSpot> StripSpotAt(const Calendar &calendar, const Viewport &viewport, const QRect &canvas,
                                     const QPointF &pixels) {
    if (calendar.IsEmpty()) return std::nullopt;
    const QPointF twips = viewport.ToSurface(pixels);
    const QPointF middle = calendar.strip.center();
    const QPointF at = calendar.rightwards ? QPointF(twips.x(), middle.y()) : QPointF(middle.x(), twips.y());
    if (SlimStripPlace(calendar, viewport.Seen(), canvas).contains(pixels.toPoint())) {
        const bool months = ShowsMonths(calendar, viewport, QFontMetrics(QFont()));
        return StripSpot{months ? StripPiece::Month : StripPiece::Year, at, true};
    }
    const double scale = std::min(viewport.xScale(), viewport.yScale());
    const std::optional<StripPiece> piece = CalendarRows(calendar, scale).PieceAt(twips);
    return piece ? std::optional(StripSpot{*piece, at}) : std::nullopt;
}

} // namespace diagram
