#include "timeline/MoveDates.h"

#include "timeline/AddTimelineLink.h"
#include "timeline/DateText.h"
#include "timeline/Span.h"

#include <algorithm>

namespace timeline {

std::vector<std::optional<QDate>> DatesOf(const std::vector<diagram::Node *> &nodes) {
    std::vector<std::optional<QDate>> dates;
    for (const diagram::Node *node : nodes) dates.push_back(ParseDate(DateOfNode(*node)));
    return dates;
}

std::optional<MovedDates> Foreseen(const std::vector<std::optional<QDate>> &dates, const DateStep &step) {
    MovedDates foreseen;
    for (const std::optional<QDate> &date : dates) {
        if (!date) {
            ++foreseen.undated;
            continue;
        }
        const QDate moved = Moved(*date, step);
        if (!IsInYears(moved)) return std::nullopt;
        foreseen.first = foreseen.moved == 0 ? moved : std::min(foreseen.first, moved);
        foreseen.last = foreseen.moved == 0 ? moved : std::max(foreseen.last, moved);
        ++foreseen.moved;
    }
    return foreseen;
}

std::optional<MovedDates> MoveDates(document::MapWindow &window, diagram::Surface &Flow,
                                    const std::vector<diagram::Node *> &nodes, const DateStep &step) {
    const std::vector<std::optional<QDate>> dates = DatesOf(nodes);
    const std::optional<MovedDates> moved = Foreseen(dates, step);
    if (!moved || moved->moved == 0 || step.count == 0) return moved;
    std::vector<NodeDate> texts;
    for (diagram::Node *node : nodes) {
        const std::optional<Span> span = SpanOfNode(*node);
        if (!span) continue;
        const std::optional<QDate> last = span->last ? std::optional(Moved(*span->last, step)) : std::nullopt;
        if (last && !IsInYears(*last)) return std::nullopt;
        texts.push_back({node, FormatDate(Moved(span->first, step), kDayPattern), last});
    }
    AddTimelineLinks(window, Flow, texts);
    return moved;
}

} // namespace timeline
