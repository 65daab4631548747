#include "diagram/layout/LayeredCorners.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace diagram {

namespace {

constexpr double kPort = 180;      // twips between ends on one side of a box
constexpr double kPortShare = 0.4; // of a box's width, to either side of its middle, in which ends lie
constexpr double kSame = 2;        // twips; a shorter level piece isn't seen

std::size_t At(int i) { return std::size_t(i); }

// An edge on its way down: the columns in which it leaves, passes each layer and arrives.
struct Descent {
    int edge = 0;
    const EdgeChain *chain = nullptr;
    std::vector<double> columns;
};

// The level piece of a descent between two layers, from one column to the next.
struct Level {
    std::size_t descent;
    double from, to;
    double Left() const { return std::min(from, to); }
    double Right() const { return std::max(from, to); }
};

class Corners {
public:
    Corners(const LayeredPart &part, const std::vector<double> &columns, const std::vector<LayerBand> &bands)
        : part_(part), columns_(columns), bands_(bands) {
        for (const EdgeChain &chain : part.chains) Descend(chain);
        SpreadEnds(true);
        SpreadEnds(false);
        corners_.resize(descents_.size());
        present_.resize(bands.size());
        for (std::size_t i = 0; i < descents_.size(); ++i)
            for (std::size_t step = 0; step + 1 < descents_[i].columns.size(); ++step)
                present_[TopOf(descents_[i]) + step].push_back(i);
        for (std::size_t layer = 0; layer + 1 < bands.size(); ++layer) Draw(layer);
    }

    void Give(const std::vector<LayoutEdge> &edges, std::vector<std::vector<QPointF>> &corners) {
        for (std::size_t i = 0; i < descents_.size(); ++i) {
            std::vector<QPointF> &mine = corners[At(descents_[i].edge)] = std::move(corners_[i]);
            if (edges[At(descents_[i].edge)].from == descents_[i].chain->lower) std::ranges::reverse(mine);
        }
    }

private:
    // Edges without corners are left out: those that pass no layer, or only the layer of their single label,
    // which stands well in the middle of a short edge.
    void Descend(const EdgeChain &chain) {
        const std::size_t fewest = part_.labelled && !chain.bends ? 2 : 1;
        for (std::size_t i = 0; i < chain.edges.size() && chain.passes.size() >= fewest; ++i) {
            Descent descent{chain.edges[i], &chain, {columns_[At(chain.upper)]}};
            for (const int vertex : chain.passes)
                descent.columns.push_back(columns_[At(vertex)] + chain.asides[i]);
            descent.columns.push_back(columns_[At(chain.lower)]);
            descents_.push_back(std::move(descent));
        }
    }

    // Straight on where the column meets the box; else beside the middle, the nearer columns first.
    void SpreadEnds(bool upper) {
        std::map<std::pair<int, bool>, std::vector<std::size_t>> sides;
        for (std::size_t i = 0; i < descents_.size(); ++i) {
            Descent &descent = descents_[i];
            const int box = upper ? descent.chain->upper : descent.chain->lower;
            double &end = upper ? descent.columns.front() : descent.columns.back();
            const double away = Next(descent, upper) - end;
            if (std::abs(away) <= Room(box)) {
                end += away;
            } else {
                sides[{box, away > 0}].push_back(i);
            }
        }
        for (auto &[side, ends] : sides) {
            const double middle = columns_[At(side.first)];
            std::ranges::stable_sort(
                ends, {}, [&](std::size_t i) { return std::abs(Next(descents_[i], upper) - middle); });
            for (std::size_t k = 0; k < ends.size(); ++k) {
                const double step = std::min(kPort, Room(side.first) / double(ends.size()));
                std::vector<double> &columns = descents_[ends[k]].columns;
                (upper ? columns.front() : columns.back()) += (side.second ? 1 : -1) * step * double(k + 1);
            }
        }
    }
    std::size_t TopOf(const Descent &descent) const {
        return At(part_.graph.vertices[At(descent.chain->upper)].layer);
    }
    double Room(int box) const { return part_.graph.vertices[At(box)].width * kPortShare; }
    static double Next(const Descent &descent, bool upper) {
        return upper ? descent.columns[1] : descent.columns[descent.columns.size() - 2];
    }

    // Draws all level pieces below a layer.
    void Draw(std::size_t layer) {
        const std::vector<Level> levels = LevelsBelow(layer);
        const std::vector<std::size_t> tracks = TracksOf(levels);
        const std::size_t count = levels.empty() ? 0 : *std::ranges::max_element(tracks) + 1;
        const double top = bands_[layer].bottom, room = bands_[layer + 1].top - top;
        const auto parts = double(count + count % 2 + 1); // an odd number leaves the middle free
        for (std::size_t i = 0; i < levels.size(); ++i) {
            const double y = top + room * Within(layer, double(tracks[i] + 1) / parts);
            corners_[levels[i].descent].emplace_back(levels[i].from, y);
            corners_[levels[i].descent].emplace_back(levels[i].to, y);
        }
    }

    std::vector<Level> LevelsBelow(std::size_t layer) const {
        std::vector<Level> levels;
        for (const std::size_t i : present_[layer]) {
            const Descent &descent = descents_[i];
            const std::size_t step = layer - TopOf(descent);
            const Level level{i, descent.columns[step], descent.columns[step + 1]};
            if (std::abs(level.from - level.to) > kSame) levels.push_back(level);
        }
        std::ranges::stable_sort(levels, {}, &Level::Left);
        return levels;
    }
    // The track of each piece, so that no two on one track overlap. The pieces must be in order from the
    // left.
    static std::vector<std::size_t> TracksOf(const std::vector<Level> &levels) {
        std::vector<double> ends; // of what lies on each track so far
        std::vector<std::size_t> tracks;
        for (const Level &level : levels) {
            const auto free =
                std::ranges::find_if(ends, [&](double end) { return end < level.Left() - kPort; });
            tracks.push_back(std::size_t(free - ends.begin()));
            if (free == ends.end()) ends.push_back(0);
            ends[tracks.back()] = level.Right();
        }
        return tracks;
    }

    // The share of the room between two layers at which a piece lies: away from boxes, where arrow heads are,
    // and on the side of a layer of labels.
    double Within(std::size_t layer, double share) const {
        if (!part_.labelled) return 0.2 + 0.6 * share;
        return layer % 2 == 0 ? 0.5 + 0.4 * share : 0.1 + 0.4 * share;
    }

    const LayeredPart &part_;
    const std::vector<double> &columns_;
    const std::vector<LayerBand> &bands_;
    std::vector<Descent> descents_;
    std::vector<std::vector<std::size_t>> present_; // descents that lead from each layer to the next one
    std::vector<std::vector<QPointF>> corners_;
};

} // namespace

std::vector<std::vector<QPointF>> CornersOf(const LayeredPart &part, const std::vector<LayoutEdge> &edges,
                                            const std::vector<double> &columns,
                                            const std::vector<LayerBand> &bands) {
    std::vector<std::vector<QPointF>> corners(edges.size());
    Corners(part, columns, bands).Give(edges, corners);
    return corners;
}

} // namespace diagram
