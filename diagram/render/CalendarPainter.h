// Years, quarters and weeks beside the strip of days, its weekends, and today.
#pragma once

#include "diagram/model/Calendar.h"
#include "diagram/render/Paint.h"

namespace diagram {

// Far away the years alone are left, above the diagram, so that they can be read at every zoom of the screen.
class CalendarPainter {
public:
    explicit CalendarPainter(Paint &paint);

    void PaintBelow() const;
    void PaintAbove() const;

private:
    using Span = Calendar::Span;
    // A row of pieces beside the strip: from and to across it, device pixels or what stands for them.
    struct Row {
        double from, to;
    };

    // As the layout counts them: of the screen, else at zoom 100, so that paper and its preview are alike.
    double Pixels(double twips) const;
    double RealPixels(double twips) const; // where there are any
    bool Near() const;                     // quarters have room
    double Thickness() const;              // of a band, twips
    Row RowAt(int place, double thickness) const;
    QRectF PlaceOf(double from, double to, const Row &row) const;
    QRgb Tint(double share) const;
    void Fill(const QRectF &twips, QRgb colour) const;
    void PaintWeekends() const;
    void PaintWeeks() const;
    void PaintToday() const;
    void PaintYears(const Row &row) const;
    void PaintQuarters(const Row &row) const;
    void PaintSpan(const Span &span, const Row &row, double share) const;
    const TextBlock &Caption(const QString &text, bool bold) const;
    bool HasRoom(const TextBlock &caption, double length) const;
    void Write(const TextBlock &caption, const QPointF &middle, double share) const;

    Paint &paint_;
    const Calendar &calendar_;
    QRgb ink_;
};

} // namespace diagram
