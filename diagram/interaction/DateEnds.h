// Drags an end of a bar along the strip of days to another day.
#pragma once

#include "diagram/interaction/ResizeNodes.h"
#include "diagram/model/DayStrip.h"

namespace diagram {

// Where nodes stay at their dates a handle at an end of a node that has one changes the date of that end, and
// the same end of the other selected nodes that have one by as many days; none of them turns over. A handle
// at a corner resizes them across the strip besides.
class DateEnds : public ResizeNodes {
public:
    DateEnds(Scene &scene, const Stage &stage, Node &pressed, int handle, const PointerInput &press);

    // Whether a drag of that handle is one.
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
    bool isEnd_;               // else it is the beginning
    QPointF place_;            // that stands for the day at the press
    std::optional<QDate> day_; // to which the pressed node's end goes
    DayStrip::Following following_;
};

// The selected nodes that have an end end later or earlier by `days`, none before its beginning, as one step
// or as part of the last one. False, and nothing done, where nodes don't stay at their dates, the direction
// isn't along the strip, or none has one.
bool MoveEndsByDays(Surface &surface, DayStrip &strip, const QPointF &direction, int days,
                    bool goesOn = false);

} // namespace diagram
