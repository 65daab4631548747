#include "diagram/layout/Parts.h"

#include "diagram/layout/Boxes.h"
#include "diagram/layout/Pack.h"

#include <algorithm>
#include <map>

namespace diagram {

namespace {

// The number of the part of each box.
std::vector<int> Number(const Adjacency &neighbours) {
    std::vector<int> parts(neighbours.size(), -1);
    int count = 0;
    for (std::size_t first = 0; first < parts.size(); ++first) {
        if (parts[first] >= 0) continue;
        std::vector<int> open{int(first)};
        parts[first] = count;
        while (!open.empty()) {
            const int box = open.back();
            open.pop_back();
            for (const int next : neighbours[std::size_t(box)]) {
                int &part = parts[std::size_t(next)];
                if (part >= 0) continue;
                part = count;
                open.push_back(next);
            }
        }
        ++count;
    }
    return parts;
}

void AddBox(Part &part, const LayoutGraph &graph, std::size_t box) {
    part.boxes.push_back(int(box));
    part.graph.sizes.push_back(graph.sizes[box]);
    part.graph.centres.push_back(graph.centres[box]);
    if (!graph.clusters.empty()) part.graph.clusters.push_back(graph.clusters[box]);
}

std::vector<QPointF> PlaceOne(const Part &part, Progress &progress, const PlacePart &place) {
    return part.boxes.size() == 1 ? std::vector<QPointF>{{0, 0}} : place(part.graph, progress);
}

// Where it stands now.
QRectF PresentBox(const Part &part) { return ExtentOf(part.graph.sizes, part.graph.centres); }

bool IsLinked(const Part &part) { return !part.edges.empty() || part.boxes.size() > 1; }

// For each part whether it is a single box just above all that is linked, on no other one.
std::vector<bool> HeadingsAmong(const std::vector<Part> &parts) {
    QRectF linked;
    for (const Part &part : parts)
        if (IsLinked(part)) linked |= PresentBox(part);
    const QRectF above = linked.translated(0, -linked.height());
    std::vector<QRectF> found;
    std::vector<bool> headings;
    for (const Part &part : parts) {
        const QRectF box = PresentBox(part);
        const auto meets = [&box](const QRectF &other) { return other.intersects(box); };
        const bool is = !IsLinked(part) && box.bottom() <= linked.top() && meets(above) &&
                        std::ranges::none_of(found, meets);
        headings.push_back(is);
        if (is) found.push_back(box);
    }
    return headings;
}

} // namespace

Adjacency NeighboursOf(const LayoutGraph &graph) {
    Adjacency neighbours(graph.sizes.size());
    for (const LayoutEdge &edge : graph.edges) {
        if (edge.from == edge.to) continue;
        neighbours[std::size_t(edge.from)].push_back(edge.to);
        neighbours[std::size_t(edge.to)].push_back(edge.from);
    }
    for (std::vector<int> &list : neighbours) {
        std::ranges::sort(list);
        list.erase(std::unique(list.begin(), list.end()), list.end());
    }
    return neighbours;
}

namespace {

// Makes the boxes of a cluster neighbours, each of the next one. A single cluster of all boxes doesn't count.
void JoinClusters(const LayoutGraph &graph, Adjacency &neighbours) {
    if (std::ranges::adjacent_find(graph.clusters, std::not_equal_to()) == graph.clusters.end()) return;
    std::map<int, int> lasts; // by cluster
    for (int box = 0; box < int(graph.clusters.size()); ++box) {
        const int cluster = graph.clusters[std::size_t(box)];
        if (cluster < 0) continue;
        const auto [last, isFirst] = lasts.try_emplace(cluster, box);
        if (isFirst) continue;
        neighbours[std::size_t(last->second)].push_back(box);
        neighbours[std::size_t(box)].push_back(last->second);
        last->second = box;
    }
}

} // namespace

std::vector<Part> PartsOf(const LayoutGraph &graph) {
    Adjacency neighbours = NeighboursOf(graph);
    JoinClusters(graph, neighbours);
    const std::vector<int> numbers = Number(neighbours);
    const int count = numbers.empty() ? 0 : *std::ranges::max_element(numbers) + 1;
    std::vector<Part> parts;
    parts.resize(std::size_t(count));
    std::vector<int> places(numbers.size());
    for (std::size_t box = 0; box < numbers.size(); ++box) {
        Part &part = parts[std::size_t(numbers[box])];
        places[box] = int(part.boxes.size());
        AddBox(part, graph, box);
    }
    for (std::size_t i = 0; i < graph.edges.size(); ++i) {
        const LayoutEdge &edge = graph.edges[i];
        Part &part = parts[std::size_t(numbers[std::size_t(edge.from)])];
        part.edges.push_back(int(i));
        part.graph.edges.push_back({places[std::size_t(edge.from)], places[std::size_t(edge.to)]});
        if (!graph.labels.empty()) part.graph.labels.push_back(graph.labels[i]);
    }
    return parts;
}

std::vector<QPointF> PackParts(const std::vector<Part> &parts, const std::vector<QSizeF> &sizes, double gap) {
    const std::vector<bool> isHeading = HeadingsAmong(parts);
    QRectF headings;
    std::vector<QSizeF> others;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (isHeading[i])
            headings |= PresentBox(parts[i]);
        else
            others.push_back(sizes[i]);
    }
    const double below = headings.isEmpty() ? 0 : headings.height() + gap;
    const std::vector<QPointF> packed = Pack(others, gap);
    std::vector<QPointF> corners;
    auto next = packed.begin();
    for (std::size_t i = 0; i < parts.size(); ++i)
        corners.push_back(isHeading[i] ? PresentBox(parts[i]).topLeft() - headings.topLeft()
                                       : *next++ + QPointF(0, below));
    return corners;
}

std::vector<QPointF> PlaceParts(const LayoutGraph &graph, double gap, Progress &progress,
                                const PlacePart &place) {
    const std::vector<Part> parts = PartsOf(graph);
    std::vector<std::vector<QPointF>> places;
    std::vector<QRectF> extents;
    std::vector<QSizeF> sizes;
    double done = 0;
    for (const Part &part : parts) {
        const double share = double(part.boxes.size()) / double(graph.sizes.size());
        progress.SetStretch(done, done + share);
        progress.At(0);
        places.push_back(PlaceOne(part, progress, place));
        extents.push_back(ExtentOf(part.graph.sizes, places.back()));
        sizes.push_back(extents.back().size());
        done += share;
    }
    const std::vector<QPointF> corners = PackParts(parts, sizes, std::max(1.0, gap));
    std::vector<QPointF> centres(graph.sizes.size());
    for (std::size_t i = 0; i < parts.size(); ++i)
        for (std::size_t k = 0; k < places[i].size(); ++k)
            centres[std::size_t(parts[i].boxes[k])] = places[i][k] - extents[i].topLeft() + corners[i];
    return centres;
}

} // namespace diagram
