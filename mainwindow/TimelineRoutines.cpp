#include "mainwindow/TimelineRoutines.h"

#include "timeline/AdjustLinks.h"

namespace mainwindow {

TimelineRoutines DefaultTimelineRoutines(std::function<void()> notYet) {
    const auto onSurface = [notYet](diagram::Surface &) { notYet(); };
    return {.AdjustLinks = timeline::AdjustLinks,
            .ArrangeTimeLineNodes = [notYet](diagram::Surface &, int) { notYet(); },
            .DoUnHideTimelineNodes = onSurface,
            .ShowHideTimelineNodes = [notYet](diagram::Surface &, bool) { notYet(); },
            .UpdateTimeLineNodes = [notYet](diagram::Surface &, bool) { notYet(); },
            .DefaultNodeSetup = onSurface,
            .TimelineSetup = onSurface};
}

} // namespace mainwindow
