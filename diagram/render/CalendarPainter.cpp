#include "diagram/render/CalendarPainter.h"

#include "diagram/render/NodeContent.h"
#include "diagram/scene/Scene.h"

#include <QLineF>

namespace diagram {

namespace {

constexpr double kPixel = 15;          // twips at zoom 100
constexpr double kNearPixels = 9;      // of a band as wide as it is meant to be, where quarters are drawn
constexpr double kLeastBand = 14;      // pixels of one that is to be read
constexpr double kLeastBandAside = 28; // the same beside a strip that runs downwards
constexpr double kLeastWeek = 10;      // pixels between two ticks
constexpr double kLeastWeekend = 3;    // pixels of a day that is shaded
constexpr double kCaptionPoints = 8;
constexpr double kLeastCaption = 10;  // pixels of it that can be read
constexpr double kCaptionEvery = 480; // pixels of a year; it is written again in the next ones
constexpr double kTick = 75;          // twips
constexpr double kQuarterTint = 0.07, kYearTint = 0.14, kWeekendTint = 0.06;
constexpr double kLineTint = 0.45, kQuarterInk = 0.8, kYearInk = 1;
constexpr int kLeastContrast = 90; // in grey values
constexpr int kSteps[] = {1, 2, 5, 10, 20, 50, 100};
constexpr QRgb kToday = qRgb(207, 34, 126);

// What can be read on the paper.
QRgb InkOn(QRgb paper, QRgb wanted) {
    if (std::abs(qGray(paper) - qGray(wanted)) >= kLeastContrast) return wanted;
    return qGray(paper) < 128 ? qRgb(235, 240, 245) : qRgb(40, 50, 60);
}

} // namespace

CalendarPainter::CalendarPainter(Paint &paint)
    : paint_(paint), calendar_(paint.scene.TheCalendar()), ink_(InkOn(paint.paper, ToRgb(calendar_.ink))) {}

double CalendarPainter::Pixels(double twips) const {
    if (!paint_.options.screen) return twips / kPixel;
    return paint_.frame.Length(twips) / paint_.frame.dot;
}

double CalendarPainter::RealPixels(double twips) const {
    return paint_.options.vector ? twips / kPixel : paint_.frame.Length(twips) / paint_.frame.dot;
}

bool CalendarPainter::Near() const { return Pixels(kBandThickness) >= kNearPixels; }

// Far away it grows beyond its own thickness, on the screen.
double CalendarPainter::Thickness() const {
    const bool across = calendar_.rightwards;
    const double own = (Near() ? 1 : 2) * (across ? kBandThickness : kBandWidth);
    const double least = across ? kLeastBand : kLeastBandAside;
    return own * std::max(1.0, least / std::max(Pixels(own), 1e-9));
}

CalendarPainter::Row CalendarPainter::RowAt(int place, double thickness) const {
    const QRectF &strip = calendar_.strip;
    const double near = calendar_.rightwards ? (calendar_.after ? strip.bottom() : strip.top())
                                             : (calendar_.after ? strip.right() : strip.left());
    if (calendar_.after) return {near + place * thickness, near + (place + 1) * thickness};
    return {near - (place + 1) * thickness, near - place * thickness};
}

QRectF CalendarPainter::PlaceOf(double from, double to, const Row &row) const {
    if (calendar_.rightwards) return {from, row.from, to - from, row.to - row.from};
    return {row.from, from, row.to - row.from, to - from};
}

QRgb CalendarPainter::Tint(double share) const { return Mix(paint_.paper, ink_, share); }

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
    if (!calendar_.bands || !Near()) return;
    PaintQuarters(RowAt(0, Thickness()));
    PaintYears(RowAt(1, Thickness()));
    PaintWeeks();
}

void CalendarPainter::PaintAbove() const {
    if (!calendar_.IsEmpty() && calendar_.bands && !Near()) PaintYears(RowAt(0, Thickness()));
}

// Over the whole page.
void CalendarPainter::PaintWeekends() const {
    const QRectF &area = paint_.area;
    const Row all = calendar_.rightwards ? Row{area.top(), area.bottom()} : Row{area.left(), area.right()};
    for (const Span &day : calendar_.weekends)
        if (RealPixels(day.Length()) >= kLeastWeekend)
            Fill(PlaceOf(day.from, day.to, all), Tint(kWeekendTint));
}

