// Where years and quarters lie beside the strip of days. Twips.
#pragma once

#include "diagram/model/Calendar.h"
#include "diagram/model/DayStrip.h"

#include <QPointF>

namespace diagram {

class CalendarRows {
public:
    // From and to across the strip.
    struct Row {
        double from, to;
    };

    // `pixels` of a twip, by which it is decided what has room. The calendar must live as long.
    CalendarRows(const Calendar &calendar, double pixels) : calendar_(calendar), pixels_(pixels) {}

    bool Near() const;        // quarters have room too; else years lie at the strip
    double Thickness() const; // of a row; far away it grows beyond its own, so that it can be read
    Row Quarters() const { return RowAt(0); }
    // Far away they take in the strip itself as far as they need it, so that they don't cover nodes.
    Row Years() const { return Near() ? RowAt(1) : Far(); }
    // A row that is as thick as it needn't be, at the strip.
    Row Ticks(double thickness) const { return At(0, thickness); }
    QRectF PlaceOf(double from, double to, const Row &row) const;

    // What of the strip lies at the point: of its months, else of the bands where these are drawn.
    std::optional<StripPiece> PieceAt(const QPointF &twips) const;

private:
    Row RowAt(int place) const { return At(place, Thickness()); }
    Row At(int place, double thickness) const;
    Row Far() const;
    bool Lies(const QPointF &twips, const Row &row) const;

    const Calendar &calendar_;
    double pixels_;
};

} // namespace diagram
