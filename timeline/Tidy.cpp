#include "timeline/Tidy.h"

#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "support/Error.h"
#include "timeline/Arrange.h"
#include "timeline/DateText.h"
#include "timeline/Span.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

namespace timeline {

namespace {

using document::tags::kMissing;

// All that stands for one month of the calendar.
struct MonthOfStrip {
    std::vector<diagram::Node *> months, days;
    bool needed = false;
};
using StripByDate = std::map<QDate, MonthOfStrip>; // by the first days of the months

StripByDate ReadStrip(const diagram::Surface &flow) {
    StripByDate strip;
    for (diagram::Node &node : flow.Nodes()) {
        if (!IsTimelineMaterial(node)) continue;
        const auto date = ParseDate(document::GetTag(node, document::tags::kTheDate));
        if (!date) continue;
        MonthOfStrip &month = strip[QDate(date->year(), date->month(), 1)];
        (HasMonthForm(node.Text()) ? month.months : month.days).push_back(&node);
        month.needed = month.needed || node.Links().Count() > 0;
    }
    for (const QDate &first : MonthsOfEnds(flow)) strip[first].needed = true;
    return strip;
}

bool AddsMissing(diagram::Surface &flow) {
    const diagram::Node *look = LocateTimeLineTemplateNode(flow, false);
    QString missing = document::GetTag(flow, kMissing);
    if (missing.isEmpty() && look) missing = document::GetTag(*look, kMissing);
    return missing.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
}

// What stands between the first and the last that are needed.
void KeepBetween(StripByDate &strip) {
    const auto isNeeded = [](const auto &entry) { return entry.second.needed; };
    const auto first = std::ranges::find_if(strip, isNeeded);
    auto end = strip.end();
    while (end != first && !std::prev(end)->second.needed) --end;
    for (auto at = first; at != end; ++at) at->second.needed = true;
}

int TakeAway(diagram::Surface &flow, const StripByDate &strip) {
    int gone = 0;
    for (const auto &[first, month] : strip) {
        if (month.needed || month.months.empty()) continue;
        gone += int(month.months.size());
        for (diagram::Node *node : month.days) flow.Remove(*node);
        for (diagram::Node *node : month.months) flow.Remove(*node);
    }
    return gone;
}

int CountMonths(const diagram::Surface &flow) { return int(LocateTimelineNodes(flow).size()); }

bool IsWhole(const diagram::Surface &flow) {
    std::set<QDate> months;
    for (const auto &[first, month] : ReadStrip(flow))
        if (!month.months.empty()) months.insert(first);
    return months.empty() || MonthBoundaries(*months.begin(), *months.rbegin()) + 1 == int(months.size());
}

} // namespace

int TidyTimeline(document::MapWindow &window, diagram::Surface &Flow) {
    return support::PassOn("TidyTimeline", [&] {
        const bool hidden = IsTimelineHidden(Flow);
        StripByDate strip = ReadStrip(Flow);
        if (AddsMissing(Flow)) KeepBetween(strip);
        const int gone = TakeAway(Flow, strip);
        if (gone == 0) return 0;
        const std::vector<diagram::Node *> left = LocateTimelineNodes(Flow);
        if (!hidden && std::ranges::all_of(left, &diagram::Node::Hidden)) ShowHiddenMonths(Flow);
        window.clsSettings().Dirty = true;
        UpdateTimeLineNodes(window, Flow, true);
        return gone;
    });
}

int FillInMissingMonths(document::MapWindow &window, diagram::Surface &Flow) {
    return support::PassOn("FillInMissingMonths", [&] {
        if (IsWhole(Flow)) return 0;
        const int before = CountMonths(Flow);
        document::SetTag(Flow, kMissing, QStringLiteral("True"));
        UpdateTimeLineNodes(window, Flow, true);
        return CountMonths(Flow) - before;
    });
}

} // namespace timeline