void CalendarPainter::PaintWeeks() const {
    if (calendar_.weeks.size() < 2 || RealPixels(calendar_.weeks[1] - calendar_.weeks[0]) < kLeastWeek)
        return;
    const double width = paint_.frame.snap ? paint_.frame.dot / paint_.frame.Scale() : kPixel;
    for (const double at : calendar_.weeks) Fill(PlaceOf(at, at + width, RowAt(0, kTick)), Tint(kLineTint));
}

void CalendarPainter::PaintToday() const {
    if (!calendar_.today) return;
    const QRectF &area = paint_.area;
    const double at = calendar_.rightwards ? calendar_.today->x1() : calendar_.today->y1();
    const Row all = calendar_.rightwards ? Row{area.top(), area.bottom()} : Row{area.left(), area.right()};
    const double width = paint_.frame.snap ? paint_.frame.dot / paint_.frame.Scale() : kPixel;
    Fill(PlaceOf(at, at + width, all), kToday);
}

// With a line of paper behind it, as far as it isn't the last.
void CalendarPainter::PaintSpan(const Span &span, const Row &row, double share) const {
    const double gap = paint_.frame.snap ? paint_.frame.dot / paint_.frame.Scale() : kPixel;
    Fill(PlaceOf(span.from, std::max(span.from, span.to - gap), row), Tint(share));
}

// Of the same height on the screen wherever it would be too small.
const TextBlock &CalendarPainter::Caption(const QString &text, bool bold) const {
    double points = kCaptionPoints;
    if (paint_.options.screen)
        points = std::max(points, kLeastCaption / std::max(Pixels(20), 1e-9)); // 20 twips a point
    points = std::min(std::round(points * 4) / 4, double(kLargestFontSize));
    return paint_.caches.texts.Find(text, Font(calendar_.fontName, points, bold), 0,
                                    paint_.options.vector ? 0 : paint_.frame.Scale());
}

bool CalendarPainter::HasRoom(const TextBlock &caption, double length) const {
    constexpr double kBeside = 60; // twips
    return (calendar_.rightwards ? caption.width : caption.height) + kBeside <= length;
}

void CalendarPainter::Write(const TextBlock &caption, const QPointF &middle, double share) const {
    const QPointF corner = middle - QPointF(caption.width, caption.height) / 2;
    if (!QRectF(corner, QSizeF(caption.width, caption.height)).intersects(paint_.area)) return;
    if (!paint_.options.vector && paint_.frame.Length(caption.height) < kLegiblePixels) return;
    DrawBlock(paint_, caption, paint_.frame.Map(corner), caption.width, 2, Tint(share));
}

void CalendarPainter::PaintQuarters(const Row &row) const {
    for (const Span &quarter : calendar_.quarters) {
        PaintSpan(quarter, row, kQuarterTint);
        const TextBlock &caption = Caption(quarter.caption, false);
        if (HasRoom(caption, quarter.Length()))
            Write(caption, PlaceOf(quarter.from, quarter.to, row).center(), kQuarterInk);
    }
}

// Where years are narrow every second, fifth or tenth is written; a wide one is written more than once.
void CalendarPainter::PaintYears(const Row &row) const {
    if (calendar_.years.empty()) return;
    double narrowest = 1e9;
    for (const Span &year : calendar_.years) narrowest = std::min(narrowest, year.Length());
    if (calendar_.years.size() > 2) // those at the ends may be parts of years
        narrowest = calendar_.years[1].Length();
    int step = 1;
    for (const int each : kSteps)
        if (step = each; HasRoom(Caption(calendar_.years.front().caption, true), narrowest * each)) break;
    for (const Span &year : calendar_.years) {
        PaintSpan(year, row, kYearTint);
        const TextBlock &caption = Caption(year.caption, true);
        if (year.caption.toInt() % step != 0) continue;
        if (step == 1 && !HasRoom(caption, year.Length())) continue;
        const int times = step > 1 ? 1 : std::max(1, int(Pixels(year.Length()) / kCaptionEvery + 0.5));
        const double length =
            std::max(year.Length(), calendar_.rightwards && step > 1 ? caption.width : 0) / times;
        for (int i = 0; i < times; ++i)
            Write(caption, PlaceOf(year.from + i * length, year.from + (i + 1) * length, row).center(),
                  kYearInk);
    }
}

} // namespace diagram
