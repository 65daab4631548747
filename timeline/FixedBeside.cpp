#include "timeline/FixedBeside.h"

#include <algorithm>

namespace timeline {

FixedBeside::FixedBeside(const std::vector<PlannedBar> &bars, const std::vector<FixedBox> &fixed,
                         const RowGaps &gaps, double sign, double edge)
    : bars_(bars), gaps_(gaps) {
    std::vector<FixedBox> boxes;
    double longest = 0;
    for (FixedBox box : fixed) {
        const auto [near, far] = std::minmax({sign * (box.before - edge), sign * (box.behind - edge)});
        box.before = near, box.behind = far;
        if (far <= 0) continue;
        boxes.push_back(box);
        longest = std::max(longest, box.end - box.begin);
    }
    if (boxes.empty()) return;
    std::ranges::sort(boxes, {}, &FixedBox::begin);
    for (const FixedBox &box : boxes)
        reaches_.push_back({box.before - gaps.across + kRounding, box.behind + gaps.across - kRounding});
    FindMet(boxes, longest);
}

// Which boxes a bar can meet depends on their places along the strip alone, which don't change.
void FixedBeside::FindMet(const std::vector<FixedBox> &boxes, double longest) {
    met_.resize(bars_.size());
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) {
        const double begin = bars_[bar].begin - gaps_.along, end = bars_[bar].EndOfRoom() + gaps_.along;
        auto box = std::ranges::lower_bound(boxes, begin - longest, {}, &FixedBox::begin);
        for (; box != boxes.end() && box->begin < end; ++box)
            if (box->end > begin) met_[bar].push_back(int(box - boxes.begin()));
    }
}

double FixedBeside::Past(int bar, double distance) const {
    const double half = bars_[std::size_t(bar)].breadth / 2;
    for (int box : met_[std::size_t(bar)]) {
        const Reach &reach = reaches_[std::size_t(box)];
        if (distance - half < reach.far && distance + half > reach.near)
            distance = reach.far + kRounding + half;
    }
    return distance;
}

double FixedBeside::Free(const std::vector<int> &row, double distance) const {
    if (met_.empty()) return distance;
    for (double free = distance;; distance = free) {
        for (int bar : row) free = Past(bar, free);
        if (free == distance) return free;
    }
}

} // namespace timeline
