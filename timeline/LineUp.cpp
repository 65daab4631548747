#include "timeline/LineUp.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "support/Error.h"
#include "timeline/AdjustLinks.h"
#include "timeline/AtDates.h"
#include "timeline/DatedNodes.h"
#include "timeline/LaneFinder.h"
#include "timeline/LaneRows.h"
#include "timeline/OwnExtent.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace timeline {

namespace {

using diagram::Link;
using diagram::Node;
using diagram::Surface;

using Distances = std::unordered_map<const Node *, QPointF>; // how far each of the nodes goes

void Shift(std::vector<diagram::Point>::iterator first, std::vector<diagram::Point>::iterator end,
           const QPointF &distance) {
    for (; first != end; ++first) *first = {first->x + float(distance.x()), first->y + float(distance.y())};
}

// Nothing for a node that stays.
QPointF DistanceOf(const Distances &distances, const Node &node) {
    const auto found = distances.find(&node);
    return found == distances.end() ? QPointF() : found->second;
}

// A link whose points aren't routed and which has to go along: as a whole where both ends go equally far,
// else with its ends.
struct LinkToMove {
    Link *link;
    QPointF source, destination; // how far they go
};

std::vector<LinkToMove> LinksToMove(const std::vector<Node *> &moved, const Distances &distances) {
    std::vector<LinkToMove> links;
    for (const Node *node : moved)
        for (Link *link : node->Links()) {
            if (!link->Selectable() || (&link->Source() != node && distances.contains(&link->Source())))
                continue;
            const QPointF source = DistanceOf(distances, link->Source());
            const QPointF destination = DistanceOf(distances, link->Destination());
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

// Nothing is written where nothing has changed.
void StoreOwnExtents(const DatedNodes &dated) {
    for (std::size_t i = 0; i < dated.nodes.size(); ++i) {
        const DatedBox &place = dated.task.nodes[i];
        Node &node = *dated.nodes[i];
        const QString former = document::GetTag(node, document::tags::kOwnExtent);
        if (former.isEmpty() && !place.bar) continue;
        const QString extent =
            OwnExtent(node, dated.task.strip.rightwards).Stored(place.box, place.bar.has_value());
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
    Distances distances;
    std::vector<std::pair<Node *, QRectF>> changed;
    std::vector<Node *> moved;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const QRectF former = nodes[i]->Bounds();
        if (boxes[i] == former) continue;
        distances.emplace(nodes[i], boxes[i].topLeft() - former.topLeft());
        changed.emplace_back(nodes[i], boxes[i]), moved.push_back(nodes[i]);
    }
    const std::vector<LinkToMove> links = LinksToMove(moved, distances);
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
                                              const DatedNodes &dated) {
    if (dated.nodes.empty() || !KeepsNodesAtDates(flow) || LanesOf(flow) == Lanes::None) return {};
    const LaneFinder lanes(window.clsSettings(), LanesOf(flow));
    const StripOnSurface &strip = dated.task.strip;
    const double middle = (strip.edges.before + strip.edges.behind) / 2;
    std::map<std::pair<bool, int>, diagram::Calendar::Lane> rows;
    for (std::size_t i = 0; i < dated.nodes.size(); ++i) {
        const int number = dated.task.nodes[i].lane;
        if (dated.nodes[i]->Hidden() || lanes.NameOf(number).isEmpty()) continue;
        const QRectF box = dated.nodes[i]->Bounds();
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

LinedUp LineUp(document::MapWindow &window, Surface &flow, RowOrder order, const std::vector<Node *> &moved) {
    return support::PassOn("LineUp", [&] {
        const DatedNodes dated = ReadDatedNodes(window, flow, moved);
        StoreOwnExtents(dated);
        const int count = Move(flow, dated.nodes, PlanLineUp(dated.task, order));
        if (count > 0) window.clsSettings().Dirty = true;
        NoteLaneRows(flow, LaneRows(window, flow, dated));
        return LinedUp{int(dated.nodes.size()), count};
    });
}

void FollowDates(document::MapWindow &window, Surface &flow, const std::vector<Node *> &moved) {
    if (KeepsNodesAtDates(flow)) LineUp(window, flow, RowOrder::Keep, moved);
}

void NoteLanes(document::MapWindow &window, Surface &flow) {
    NoteLaneRows(flow, LaneRows(window, flow, ReadDatedNodes(window, flow, {})));
}

} // namespace timeline
