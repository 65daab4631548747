#include "diagram/layout/Layered.h"

#include "diagram/layout/FreePlace.h"
#include "diagram/layout/LayerChains.h"
#include "diagram/layout/LayeredAgain.h"
#include "diagram/layout/LayeredBends.h"
#include "diagram/layout/LayeredClusters.h"
#include "diagram/layout/LayeredColumns.h"
#include "diagram/layout/LayeredCorners.h"
#include "diagram/layout/LayeredCycles.h"
#include "diagram/layout/LayeredOrder.h"
#include "diagram/layout/Orientation.h"
#include "diagram/layout/Parts.h"
#include "diagram/layout/TidyTree.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <QRectF>

namespace diagram {

namespace {

constexpr double kNearestPass = 150, kFarthestPass = 300; // twips between an edge and what it passes
constexpr std::size_t kFewEdges = 120;     // of a part for which layerings from below are tried as well
constexpr std::size_t kManyEdges = 400;    // with more edges a part gets a single layering
constexpr int kCrossingsForProcess = 2;    // that may be added to keep the order in which a process was drawn
constexpr double kFar = 1e9;               // twips
constexpr double kInLayers = 0.6;          // of the boxes must stand in layers for a drawing to be kept
constexpr double kCrossingsForPeace = 1.3; // times as many are allowed then, and two more
constexpr double kAroundLabel = 270;       // twips above and below a label at least: an arrow head and more

bool HasLabels(const LayoutGraph &part) {
    return std::ranges::any_of(part.labels, [](const QSizeF &label) { return !label.isEmpty(); });
}

bool HasClusters(const LayoutGraph &graph) {
    return std::ranges::any_of(graph.clusters,
                               [&](int cluster) { return cluster != graph.clusters.front(); });
}

LayerGaps GapsOf(const LayoutOptions &options) {
    return {options.neighbourDistance,
            std::clamp(options.neighbourDistance / 2, kNearestPass, kFarthestPass)};
}

// Layers below each other. A layer of labels lies within the distance of the two layers beside it.
std::vector<LayerBand> BandsOf(const LayeredPart &part, double distance) {
    std::vector<LayerBand> bands;
    double y = 0;
    for (std::size_t i = 0; i < part.graph.layers.size(); ++i) {
        double height = 0;
        for (const int vertex : part.graph.layers[i])
            height = std::max(height, part.graph.vertices[std::size_t(vertex)].height);
        const bool labels = part.labelled && i % 2 == 1;
        const double beside = labels ? std::max((distance - height) / 2, kAroundLabel) : distance;
        if (i > 0 && (labels || !part.labelled)) y += beside;
        bands.push_back({y, y + height});
        y += height + (labels ? beside : 0);
    }
    return bands;
}

// The layerings that are tried, each once, first those that keep the order of a process. Of a large part only
// the one in which the fewest edges are turned round.
std::vector<Layering> LayeringsOf(const LayoutGraph &part) {
    constexpr CycleBreaking kWays[] = {CycleBreaking::FromSources, CycleBreaking::FromFirst,
                                       CycleBreaking::Greedy};
    const bool isLarge = part.edges.size() > kManyEdges;
    std::vector<Layering> layerings;
    for (const CycleBreaking way : kWays) {
        std::vector<char> back = BackEdges(int(part.sizes.size()), part.edges, way);
        if (std::ranges::find(layerings, back, &Layering::back) != layerings.end()) continue;
        const int bias = way == CycleBreaking::Greedy ? kCrossingsForProcess : 0;
        layerings.push_back({back, true, false, bias});
        if (!isLarge) layerings.push_back({back, false, false, bias});
        if (part.edges.size() > kFewEdges) continue;
        layerings.push_back({back, true, true, bias});
        layerings.push_back({back, false, true, bias});
    }
    if (!isLarge) return layerings;
    return {*std::ranges::min_element(layerings, {},
                                      [](const Layering &one) { return std::ranges::count(one.back, 1); })};
}

struct Cut {
    LayeredPart part;
    int bias;
};

std::vector<Cut> CutsOf(const LayoutGraph &part, Patience &patience) {
    std::vector<Cut> cuts;
    for (const Layering &layering : LayeringsOf(part))
        cuts.push_back({CutIntoLayers(part, layering, patience), layering.bias});
    return cuts;
}

// Which edges are turned round decides about the crossings.
LayeredPart Ordered(std::vector<Cut> cuts, Patience &patience) {
    std::optional<LayeredPart> best;
    long long least = 0;
    for (Cut &cut : cuts) {
        OrderLayers(cut.part.graph, patience);
        const long long cost = CountCrossings(cut.part.graph) + cut.bias;
        if (!best || cost < least) best = std::move(cut.part), least = cost;
        if (least == 0) break;
    }
    return std::move(*best);
}

// The layering nearest to that in which the boxes stand, with few changes to their order. Nothing where too
// few boxes stand in layers.
std::optional<LayeredPart> OrderedAgain(const std::vector<Cut> &cuts, const std::vector<QPointF> &present,
                                        Patience &patience) {
    std::optional<LayeredPart> best;
    double most = kInLayers;
    for (const Cut &cut : cuts)
        if (const double share = ShareInLayers(cut.part.graph, present); share > most)
            best = cut.part, most = share;
    if (best) KeepOrder(best->graph, patience);
    return best;
}

// A few crossings more are worth that little moves.
LayeredPart OrderedBest(const LayoutGraph &part, Patience &patience) {
    std::vector<Cut> cuts = CutsOf(part, patience);
    std::optional<LayeredPart> again = OrderedAgain(cuts, part.centres, patience);
    const long long crossings = again ? CountCrossings(again->graph) : 0;
    if (again && crossings == 0) return std::move(*again);
    LayeredPart anew = Ordered(std::move(cuts), patience);
    const double bound = double(CountCrossings(anew.graph)) * kCrossingsForPeace + 2;
    return again && double(crossings) <= bound ? std::move(*again) : anew;
}

// A tree, upright or upside down, is drawn as a tree. Nothing for what is none.
std::optional<LayeredDrawing> DrawTree(LayoutGraph part, const LayoutOptions &options) {
    if (part.edges.size() + 1 != part.sizes.size() || HasLabels(part) || HasClusters(part))
        return std::nullopt;
    std::vector<int> parents(part.sizes.size()), children(part.sizes.size());
    for (const LayoutEdge &edge : part.edges)
        ++parents[std::size_t(edge.to)], ++children[std::size_t(edge.from)];
    const bool upright = std::ranges::max(parents) < 2;
    if (!upright && std::ranges::max(children) > 1) return std::nullopt;
    if (!upright)
        for (LayoutEdge &edge : part.edges) std::swap(edge.from, edge.to);
    std::vector<QPointF> centres =
        TidyTree(part, {LayoutOrientation::Down, options.levelDistance, options.neighbourDistance});
    if (!upright)
        for (QPointF &centre : centres) centre.setY(-centre.y());
    const std::vector<std::vector<QPointF>> straight(part.edges.size());
    return LayeredDrawing{std::move(centres), straight, straight};
}

std::vector<double> Placed(LayeredPart &cut, const LayoutGraph &part, const LayerGaps &gaps,
                           Patience &patience) {
    if (!HasClusters(part)) return PlaceInLayers(cut.graph, gaps, patience);
    const Stripes stripes = OrderInStripes(cut, part.clusters, patience);
    return PlaceInStripes(cut, stripes, gaps, patience);
}

LayeredDrawing DrawPart(const LayoutGraph &part, const LayoutOptions &options, Patience &patience) {
    if (auto tree = DrawTree(part, options)) return std::move(*tree);
    LayeredPart cut = OrderedBest(part, patience);
    const std::vector<double> columns = Placed(cut, part, GapsOf(options), patience);
    const std::vector<LayerBand> bands = BandsOf(cut, options.levelDistance);
    LayeredDrawing drawing;
    for (std::size_t i = 0; i < part.sizes.size(); ++i) {
        const LayerBand &band = bands[std::size_t(cut.graph.vertices[i].layer)];
        drawing.centres.emplace_back(columns[i], (band.top + band.bottom) / 2);
    }
    drawing.bends = BendsOf(cut, part.edges, columns, bands);
    drawing.corners = CornersOf(cut, part.edges, columns, bands);
    return drawing;
}

LayeredDrawing Turned(LayeredDrawing drawing, LayoutOrientation orientation) {
    drawing.centres = TurnedBack(std::move(drawing.centres), orientation);
    for (auto &bends : drawing.bends) bends = TurnedBack(std::move(bends), orientation);
    for (auto &corners : drawing.corners) corners = TurnedBack(std::move(corners), orientation);
    return drawing;
}

QRectF ExtentOf(const LayeredDrawing &drawing, const std::vector<QSizeF> &sizes) {
    QPointF least = drawing.centres.front(), most = least;
    const auto include = [&](const QPointF &from, const QPointF &to) {
        least = {std::min(least.x(), from.x()), std::min(least.y(), from.y())};
        most = {std::max(most.x(), to.x()), std::max(most.y(), to.y())};
    };
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const QPointF half(sizes[i].width() / 2, sizes[i].height() / 2);
        include(drawing.centres[i] - half, drawing.centres[i] + half);
    }
    for (const auto &bends : drawing.bends)
        for (const QPointF &bend : bends) include(bend, bend);
    return {least, most};
}

std::vector<std::size_t> LargestFirst(const std::vector<Part> &parts) {
    std::vector<std::size_t> order(parts.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(order, std::greater(), [&](std::size_t i) { return parts[i].boxes.size(); });
    return order;
}

// Where the parts' left top corners go when the largest one stays where it was, and each other one, too, or
// as near to there as it lies on none that is larger. Nothing unless the largest is drawn again.
std::optional<std::vector<QPointF>> KeptCorners(const std::vector<Part> &parts,
                                                const std::vector<LayeredDrawing> &drawings,
                                                const std::vector<QRectF> &extents,
                                                const LayoutOptions &options) {
    const std::vector<std::size_t> order = LargestFirst(parts);
    const std::vector<QPointF> &present = parts[order.front()].graph.centres;
    const bool again = IsDrawnAgain(drawings[order.front()].centres, present, IsLevel(options.orientation));
    if (present.size() < 2 || !again) return std::nullopt;
    std::vector<QPointF> corners(parts.size());
    std::vector<QRectF> taken;
    for (const std::size_t i : order) {
        const QPointF shift = ShiftBack(drawings[i].centres, parts[i].graph.centres);
        QRectF extent = extents[i].translated(shift);
        extent.moveCenter(NearestFree(extent, taken, options.neighbourDistance, {-kFar, -kFar}));
        corners[i] = extent.topLeft();
        taken.push_back(extent);
    }
    return corners;
}

// All parts onto one page.
LayeredDrawing Joined(const LayoutGraph &graph, const std::vector<Part> &parts,
                      const std::vector<LayeredDrawing> &drawings, const LayoutOptions &options) {
    std::vector<QRectF> extents;
    std::vector<QSizeF> sizes;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        extents.push_back(ExtentOf(drawings[i], parts[i].graph.sizes));
        sizes.push_back(extents.back().size());
    }
    const auto kept = KeptCorners(parts, drawings, extents, options);
    const std::vector<QPointF> corners =
        kept ? *kept : PackParts(parts, sizes, std::max(options.neighbourDistance, options.levelDistance));
    LayeredDrawing all{std::vector<QPointF>(graph.sizes.size()),
                       std::vector<std::vector<QPointF>>(graph.edges.size()),
                       std::vector<std::vector<QPointF>>(graph.edges.size()), kept.has_value()};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const QPointF shift = corners[i] - extents[i].topLeft();
        const auto shifted = [&](std::vector<QPointF> points) {
            for (QPointF &point : points) point += shift;
            return points;
        };
        for (std::size_t k = 0; k < parts[i].boxes.size(); ++k)
            all.centres[std::size_t(parts[i].boxes[k])] = drawings[i].centres[k] + shift;
        for (std::size_t k = 0; k < parts[i].edges.size(); ++k) {
            all.bends[std::size_t(parts[i].edges[k])] = shifted(drawings[i].bends[k]);
            all.corners[std::size_t(parts[i].edges[k])] = shifted(drawings[i].corners[k]);
        }
    }
    return all;
}

} // namespace

std::optional<LayeredDrawing> DrawInLayers(const LayoutGraph &graph, const LayoutOptions &options,
                                           const GoOn &goOn) {
    if (graph.sizes.empty()) return LayeredDrawing();
    Patience patience(goOn);
    const std::vector<Part> parts = PartsOf(TurnedDown(graph, options.orientation));
    const std::vector<Part> given = PartsOf(graph);
    std::vector<LayeredDrawing> drawings;
    try {
        for (const Part &part : parts)
            drawings.push_back(Turned(DrawPart(part.graph, options, patience), options.orientation));
    } catch (const Patience::GivenUp &) {
        return std::nullopt;
    }
    return Joined(graph, given, drawings, options);
}

} // namespace diagram
