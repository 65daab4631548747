#include "timeline/DatedNodes.h"

#include "diagram/model/Surface.h"
#include "diagram/model/TextBeside.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/DateIndex.h"
#include "timeline/DaySlots.h"
#include "timeline/Folding.h"
#include "timeline/LaneFinder.h"
#include "timeline/OwnExtent.h"
#include "timeline/Span.h"
#include "timeline/Strip.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <limits>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace timeline {

namespace {

using diagram::Link;
using diagram::Node;
using diagram::Surface;

// The months in sight, and the places of their days along the strip.
class Months {
public:
    explicit Months(const Surface &flow) : rightwards_(RunsRightwards(flow)) {
        for (const Node *month : LocateTimelineNodes(flow)) {
            if (month->Hidden() || month->Bounds().isEmpty()) continue;
            const auto meant = MeaningOf(document::GetTag(*month, document::tags::kTheDate));
            if (meant && meant->month) Add(meant->date, month->Bounds(), FoldOf(*month).has_value());
        }
    }

    bool Rightwards() const { return rightwards_; }
    const StripEdges &Edges() const { return edges_; }

    // From the beginning of the first day to the end of the last one, as far as their months are in sight;
    // all of a fold in which both lie.
    std::optional<Stretch> BarOf(const QDate &first, const QDate &last) const {
        const QDate begin(first.year(), first.month(), 1);
        const auto from = months_.lower_bound(begin), behind = months_.upper_bound(last);
        if (from == behind) return std::nullopt;
        const auto &[lastMonth, end] = *std::prev(behind);
        const DaySlots<double> &slots = from->second.slots, &lastSlots = end.slots;
        if (slots.slot == 0 && slots.start == lastSlots.start) return from->second.Whole();
        const bool seesLast = lastMonth == QDate(last.year(), last.month(), 1);
        return Stretch{from->first == begin ? slots.Begin(first.day()) : slots.start,
                       lastSlots.End(seesLast ? last.day() : lastMonth.daysInMonth())};
    }

    std::optional<double> CentreOf(const QDate &day) const {
        const auto month = months_.find(QDate(day.year(), day.month(), 1));
        if (month == months_.end()) return std::nullopt;
        return month->second.slots.Centre(day.day());
    }

private:
    struct Place {
        DaySlots<double> slots; // of a folded month without length, all in its middle
        double length;          // of the month
        // From end to end of a folded month.
        Stretch Whole() const { return {slots.start - length / 2, slots.start + length / 2}; }
    };

    void Add(const QDate &first, const QRectF &box, bool folded) {
        const double length = rightwards_ ? box.width() : box.height();
        const double start = rightwards_ ? box.left() : box.top();
        const DaySlots<double> slots =
            folded ? DaySlots<double>{start + length / 2, 0} : SlotsIn(start, length, first.daysInMonth());
        months_.emplace(first, Place{slots, length});
        edges_.before = std::min(edges_.before, rightwards_ ? box.top() : box.left());
        edges_.behind = std::max(edges_.behind, rightwards_ ? box.bottom() : box.right());
    }

    bool rightwards_;
    std::map<QDate, Place> months_; // by their first days
    StripEdges edges_{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
};

// Where nodes may stand beside the strip: not on its bands.
StripEdges EdgesOf(const Surface &flow, const Months &months) {
    StripEdges edges = months.Edges();
    const double breadth = edges.behind - edges.before;
    if (breadth <= 0) return edges;
    const bool rightwards = months.Rightwards(); // the bands' extent along the strip plays no part
    const QRectF bands = BandsBeside(flow, rightwards ? QRectF(0, edges.before, 1, breadth)
                                                      : QRectF(edges.before, 0, breadth, 1));
    if (bands.isEmpty()) return edges;
    return {std::min(edges.before, rightwards ? bands.top() : bands.left()),
            std::max(edges.behind, rightwards ? bands.bottom() : bands.right())};
}

Sides SidesOf(const Surface &flow) {
    switch (Arrangement(ArrangementOf(flow))) {
    case Arrangement::Right:
    case Arrangement::Bottom:
        return Sides::Before;
    case Arrangement::Center:
        return Sides::Both;
    case Arrangement::Left:
    case Arrangement::Top:
        break;
    }
    return Sides::Behind;
}

// How far a text that is too long for its bar reaches behind it.
double Beside(const Node &node, const DatedBox &place) {
    QRectF bar = place.box;
    bar.setLeft(place.bar->begin), bar.setRight(place.bar->end);
    const QRectF text = diagram::TextBesideBar(node, bar, node.Owner().Measure());
    return text.isEmpty() ? 0 : text.right() - bar.right();
}

// Where a node belongs; nothing while none of its days is in sight.
std::optional<DatedBox> PlaceOf(const Node &node, const Months &months) {
    const std::optional<Span> span = node.Selectable() ? SpanOfNode(node) : std::nullopt;
    if (!span) return std::nullopt;
    DatedBox place{node.Bounds()};
    if (span->last)
        place.bar = months.BarOf(span->first, *span->last);
    else if (const std::optional<double> centre = months.CentreOf(span->first))
        place.centre = *centre;
    else
        return std::nullopt;
    if (span->last && !place.bar) return std::nullopt;
    place.box = OwnExtent(node, months.Rightwards()).Given(node.Bounds(), span->last.has_value());
    if (place.bar && months.Rightwards()) place.beside = Beside(node, place);
    return place;
}

std::unordered_map<const Node *, int> Positions(const std::vector<Node *> &nodes) {
    std::unordered_map<const Node *, int> positions;
    for (Node *node : nodes) positions.emplace(node, int(positions.size()));
    return positions;
}

void ReadLinks(DatedNodes &dated) {
    const std::unordered_map<const Node *, int> positions = Positions(dated.nodes);
    for (int from = 0; from < int(dated.nodes.size()); ++from)
        for (const Link *link : dated.nodes[std::size_t(from)]->Links()) {
            const auto to = positions.find(&link->Destination());
            if (&link->Source() == dated.nodes[std::size_t(from)] && to != positions.end())
                dated.task.links.push_back({from, to->second});
        }
}

} // namespace

DatedNodes ReadDatedNodes(document::MapWindow &window, const Surface &flow,
                          const std::vector<Node *> &moved) {
    const Months months(flow);
    const LaneFinder lanes(window.clsSettings(), LanesOf(flow));
    const std::unordered_set<const Node *> last(moved.begin(), moved.end());
    DatedNodes dated{{{EdgesOf(flow, months), months.Rightwards(), SidesOf(flow)}, {}, {}, {}}, {}};
    for (Node &node : flow.Nodes()) {
        std::optional<DatedBox> place = PlaceOf(node, months);
        if (!place) {
            if (node.Selectable() && !node.Hidden()) dated.task.others.push_back(node.Bounds());
            continue;
        }
        place->lane = lanes.LaneOf(node);
        place->gives = last.contains(&node);
        dated.task.nodes.push_back(*place);
        dated.nodes.push_back(&node);
    }
    ReadLinks(dated);
    return dated;
}

} // namespace timeline
