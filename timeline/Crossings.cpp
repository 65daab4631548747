#include "timeline/Crossings.h"

#include <algorithm>
#include <utility>

namespace timeline {

namespace {

struct Segment {
    double begin, end;     // along, in ascending order
    double atBegin, atEnd; // across
    int from, to;
};

double Along(const PlannedBar &bar) { return (bar.begin + bar.end) / 2; }

std::vector<Segment> Segments(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                              const std::vector<double> &middles) {
    std::vector<Segment> segments;
    segments.reserve(links.size());
    for (const BarLink &link : links) {
        int a = link.from, b = link.to;
        if (a == b) continue;
        if (Along(bars[size_t(b)]) < Along(bars[size_t(a)])) std::swap(a, b);
        segments.push_back(
            {Along(bars[size_t(a)]), Along(bars[size_t(b)]), middles[size_t(a)], middles[size_t(b)], a, b});
    }
    std::ranges::sort(segments, {}, &Segment::begin);
    return segments;
}

double AcrossAt(const Segment &segment, double along) {
    if (segment.end <= segment.begin) return segment.atBegin;
    return segment.atBegin +
           (segment.atEnd - segment.atBegin) * (along - segment.begin) / (segment.end - segment.begin);
}

bool ShareAnEnd(const Segment &a, const Segment &b) {
    return a.from == b.from || a.from == b.to || a.to == b.from || a.to == b.to;
}

// Whether they cross where both of them are. A link straight across the strip has a single place along it.
bool Cross(const Segment &a, const Segment &b) {
    if (ShareAnEnd(a, b)) return false;
    const auto within = [](const Segment &upright, const Segment &other) {
        const auto [low, high] = std::minmax(upright.atBegin, upright.atEnd);
        const double at = AcrossAt(other, upright.begin);
        return low < at && at < high;
    };
    if (a.end <= a.begin || b.end <= b.begin) return a.end <= a.begin ? within(a, b) : within(b, a);
    const double begin = std::max(a.begin, b.begin), end = std::min(a.end, b.end);
    return (AcrossAt(a, begin) - AcrossAt(b, begin)) * (AcrossAt(a, end) - AcrossAt(b, end)) < 0;
}

} // namespace

int CountCrossings(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                   const std::vector<double> &middles) {
    long pairs = 0;
    return CountCrossings(bars, links, middles, pairs);
}

int CountCrossings(const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links,
                   const std::vector<double> &middles, long &pairs) {
    const std::vector<Segment> segments = Segments(bars, links, middles);
    int crossings = 0;
    for (size_t i = 0; i < segments.size(); ++i)
        for (size_t j = i + 1; j < segments.size() && segments[j].begin <= segments[i].end; ++j, ++pairs)
            crossings += Cross(segments[i], segments[j]);
    return crossings;
}

} // namespace timeline
