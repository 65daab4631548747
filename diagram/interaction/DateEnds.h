// Drags an end of a bar along the strip of days to another day.
#pragma once

#include "diagram/interaction/ResizeNodes.h"
#include "diagram/model/DayStrip.h"

namespace diagram {

// Where nodes stay at their dates, a handle at one end of a bar, a node with a beginning and an end, changes
// the date of that end, and those of the same end of the other selected bars by as many days; no end passes
// the other one. A handle at a corner also resizes them across the strip.
class DateEnds : public ResizeNodes {
public:
    DateEnds(Scene &scene, const Stage &stage, Node &pressed, int handle, const PointerInput &press);

    // Whether a drag of that handle changes dates.
    static bool Begins(const Stage &stage, const Node &pressed, int handle);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterMove, or AfterResize where no date changes
    void Show(Overlay &overlay) const override;
    bool GrowsThePage() const override { return false; }

private:
    void FindDay(const PointerInput &input);
    QRectF AcrossOnly(const QRectF &box) const;
    std::vector<DayStrip::Dated> NewDates() const;
    std::optional<DayStrip::Dated> Changed(Node &node, qint64 days) const;

    DayStrip &days_;
    bool rightwards_;
    bool isEnd_;               // the handle moves the end; else the beginning
    QPointF place_;            // that stood for that end's day at the press
    std::optional<QDate> day_; // to which the pressed node's end goes
    DayStrip::Following following_;
};

// Moves the ends of the selected bars on or back by `days`, none before its beginning, as one step, or as
// part of the last one where `goesOn`. False, and nothing done, where DaysTowards gives 0 or none of the
// selected nodes is a bar.
bool MoveEndsByDays(Surface &surface, DayStrip &strip, const QPointF &direction, int days,
                    bool goesOn = false);

} // namespace diagram
