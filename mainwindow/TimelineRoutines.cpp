#include "mainwindow/TimelineRoutines.h"

#include "timeline/AdjustLinks.h"
#include "timeline/Arrange.h"
#include "timeline/TimelineNodes.h"

namespace mainwindow {

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
