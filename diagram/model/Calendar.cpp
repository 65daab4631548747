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
Sources &Told() {
    static Sources sources;
    return sources;
}

constexpr int kMostBends = 3; // and the ends

} // namespace

bool IsQuietDateLink(const Link &link) {
    if (link.Selectable() || !link.Marked() || link.DrawWidth() > 1) return false;
    const LinkStyleRow *row = FindLinkStyle(link.Style());
    return row && row->form == LinkForm::Orthogonal && row->directions.size() <= kMostBends;
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

void SetCalendarSource(CalendarSource source, BarSource bars) { Told() = {source, bars}; }

Calendar CalendarOf(const Surface &surface) {
    return Told().calendar ? Told().calendar(surface) : Calendar();
}

bool IsBarOfStrip(const Node &node) { return Told().bars && Told().bars(node); }

} // namespace diagram
