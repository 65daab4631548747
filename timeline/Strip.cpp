#include "timeline/Strip.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/Val.h"
#include "timeline/AdjustLinks.h"

namespace timeline {

int ArrangementOf(const diagram::Surface &flow) {
    return int(support::Val(document::GetTag(flow, document::tags::kTimelineAlign)));
}

bool RunsRightwards(const diagram::Surface &flow) { return RunsRightwards(ArrangementOf(flow)); }

void TakeExtentAway(diagram::Node &month, int arrangement) {
    if (!IsArrangement(arrangement)) return;
    if (RunsRightwards(arrangement))
        month.SetWidth(0);
    else
        month.SetHeight(0);
}

void PositionDateNodes(const std::vector<diagram::Node *> &DayNodes, const PlacedMonth &Month,
                       bool Horizontal) {
    for (const PlacedDay &place : Month.days) {
        diagram::Node &day = *DayNodes[place.day];
        day.SetBounds(place.box.left, place.box.top, place.box.width, place.box.height);
        AdjustLinks(day, Horizontal);
    }
}

} // namespace timeline
