#include "diagram/model/Calendar.h"

#include "diagram/model/Link.h"
#include "diagram/shapes/LinkStyles.h"

#include <algorithm>

namespace diagram {

namespace {

struct Sources {
    CalendarSource calendar = nullptr;
    BarSource bars = nullptr;
};
Sources &TheSources() {
    static Sources sources;
    return sources;
}

constexpr std::size_t kMostSegments = 3; // of a link to a day

} // namespace

bool IsQuietDateLink(const Link &link) {
    if (link.Selectable() || !link.Marked() || link.DrawWidth() > 1) return false;
    const LinkStyleRow *row = FindLinkStyle(link.Style());
    return row && row->form == LinkForm::Orthogonal && row->directions.size() <= kMostSegments;
}

const Calendar::Fold *Calendar::FoldWith(ItemId node) const {
    const auto fold = std::ranges::find_if(
        folds, [&](const Fold &each) { return std::ranges::count(each.months, node) > 0; });
    return fold == folds.end() ? nullptr : &*fold;
}

QRectF Calendar::Bands() const {
    if (IsEmpty()) return {};
    const double depth = 2 * (rightwards ? kBandThickness : kBandWidth);
    if (rightwards) return {strip.left(), after ? strip.bottom() : strip.top() - depth, strip.width(), depth};
    return {after ? strip.right() : strip.left() - depth, strip.top(), depth, strip.height()};
}

void SetCalendarSource(CalendarSource source, BarSource bars) { TheSources() = {source, bars}; }

Calendar CalendarOf(const Surface &surface) {
    return TheSources().calendar ? TheSources().calendar(surface) : Calendar();
}

bool IsBarOfStrip(const Node &node) { return TheSources().bars && TheSources().bars(node); }

} // namespace diagram
