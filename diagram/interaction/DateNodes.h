// Drags a dated node along the strip of days to another day.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/model/DayStrip.h"

namespace diagram {

class Scene;

// The day under the pointer becomes that of the pressed node; the other selected nodes that have a date go on
// or back by as many days. All of them go along the strip with the pointer. Without Alt it becomes a move.
class DateNodes : public Gesture {
public:
    DateNodes(Scene &scene, const Stage &stage, Node &pressed, const PointerInput &press);

    // Whether a drag from that node with this input is one.
    static bool Begins(const Stage &stage, const Node &pressed, const PointerInput &input);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterMove
    void Cancel() override { held_.Restore(surface_); }
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override;

private:
    QPointF Distance(const PointerInput &input) const;
    std::vector<DayStrip::Dated> NewDates() const;

    Scene &scene_;
    const Stage &stage_;
    Surface &surface_;
    DayStrip &days_;
    PointerInput press_;
    ItemId pressed_;
    HeldItems held_;
    std::optional<QDate> day_; // under the pointer
};

} // namespace diagram
