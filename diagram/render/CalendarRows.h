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

    // `pixels` are those of a twip: by them it is decided what has room. The calendar must outlive it.
    CalendarRows(const Calendar &calendar, double pixels) : calendar_(calendar), pixels_(pixels) {}

    bool Near() const;        // whether quarters have room; else only years, which then lie next to the strip
    double Thickness() const; // of a row; at small zooms it grows, so that it can be read
    Row Quarters() const { return RowAt(0); }
    // Where quarters have no room and a row has grown, it covers part of the strip rather than nodes.
    Row Years() const { return Near() ? RowAt(1) : Far(); }
    // A row of that thickness next to the strip.
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
