#include "timeline/LineUp.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"
#include "diagram/model/TextBeside.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "support/Error.h"
#include "timeline/AdjustLinks.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/DateIndex.h"
#include "timeline/DateText.h"
#include "timeline/Folding.h"
#include "timeline/LaneRows.h"
#include "timeline/LineUpPlan.h"
#include "timeline/Span.h"
#include "timeline/Strip.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>
#include <limits>
#include <map>
#include <QHash>
#include <QStringList>
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
        if (from->second.slot == 0 && from->second.start == end.start) return from->second.Whole();
        const bool seesLast = lastMonth == QDate(last.year(), last.month(), 1);
        return Stretch{from->first == begin ? from->second.start + first.day() * from->second.slot
                                            : from->second.start,
                       end.start + (seesLast ? last.day() + 1 : lastMonth.daysInMonth() + 1) * end.slot};
    }

    std::optional<double> CentreOf(const QDate &day) const {
        const auto month = months_.find(QDate(day.year(), day.month(), 1));
        if (month == months_.end()) return std::nullopt;
        return month->second.start + (day.day() + 0.5) * month->second.slot;
    }

private:
    struct Place {
        double start, slot, length;
        // Of a folded one, whose start lies in its middle.
        Stretch Whole() const { return {start - length / 2, start + length / 2}; }
    };

    // All days of a folded one have the same place.
    void Add(const QDate &first, const QRectF &box, bool folded) {
        const double length = rightwards_ ? box.width() : box.height();
        const double start = rightwards_ ? box.left() : box.top();
        const double slot = double(SlotOf(float(length), first.daysInMonth()));
        months_.emplace(first, folded ? Place{start + length / 2, 0, length} : Place{start, slot, length});
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
    const bool across = months.Rightwards(); // the bands' extent along the strip plays no part
    const QRectF bands =
        BandsBeside(flow, across ? QRectF(0, edges.before, 1, breadth) : QRectF(edges.before, 0, breadth, 1));
    if (bands.isEmpty()) return edges;
    return {std::min(edges.before, across ? bands.top() : bands.left()),
            std::max(edges.behind, across ? bands.bottom() : bands.right())};
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

// Lanes in the order of the pools; nodes without a level or a group come behind.
class LaneFinder {
public:
    LaneFinder(document::clsfrmMain &map, Lanes lanes)
        : key_(lanes == Lanes::Group ? document::tags::kGroup : document::tags::kLevel), lanes_(lanes) {
        if (lanes == Lanes::Level) Number(map.Levels());
        if (lanes == Lanes::Group) Number(map.Groups());
    }

    // Of several groups the first counts.
    int LaneOf(const Node &node) const {
        if (lanes_ == Lanes::None) return 0;
        return numbers_.value(document::GetTag(node, key_).section(u',', 0, 0), int(numbers_.size()));
    }

    // Empty for the nodes without a level or a group.
    QString NameOf(int lane) const { return lane < names_.size() ? names_[lane] : QString(); }

private:
    void Number(const document::cLevels &pool) {
        for (const document::cLevel &member : pool) Add(member.Key, member.LevelName);
    }
    void Number(const document::cGroups &pool) {
        for (const document::cGroup &member : pool) Add(member.Key, member.GroupName);
    }
    void Add(const QString &key, const QString &name) {
        numbers_.insert(key, int(names_.size()));
        names_ << name;
    }

    QString key_;
    Lanes lanes_;
    QHash<QString, int> numbers_;
    QStringList names_;
};

// What is to be lined up, as it stands now.
struct Reading {
    LineUpTask task;
    std::vector<Node *> nodes; // of the task's boxes
};

// What a node would be like without its end: a bar lends its extent along the strip from its node.
class OwnExtent {
public:
    OwnExtent(const Node &node, bool rightwards) : along_(rightwards ? kWidth : kHeight) {
        const QString stored = document::GetTag(node, document::tags::kOwnExtent);
        which_ = stored.section(u' ', 0, 0);
        extent_ = stored.section(u' ', 1).toDouble();
        if (extent_ <= 0 || (which_ != kWidth && which_ != kHeight)) which_.clear();
    }

    // A bar along the strip keeps what it has lent.
    QRectF Given(QRectF box, bool isBar) const {
        if (which_.isEmpty() || (isBar && which_ == along_)) return box;
        which_ == kWidth ? box.setWidth(extent_) : box.setHeight(extent_);
        return box;
    }

    // As it is to be stored; `box` is what was given.
    QString Stored(const QRectF &box, bool isBar) const {
        if (!isBar) return {};
        const double extent = which_ == along_ ? extent_ : along_ == kWidth ? box.width() : box.height();
        return along_ + u' ' + QString::number(extent);
    }

private:
    static inline const QString kWidth = QStringLiteral("Width"), kHeight = QStringLiteral("Height");
    QString along_, which_;
    double extent_ = 0;
};

// How far the text of a bar reaches out of it that is too short for it.
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

void ReadLinks(Reading &reading) {
    const std::unordered_map<const Node *, int> positions = Positions(reading.nodes);
    for (int from = 0; from < int(reading.nodes.size()); ++from)
        for (const Link *link : reading.nodes[std::size_t(from)]->Links()) {
            const auto to = positions.find(&link->Destination());
            if (&link->Source() == reading.nodes[std::size_t(from)] && to != positions.end())
                reading.task.links.push_back({from, to->second});
        }
}

Reading Read(document::MapWindow &window, const Surface &flow, const std::vector<Node *> &moved) {
    const Months months(flow);
    const LaneFinder lanes(window.clsSettings(), LanesOf(flow));
    const std::unordered_set<const Node *> last(moved.begin(), moved.end());
    Reading reading{{{EdgesOf(flow, months), months.Rightwards(), SidesOf(flow)}, {}, {}, {}}, {}};
    for (Node &node : flow.Nodes()) {
        std::optional<DatedBox> place = PlaceOf(node, months);
        if (!place) {
            if (node.Selectable() && !node.Hidden()) reading.task.others.push_back(node.Bounds());
            continue;
        }
        place->lane = lanes.LaneOf(node);
        place->gives = last.contains(&node);
        reading.task.nodes.push_back(*place);
        reading.nodes.push_back(&node);
    }
    ReadLinks(reading);
    return reading;
}

using Ways = std::unordered_map<const Node *, QPointF>; // how far each goes

void Shift(std::vector<diagram::Point>::iterator first, std::vector<diagram::Point>::iterator end,
           const QPointF &way) {
    for (; first != end; ++first) *first = {first->x + float(way.x()), first->y + float(way.y())};
}

QPointF RouteOf(const Ways &routes, const Node &node) {
    const auto found = routes.find(&node);
    return found == routes.end() ? QPointF() : found->second;
}

// A link whose points aren't routed, and which has to go along: as a whole where both ends go the same way,
// else with its ends.
struct LinkToMove {
    Link *link;
    QPointF source, destination; // how far they go
};

std::vector<LinkToMove> LinksToMove(const std::vector<Node *> &moved, const Ways &routes) {
    std::vector<LinkToMove> links;
    for (const Node *node : moved)
        for (Link *link : node->Links()) {
            if (!link->Selectable() || (&link->Source() != node && routes.contains(&link->Source())))
                continue;
            const QPointF source = RouteOf(routes, link->Source());
            const QPointF destination = RouteOf(routes, link->Destination());
            const bool kept = link->MovePointsMode() || link->AddPointsMode();
            if (kept || (source == destination && link->OwnBends()))
                links.push_back({link, source, destination});
        }
    return links;
}

void TakeAlong(Surface &flow, const LinkToMove &moved, diagram::LinkData data) {
    if (data.points.size() < 2) return;
    if (moved.source == moved.destination) {
        Shift(data.points.begin(), data.points.end(), moved.source);
    } else {
        Shift(data.points.begin(), data.points.begin() + 1, moved.source);
        Shift(data.points.end() - 1, data.points.end(), moved.destination);
    }
    flow.Overwrite(*moved.link, std::move(data));
}

void Place(Node &node, const QRectF &box) {
    const bool resized = node.Bounds().size() != box.size();
    node.SetBounds(float(box.left()), float(box.top()), resized ? float(box.width()) : node.Width(),
                   resized ? float(box.height()) : node.Height());
}

// What bars have lent, as they are now; nothing is written where nothing has changed.
void StoreOwnExtents(const Reading &reading) {
    for (std::size_t i = 0; i < reading.nodes.size(); ++i) {
        const DatedBox &place = reading.task.nodes[i];
        Node &node = *reading.nodes[i];
        const QString former = document::GetTag(node, document::tags::kOwnExtent);
        if (former.isEmpty() && !place.bar) continue;
        const QString extent =
            OwnExtent(node, reading.task.strip.rightwards).Stored(place.box, place.bar.has_value());
        if (extent != former) document::SetTag(node, document::tags::kOwnExtent, extent);
    }
}

// The links of the nodes among each other and to others, without those to their days.
std::vector<Link *> PlainLinksOf(const std::vector<Node *> &nodes) {
    std::vector<Link *> links;
    std::unordered_set<const Link *> seen;
    for (const Node *node : nodes)
        for (Link *link : node->Links())
            if (link->Selectable() && seen.insert(link).second) links.push_back(link);
    return links;
}

int Move(Surface &flow, const std::vector<Node *> &nodes, const std::vector<QRectF> &boxes) {
    Ways routes;
    std::vector<std::pair<Node *, QRectF>> changed;
    std::vector<Node *> moved;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const QRectF former = nodes[i]->Bounds();
        if (boxes[i] == former) continue;
        routes.emplace(nodes[i], boxes[i].topLeft() - former.topLeft());
        changed.emplace_back(nodes[i], boxes[i]), moved.push_back(nodes[i]);
    }
    const std::vector<LinkToMove> links = LinksToMove(moved, routes);
    std::vector<diagram::LinkData> former;
    for (const LinkToMove &each : links) each.link->Route(), former.push_back(each.link->Data());
    for (const auto &[node, box] : changed) Place(*node, box);
    for (std::size_t i = 0; i < links.size(); ++i) TakeAlong(flow, links[i], std::move(former[i]));
    AdjustLinksOf(moved);
    if (!moved.empty()) AdjustDateRoutesOf(nodes);
    diagram::GiveBestStyles(flow, PlainLinksOf(moved));
    return int(moved.size());
}

