#include "diagram/layout/LayeredColumns.h"

#include "diagram/layout/LayerLanes.h"
#include "diagram/layout/LayerRelaxing.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr int kYieldRounds = 8; // in which long edges yield to boxes
constexpr std::size_t kFewestRounds = 20, kMostRounds = 150;
constexpr std::size_t kWork = 120'000; // vertices times rounds, within these bounds

std::size_t At(int i) { return std::size_t(i); }

// All layers packed, about one middle.
std::vector<double> Packed(const LayerGraph &graph, const LayerGaps &gaps) {
    std::vector<double> columns(graph.vertices.size());
    for (const std::vector<int> &layer : graph.layers) {
        double width = 0;
        for (std::size_t i = 0; i < layer.size(); ++i) {
            const LayerVertex &vertex = graph.vertices[At(layer[i])];
            if (i > 0) width += LeastDistance(graph.vertices[At(layer[i - 1])], vertex, gaps);
            columns[At(layer[i])] = width;
        }
        for (const int vertex : layer) columns[At(vertex)] -= width / 2;
    }
    return columns;
}

class Columns {
public:
    Columns(const LayerGraph &graph, const LayerGaps &gaps, Patience &patience)
        : graph_(graph),
          patience_(patience),
          relaxing_(graph, gaps),
          lanes_(graph, gaps),
          columns_(Packed(graph, gaps)) {}

    std::vector<double> Place() && {
        const std::size_t rounds = std::clamp(kWork / graph_.vertices.size(), kFewestRounds, kMostRounds);
        for (std::size_t round = 0; round < rounds; ++round) Layers(Relax::All, round % 2 == 0);
        lanes_.Straighten(columns_);
        for (std::size_t round = 0; round < rounds / 2; ++round) {
            Layers(Relax::Short, round % 2 == 0);
            lanes_.Relax(columns_);
        }
        // What passes yields to boxes that want to stand in one column.
        for (int round = 0; round < kYieldRounds; ++round) {
            Layers(Relax::Freely, false);
            lanes_.Straighten(columns_);
        }
        Layers(Relax::OverBelow, false);
        lanes_.Snap(columns_);
        return std::move(columns_);
    }

private:
    void Layers(Relax how, bool down) {
        const int count = int(graph_.layers.size());
        for (int i = 0; i < count; ++i) {
            const int layer = down ? i : count - 1 - i;
            patience_.Spend(4 * graph_.layers[At(layer)].size());
            relaxing_.Layer(layer, how, columns_);
        }
    }

    const LayerGraph &graph_;
    Patience &patience_;
    LayerRelaxing relaxing_;
    LayerLanes lanes_;
    std::vector<double> columns_;
};

} // namespace

double LeastDistance(const LayerVertex &vertex, const LayerVertex &next, const LayerGaps &gaps) {
    const double gap = vertex.passes || next.passes ? gaps.passing : gaps.boxes;
    return (vertex.width + next.width) / 2 + gap;
}

std::vector<double> PlaceInLayers(const LayerGraph &graph, const LayerGaps &gaps, Patience &patience) {
    return Columns(graph, gaps, patience).Place();
}

} // namespace diagram
