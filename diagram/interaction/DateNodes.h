// Drags a dated node along the strip of days to another day.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/interaction/Snapping.h"
#include "diagram/model/DayStrip.h"

namespace diagram {

class Scene;

// The day under the pointer becomes that of the pressed node; the other selected nodes that have a date go on
// or back by as many days. All of them go along the strip with the pointer. Without Alt it becomes a move.
//
// Where nodes stay at their dates it is the other way round: it is the plain drag, and Alt makes it a move.
// Then nodes go across the strip too, drawn to guides, the day is that at which the pressed node comes to
// stand, and a pressed node without a date is led by the first selected one that has one.
class DateNodes : public Gesture {
public:
    DateNodes(Scene &scene, const Stage &stage, Node &pressed, const PointerInput &press);

    // Whether a drag from that node with this input changes dates.
    static bool Begins(const Stage &stage, const Node &pressed, const PointerInput &input);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterMove
    void Cancel() override { held_.Restore(surface_); }
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override;

private:
    QPointF Distance(const PointerInput &input);
    std::optional<QDate> DayFor(const QPointF &place) const;
    void ShowRows(Overlay &overlay) const;
    QPointF AlongTheStrip(const QPointF &way) const;
    std::vector<DayStrip::Dated> NewDates() const;
    std::vector<Node *> HeldNow() const;

    Scene &scene_;
    const Stage &stage_;
    Surface &surface_;
    DayStrip &days_;
    PointerInput press_;
    ItemId pressed_;
    ItemId lead_; // whose date is shown; kNoItem for none
    HeldItems held_;
    bool keeps_;    // nodes stay at their dates
    QPointF place_; // that stands for the day of the lead at the press
    Snapping snapping_;
    QRectF extent_;            // of all of them at the press
    QPointF corner_;           // left top of the pressed node at the press
    std::optional<QDate> day_; // to which the lead goes
    DayStrip::Following following_;
};

// Shows what else goes on, and where to.
void ShowFollowing(const DayStrip::Following &following, Overlay &overlay);

// What `days` in that direction mean on the strip: as many days on, below 0 back; 0 where nodes don't stay at
// their dates or the direction isn't along the strip.
int DaysTowards(const Surface &surface, const DayStrip &strip, const QPointF &direction, int days);

// The selected nodes that have a date go on or back by `days`, as one step. False, and nothing done, where
// DaysTowards gives 0 or none of them has a date.
bool MoveSelectionByDays(Surface &surface, DayStrip &strip, const QPointF &direction, int days);

} // namespace diagram
