#include "diagram/render/CalendarPainter.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/Node.h"
#include "diagram/render/NodeContent.h"
#include "diagram/scene/Scene.h"

#include <QLineF>

namespace diagram {

namespace {

constexpr double kPixel = kTwipsPerPixel;
constexpr double kLeastWeek = 10;   // pixels between two ticks
constexpr double kLeastWeekend = 3; // pixels of a day that is shaded
constexpr double kLeastCrease = 9;  // pixels of a sliver that shows how it is folded
constexpr double kCaptionPoints = 8;
constexpr double kLeastCaption = 10;              // pixels of it that can be read
constexpr double kCaptionEvery = 480;             // pixels of a year for each time that it is written
constexpr double kTick = 75;                      // twips
constexpr double kLaneGap = 45, kLaneIndent = 60; // twips
constexpr int kSteps[] = {1, 2, 5, 10, 20, 50, 100};

} // namespace

CalendarPainter::CalendarPainter(Paint &paint)
    : paint_(paint),
      calendar_(paint.scene.TheCalendar()),
      rows_(calendar_, Pixels(1)),
      ink_(paint.paper, ToRgb(calendar_.ink)) {}

double CalendarPainter::Pixels(double twips) const {
    if (!paint_.options.screen) return twips / kPixel;
    return paint_.frame.Length(twips) / paint_.frame.dot;
}

double CalendarPainter::RealPixels(double twips) const {
    return paint_.options.vector ? twips / kPixel : paint_.frame.Length(twips) / paint_.frame.dot;
}

double CalendarPainter::Dot() const {
    return paint_.frame.snap ? paint_.frame.dot / paint_.frame.Scale() : kPixel;
}

void CalendarPainter::Fill(const QRectF &twips, QRgb colour) const {
    const QRectF seen = twips & paint_.area;
    if (seen.isEmpty()) return;
    QRectF place = paint_.frame.Map(seen);
    if (paint_.frame.snap) {
        const QPointF from(std::floor(place.left() + 0.5), std::floor(place.top() + 0.5));
        const QPointF to(std::floor(place.right() + 0.5), std::floor(place.bottom() + 0.5));
        place = QRectF(from, to);
    }
    paint_.pencil.Smooth(false);
    paint_.pencil.NoLine();
    paint_.pencil.Fill(colour);
    paint_.Painter().drawRect(place);
}

void CalendarPainter::PaintBelow() const {
    if (calendar_.IsEmpty()) return;
    PaintWeekends();
    if (calendar_.todayEverywhere && !paint_.options.screen) PaintToday();
    PaintLanes();
    if (!calendar_.bands || !rows_.Near()) return;
    PaintQuarters(rows_.Quarters());
    PaintYears(rows_.Years());
    PaintWeeks();
}

void CalendarPainter::PaintAbove() const {
    if (!calendar_.IsEmpty() && calendar_.bands && !rows_.Near()) PaintYears(rows_.Years());
}

// Over the whole page.
void CalendarPainter::PaintWeekends() const {
    const QRectF &area = paint_.area;
    const Row all = calendar_.rightwards ? Row{area.top(), area.bottom()} : Row{area.left(), area.right()};
    for (const Span &day : calendar_.weekends)
        if (RealPixels(day.Length()) >= kLeastWeekend)
            Fill(rows_.PlaceOf(day.from, day.to, all), ink_.Weekend());
}

void CalendarPainter::PaintWeeks() const {
    if (calendar_.weeks.size() < 2 || RealPixels(calendar_.weeks[1] - calendar_.weeks[0]) < kLeastWeek)
        return;
    for (const double at : calendar_.weeks)
        Fill(rows_.PlaceOf(at, at + Dot(), rows_.Ticks(kTick)), ink_.Week());
}

void CalendarPainter::PaintToday() const {
    if (!calendar_.today) return;
    const QRectF &area = paint_.area;
    const double at = calendar_.rightwards ? calendar_.today->x1() : calendar_.today->y1();
    const Row all = calendar_.rightwards ? Row{area.top(), area.bottom()} : Row{area.left(), area.right()};
    Fill(rows_.PlaceOf(at, at + Dot(), all), kTodayInk);
}

// A line along the edge of each lane that faces the strip, and the caption on it where the strip begins.
void CalendarPainter::PaintLanes() const {
    const QRectF &strip = calendar_.strip;
    const bool rightwards = calendar_.rightwards;
    const double begin = rightwards ? strip.left() : strip.top(),
                 end = rightwards ? strip.right() : strip.bottom();
    const double middle = rightwards ? strip.center().y() : strip.center().x();
    const double dot = Dot(), points = LanePoints();
    for (const Calendar::Lane &lane : calendar_.lanes) {
        const TextBlock &caption = Caption(lane.caption, false, points);
        const bool before = lane.to < middle;
        const double edge = before ? lane.to + kLaneGap : lane.from - kLaneGap - caption.height;
        const double line = before ? edge + caption.height : edge - dot;
        Fill(rows_.PlaceOf(begin, end, {line, line + dot}), ink_.LaneLine());
        if (rightwards)
            Write(caption, QPointF(begin + kLaneIndent + caption.width / 2, edge + caption.height / 2),
                  ink_.LaneText());
        else
            WriteDownwards(caption, {edge + caption.height, begin + kLaneIndent}, ink_.LaneText());
    }
}

// How high a caption may be between the lane and what lies next to it on the side of the strip.
double CalendarPainter::RoomOf(const Calendar::Lane &lane) const {
    const bool rightwards = calendar_.rightwards;
    const QRectF &strip = calendar_.strip, all = calendar_.Bounds();
    if (lane.to < (rightwards ? strip.center().y() : strip.center().x())) {
        double next = rightwards ? all.top() : all.left();
        for (const Calendar::Lane &other : calendar_.lanes)
            if (other.from >= lane.to) next = std::min(next, other.from);
        return next - lane.to - kLaneGap;
    }
    double next = rightwards ? all.bottom() : all.right();
    for (const Calendar::Lane &other : calendar_.lanes)
        if (other.to <= lane.from) next = std::max(next, other.to);
    return lane.from - next - kLaneGap;
}

// Captions keep their own size, however small on the screen, where a larger one would cover nodes of the next
// lane.
double CalendarPainter::LanePoints() const {
    const double points = CaptionPoints();
    const bool room = std::ranges::all_of(calendar_.lanes, [&](const Calendar::Lane &lane) {
        return Caption(lane.caption, false, points).height <= RoomOf(lane);
    });
    return room ? points : kCaptionPoints;
}

// Turned clockwise; its first line begins at the corner.
void CalendarPainter::WriteDownwards(const TextBlock &caption, const QPointF &corner, QRgb ink) const {
    if (!paint_.options.vector && paint_.frame.Length(caption.height) < kLegiblePixels) return;
    QPainter &painter = paint_.Painter();
    painter.save();
    painter.translate(paint_.frame.Map(corner));
    painter.rotate(90);
    DrawBlock(paint_, caption, QPointF(), caption.width, 0, ink);
    painter.restore();
    paint_.pencil.Forget();
}

// Ends a dot early, so that the paper shows between two spans.
void CalendarPainter::PaintSpan(const Span &span, const Row &row, QRgb colour) const {
    Fill(rows_.PlaceOf(span.from, std::max(span.from, span.to - Dot()), row), colour);
}

// Large enough to be read on the screen at every zoom.
double CalendarPainter::CaptionPoints() const {
    double points = kCaptionPoints;
    if (paint_.options.screen)
        points = std::max(points, kLeastCaption / std::max(Pixels(kTwipsPerPoint), 1e-9));
    return std::min(std::round(points * 4) / 4, double(kLargestFontSize));
}

const TextBlock &CalendarPainter::Caption(const QString &text, bool bold) const {
    return Caption(text, bold, CaptionPoints());
}

const TextBlock &CalendarPainter::Caption(const QString &text, bool bold, double points) const {
    return paint_.caches.texts.Find(text, Font(calendar_.fontName, points, bold), 0,
                                    paint_.options.vector ? 0 : paint_.frame.Scale());
}

bool CalendarPainter::HasRoom(const TextBlock &caption, double length) const {
    constexpr double kBeside = 60; // twips
    return (calendar_.rightwards ? caption.width : caption.height) + kBeside <= length;
}

void CalendarPainter::Write(const TextBlock &caption, const QPointF &middle, QRgb ink) const {
    const QPointF corner = middle - QPointF(caption.width, caption.height) / 2;
    if (!QRectF(corner, QSizeF(caption.width, caption.height)).intersects(paint_.area)) return;
    if (!paint_.options.vector && paint_.frame.Length(caption.height) < kLegiblePixels) return;
    DrawBlock(paint_, caption, paint_.frame.Map(corner), caption.width, 2, ink);
}

void CalendarPainter::PaintQuarters(const Row &row) const {
    for (const Span &quarter : calendar_.quarters) {
        PaintSpan(quarter, row, ink_.Quarter());
        const TextBlock &caption = Caption(quarter.caption, false);
        if (HasRoom(caption, quarter.Length()))
            Write(caption, rows_.PlaceOf(quarter.from, quarter.to, row).center(), ink_.QuarterText());
    }
}

void CalendarPainter::PaintYears(const Row &row) const {
    const std::vector<Span> &years = calendar_.years;
    for (std::size_t first = 0, end = 0; first < years.size(); first = end) {
        for (end = first; end < years.size() && years[end].folded == years[first].folded;) ++end;
        PaintYears(std::span(years).subspan(first, end - first), row);
    }
}

// How many years there are to each that is written: more than one where they are narrow.
int CalendarPainter::StepOf(std::span<const Span> years) const {
    double narrowest = 1e9;
    for (const Span &year : years) narrowest = std::min(narrowest, year.Length());
    if (years.size() > 2) narrowest = years[1].Length(); // those at the ends may be parts of years
    for (const int step : kSteps)
        if (HasRoom(Caption(years.front().caption, true), narrowest * step)) return step;
    return kSteps[std::size(kSteps) - 1];
}

// The years are all folded, or none is. A wide one is written more than once.
void CalendarPainter::PaintYears(std::span<const Span> years, const Row &row) const {
    const int step = StepOf(years);
    for (const Span &year : years) PaintSpan(year, row, ink_.Year()); // captions may reach into the next
    for (const Span &year : years) {
        const TextBlock &caption = Caption(year.caption, true);
        const double left = years.back().to - year.from;
        const int number = year.folded ? int(&year - years.data()) : year.caption.toInt();
        if (number % step != 0 || (year.folded && !HasRoom(caption, left))) continue;
        if (step == 1 && !HasRoom(caption, year.Length())) continue;
        const int times = step > 1 ? 1 : std::max(1, qRound(Pixels(year.Length()) / kCaptionEvery));
        const double length =
            std::max(year.Length(), calendar_.rightwards && step > 1 ? caption.width : 0) / times;
        for (int i = 0; i < times; ++i)
            Write(caption, rows_.PlaceOf(year.from + i * length, year.from + (i + 1) * length, row).center(),
                  ink_.YearText());
    }
}

// Creases at both ends, and between them the count, with the name in front of it where there is room.
void CalendarPainter::PaintFold(const Calendar::Fold &fold, const Node &month) const {
    const QRectF box = month.Bounds();
    const QRgb ground = month.Transparent() ? paint_.paper : ToRgb(month.FillColor());
    const CalendarInk ink(ground, ToRgb(calendar_.ink));
    const double dot = Dot();
    Fill(box.adjusted(dot, dot, -dot, -dot), ink.Fold());
    const double along = calendar_.rightwards ? box.width() : box.height();
    const Row row = calendar_.rightwards ? Row{box.top() + dot, box.bottom() - dot}
                                         : Row{box.left() + dot, box.right() - dot};
    const double from = calendar_.rightwards ? box.left() : box.top();
    if (RealPixels(along) >= kLeastCrease)
        for (const double at : {from + 3 * dot, from + along - 4 * dot})
            Fill(rows_.PlaceOf(at, at + dot, row), ink.Crease());
    const TextBlock &name = Caption(fold.name + QStringLiteral(" \u00b7 ") + fold.count, true);
    const TextBlock &caption =
        !calendar_.rightwards && name.width < box.width() ? name : Caption(fold.count, true);
    if (HasRoom(caption, along)) Write(caption, box.center(), ink.Text());
}

} // namespace diagram
