#include "mainwindow/TimelineRoutines.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/Val.h"
#include "timeline/AdjustLinks.h"
#include "timeline/Arrange.h"
#include "timeline/TimelineNodes.h"

namespace mainwindow {

namespace {

// Arrangements 2, 3 and 4 run from left to right. A slice without a timeline has none.
bool TimelineIsHorizontal(const diagram::Surface &surface) {
    const double align = support::Val(document::GetTag(surface, document::tags::kTimelineAlign));
    return align == 2 || align == 3 || align == 4;
}

} // namespace

void AdjustLinksOf(const std::vector<diagram::Node *> &nodes, const TimelineRoutines &routines) {
    for (diagram::Node *node : nodes) routines.AdjustLinks(*node, TimelineIsHorizontal(node->Owner()));
}

TimelineRoutines DefaultTimelineRoutines(document::MapWindow &window) {
    return {
        .AdjustLinks = timeline::AdjustLinks,
        .ArrangeTimeLineNodes = [&window](diagram::Surface &flow,
                                          int align) { timeline::ArrangeTimeLineNodes(window, flow, align); },
        .DoUnHideTimelineNodes =
            [&window](diagram::Surface &flow) { timeline::DoUnHideTimelineNodes(window, flow); },
        .ShowHideTimelineNodes = timeline::ShowHideTimelineNodes,
        .UpdateTimeLineNodes =
            [&window](diagram::Surface &flow, bool arrange) {
                timeline::UpdateTimeLineNodes(window, flow, arrange);
            }};
}

} // namespace mainwindow
