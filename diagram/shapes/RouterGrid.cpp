#include "diagram/shapes/RouterGrid.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr std::size_t kMiddleLanes = 8; // boxes; among more, wide gaps have no lane in their middle
constexpr double kSliver = 30;          // twips; no lane between edges that lie closer
constexpr double kSameLane = 8;         // twips; no other lane that near to a preferred one

std::vector<double> Edges(std::span<const QRectF> boxes, bool level) {
    std::vector<double> edges;
    for (const QRectF &box : boxes) {
        const Span span = SpanOf(box, !level);
        edges.push_back(span.low), edges.push_back(span.high);
    }
    std::ranges::sort(edges);
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    return edges;
}

void AddBetween(double low, double high, bool withMiddle, std::vector<double> &lanes) {
    const double room = high - low;
    if (room < kSliver) return;
    if (room < 2 * kClearance) {
        lanes.push_back((low + high) / 2);
        return;
    }
    lanes.push_back(low + kClearance);
    if (withMiddle && room > 3 * kClearance) lanes.push_back((low + high) / 2);
    lanes.push_back(high - kClearance);
}

// So far away that the bend comes out from under the arrow head.
void AddPastHead(const RouteEnd &end, bool level, std::vector<double> &lanes) {
    const Span span = SpanOf(end.box, !level);
    if (end.head <= 0) return;
    lanes.push_back(span.low - end.head - kHeadRoom);
    lanes.push_back(span.high + end.head + kHeadRoom);
}

std::vector<double> LanesOf(const RouteRequest &request, std::string_view directions,
                            const Coordinates &preferred, std::span<const QRectF> boxes, bool level) {
    const std::vector<double> edges = Edges(boxes, level);
    std::vector<double> lanes{edges.front() - kClearance, edges.back() + kClearance};
    for (std::size_t i = 1; i < edges.size(); ++i)
        AddBetween(edges[i - 1], edges[i], boxes.size() <= kMiddleLanes, lanes);
    AddPastHead(request.source, level, lanes);
    AddPastHead(request.destination, level, lanes);
    std::vector<double> wanted;
    for (std::size_t i = 0; i < directions.size(); ++i)
        if (IsHorizontal(directions[i]) == level) wanted.push_back(preferred[i]);
    std::erase_if(lanes, [&](double lane) {
        return std::ranges::any_of(wanted, [lane](double w) { return std::abs(w - lane) < kSameLane; });
    });
    lanes.insert(lanes.end(), wanted.begin(), wanted.end());
    return lanes;
}

std::vector<double> EndEdges(const RouteRequest &request, bool level) {
    const Span source = SpanOf(request.source.box, !level), other = SpanOf(request.destination.box, !level);
    std::vector<double> edges{source.low, source.high, other.low, other.high};
    std::ranges::sort(edges);
    return edges;
}

// Sorted, with the edges of the ends marked.
void Merge(std::vector<double> lanes, const std::vector<double> &edges, std::vector<double> &all,
           std::vector<bool> &isEdge) {
    lanes.insert(lanes.end(), edges.begin(), edges.end());
    std::ranges::sort(lanes);
    lanes.erase(std::unique(lanes.begin(), lanes.end()), lanes.end());
    all = std::move(lanes);
    isEdge.resize(all.size());
    for (std::size_t i = 0; i < all.size(); ++i) isEdge[i] = std::ranges::binary_search(edges, all[i]);
}

RingLanes::Range RangeIn(const Span &span, const std::vector<double> &lanes) {
    return {std::size_t(std::ranges::upper_bound(lanes, span.low) - lanes.begin()),
            std::size_t(std::ranges::lower_bound(lanes, span.high) - lanes.begin())};
}

BoxLanes LanesIn(const QRectF &box, const std::vector<double> &xs, const std::vector<double> &ys) {
    BoxLanes lanes;
    for (std::size_t i = 0; i < kNear.size(); ++i) {
        const double by = kNear[i].distance;
        const QRectF ring = box.adjusted(-by, -by, by, by);
        lanes[i] = {RangeIn(SpanOf(ring, true), xs), RangeIn(SpanOf(ring, false), ys)};
    }
    return lanes;
}

} // namespace

LaneTable::LaneTable(std::size_t lanes, const std::vector<double> &stops, bool level,
                     const std::vector<BoxLanes> &boxes)
    : stops_(stops),
      level_(level),
      boxes_(boxes),
      known_(lanes),
      costs_(std::make_unique_for_overwrite<double[]>(2 * lanes * stops.size())) {}

// A box is entered between the last stop that isn't inside it and the first that is or lies behind it.
void LaneTable::Enter(const BoxLanes &box, std::size_t lane, double *rising, double *falling) const {
    for (std::size_t i = kNear.size(); i-- > 0;) {
        const RingLanes::Range &across = level_ ? box[i].level : box[i].upright;
        const RingLanes::Range &along = level_ ? box[i].upright : box[i].level;
        if (!across.Holds(lane)) return;
        if (along.first < stops_.size()) rising[along.first] += kNear[i].cost;
        if (along.past < stops_.size()) falling[along.past] += kNear[i].cost;
    }
}

void LaneTable::Fill(std::size_t lane) const {
    const std::size_t count = stops_.size();
    double *rising = &costs_[2 * lane * count], *falling = rising + count;
    std::fill(rising, falling + count, 0);
    for (const BoxLanes &box : boxes_) Enter(box, lane, rising, falling);
    double up = 0, down = 0;
    for (std::size_t i = 0; i < count; ++i) {
        rising[i] = stops_[i] + (up += rising[i]);
        falling[i] = stops_[i] + (down += falling[i]);
    }
    known_[lane] = true;
}

RouteGrid::RouteGrid(const RouteRequest &request, std::string_view directions, const Coordinates &preferred,
                     std::span<const QRectF> obstacles) {
    std::vector<QRectF> boxes(obstacles.begin(), obstacles.end());
    boxes.push_back(request.source.box);
    boxes.push_back(request.destination.box);
    Merge(LanesOf(request, directions, preferred, boxes, false), EndEdges(request, false), xs_, xEdges_);
    Merge(LanesOf(request, directions, preferred, boxes, true), EndEdges(request, true), ys_, yEdges_);
    for (const QRectF &box : boxes) boxes_.push_back(LanesIn(box, xs_, ys_));
    upright_.emplace(xs_.size(), ys_, false, boxes_);
    level_.emplace(ys_.size(), xs_, true, boxes_);
}

std::size_t RouteGrid::Find(bool level, double value) const {
    const std::vector<double> &lanes = Lanes(level);
    return std::size_t(std::ranges::lower_bound(lanes, value) - lanes.begin());
}

} // namespace diagram
