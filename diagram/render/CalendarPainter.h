// Years, quarters and weeks beside the strip of days, its weekends, and today.
#pragma once

#include "diagram/model/Calendar.h"
#include "diagram/render/CalendarInk.h"
#include "diagram/render/CalendarRows.h"
#include "diagram/render/Paint.h"

#include <span>

namespace diagram {

// Where the zoom leaves too little room for quarters, only the years are drawn, above the diagram, so that
// they can be read at every zoom of the screen.
class CalendarPainter {
public:
    explicit CalendarPainter(Paint &paint);

    void PaintBelow() const;
    void PaintAbove() const;
    // The sliver on the form of the month that stands for it.
    void PaintFold(const Calendar::Fold &fold, const Node &month) const;

private:
    using Span = Calendar::Span;
    using Row = CalendarRows::Row;

    // By which rows and captions are laid out: on the screen those seen, else those at zoom 100, so that
    // paper and its preview are alike.
    double Pixels(double twips) const;
    double RealPixels(double twips) const; // those of the target; of a vector target those at zoom 100
    double Dot() const;                    // the thinnest line, in twips
    void Fill(const QRectF &twips, QRgb colour) const;
    void PaintWeekends() const;
    void PaintWeeks() const;
    void PaintToday() const;
    void PaintLanes() const;
    void WriteDownwards(const TextBlock &caption, const QPointF &corner, QRgb ink) const;
    void PaintYears(const Row &row) const;
    void PaintYears(std::span<const Span> years, const Row &row) const;
    int StepOf(std::span<const Span> years) const;
    void PaintQuarters(const Row &row) const;
    void PaintSpan(const Span &span, const Row &row, QRgb colour) const;
    double RoomOf(const Calendar::Lane &lane) const;
    double LanePoints() const;
    double CaptionPoints() const;
    const TextBlock &Caption(const QString &text, bool bold) const;
    const TextBlock &Caption(const QString &text, bool bold, double points) const;
    bool HasRoom(const TextBlock &caption, double length) const;
    void Write(const TextBlock &caption, const QPointF &middle, QRgb ink) const;

    Paint &paint_;
    const Calendar &calendar_;
    CalendarRows rows_;
    CalendarInk ink_;
};

} // namespace diagram