// From the outer edge of the first to that of the last node of a lane, on each side of the strip.
std::vector<diagram::Calendar::Lane> LaneRows(document::MapWindow &window, const Surface &flow,
                                              const Reading &reading) {
    if (reading.nodes.empty() || !KeepsNodesAtDates(flow) || LanesOf(flow) == Lanes::None) return {};
    const LaneFinder lanes(window.clsSettings(), LanesOf(flow));
    const StripOnSurface &strip = reading.task.strip;
    const double middle = (strip.edges.before + strip.edges.behind) / 2;
    std::map<std::pair<bool, int>, diagram::Calendar::Lane> rows;
    for (std::size_t i = 0; i < reading.nodes.size(); ++i) {
        const int number = reading.task.nodes[i].lane;
        if (reading.nodes[i]->Hidden() || lanes.NameOf(number).isEmpty()) continue;
        const QRectF box = reading.nodes[i]->Bounds();
        const double from = strip.rightwards ? box.top() : box.left();
        const double to = strip.rightwards ? box.bottom() : box.right();
        const bool behind = (from + to) / 2 > middle;
        auto [row, isNew] =
            rows.try_emplace({behind, number}, diagram::Calendar::Lane{from, to, lanes.NameOf(number)});
        row->second.from = std::min(row->second.from, from);
        row->second.to = std::max(row->second.to, to);
    }
    std::vector<diagram::Calendar::Lane> all;
    for (auto &[place, row] : rows) all.push_back(std::move(row));
    return all;
}

} // namespace

void NoteLanes(document::MapWindow &window, Surface &flow) {
    NoteLaneRows(flow, LaneRows(window, flow, Read(window, flow, {})));
}

LinedUp LineUp(document::MapWindow &window, Surface &flow, RowOrder order, const std::vector<Node *> &moved) {
    return support::PassOn("LineUp", [&] {
        const Reading reading = Read(window, flow, moved);
        StoreOwnExtents(reading);
        const int count = Move(flow, reading.nodes, PlanLineUp(reading.task, order));
        if (count > 0) window.clsSettings().Dirty = true;
        NoteLaneRows(flow, LaneRows(window, flow, reading));
        return LinedUp{int(reading.nodes.size()), count};
    });
}

void FollowDates(document::MapWindow &window, Surface &flow, const std::vector<Node *> &moved) {
    if (KeepsNodesAtDates(flow)) LineUp(window, flow, RowOrder::Keep, moved);
}

} // namespace timeline
