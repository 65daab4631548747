#include "diagram/layout/LayerChains.h"

#include "diagram/layout/LayeredRanks.h"

#include <algorithm>
#include <map>

namespace diagram {

namespace {

constexpr double kLoop = 300; // twips that a link from a box to itself needs on either side

std::size_t At(int i) { return std::size_t(i); }

QSizeF LabelOf(const LayoutGraph &part, int edge) {
    return part.labels.empty() ? QSizeF(0, 0) : part.labels[At(edge)].expandedTo(QSizeF(0, 0));
}

std::vector<EdgeChain> ChainsOf(const LayoutGraph &part, const std::vector<char> &back) {
    std::map<std::pair<int, int>, std::size_t> known;
    std::vector<EdgeChain> chains;
    for (std::size_t i = 0; i < part.edges.size(); ++i) {
        auto [upper, lower] = part.edges[i];
        if (upper == lower) continue;
        if (back[i]) std::swap(upper, lower);
        const auto [at, isNew] = known.try_emplace({upper, lower}, chains.size());
        if (isNew) chains.push_back({upper, lower, {}, {}});
        chains[at->second].edges.push_back(int(i));
    }
    return chains;
}

std::vector<int> RanksOf(const LayoutGraph &part, const std::vector<EdgeChain> &chains, bool balanced,
                         Patience &patience) {
    std::vector<RankEdge> edges;
    edges.reserve(chains.size());
    for (const EdgeChain &chain : chains)
        edges.push_back({chain.upper, chain.lower, 1, int(chain.edges.size())});
    return RankBoxes(int(part.sizes.size()), edges, balanced, patience);
}

class Cutting {
public:
    Cutting(const LayoutGraph &part, LayeredPart &cut) : part_(part), graph_(cut.graph), cut_(cut) {}

    void AddBoxes(const std::vector<int> &ranks) {
        const int step = cut_.labelled ? 2 : 1;
        for (std::size_t i = 0; i < ranks.size(); ++i)
            Add({part_.sizes[i].width(), part_.sizes[i].height(), part_.centres[i].x(), ranks[i] * step,
                 false});
        for (const LayoutEdge &edge : part_.edges)
            if (edge.from == edge.to)
                graph_.vertices[At(edge.from)].width = part_.sizes[At(edge.from)].width() + 2 * kLoop;
    }
    void AddChain(EdgeChain &chain) {
        const LayerVertex upper = graph_.vertices[At(chain.upper)], lower = graph_.vertices[At(chain.lower)];
        int last = chain.upper;
        const int middle = (upper.layer + lower.layer) / 2;
        for (int layer = upper.layer + 1; layer < lower.layer; ++layer) {
            const double share = double(layer - upper.layer) / (lower.layer - upper.layer);
            LayerVertex passing = Passing(chain, cut_.labelled && layer == (middle | 1));
            passing.wish = upper.wish + share * (lower.wish - upper.wish);
            passing.layer = layer;
            const int vertex = Add(passing);
            graph_.edges.push_back({last, vertex});
            chain.passes.push_back(vertex);
            last = vertex;
        }
        graph_.edges.push_back({last, chain.lower});
    }

private:
    int Add(const LayerVertex &vertex) {
        graph_.vertices.push_back(vertex);
        if (graph_.layers.size() <= At(vertex.layer)) graph_.layers.resize(At(vertex.layer) + 1);
        graph_.layers[At(vertex.layer)].push_back(int(graph_.vertices.size()) - 1);
        return int(graph_.vertices.size()) - 1;
    }
    // Labels stand about the middle of their edges, one beside the other.
    LayerVertex Passing(const EdgeChain &chain, bool withLabels) const {
        LayerVertex passing{double(chain.edges.size() - 1) * kBeside, 0, 0, 0, true};
        if (!withLabels) return passing;
        for (const int edge : chain.edges) {
            passing.width = std::max(passing.width, LabelOf(part_, edge).width());
            passing.height += LabelOf(part_, edge).height();
        }
        return passing;
    }

    const LayoutGraph &part_;
    LayerGraph &graph_;
    const LayeredPart &cut_;
};

} // namespace

LayeredPart CutIntoLayers(const LayoutGraph &part, const Layering &layering, Patience &patience) {
    LayeredPart cut;
    cut.chains = ChainsOf(part, layering.back);
    cut.labelled = std::ranges::any_of(part.labels, [](const QSizeF &label) { return !label.isEmpty(); });
    Cutting cutting(part, cut);
    cutting.AddBoxes(RanksOf(part, cut.chains, layering.balanced, patience));
    for (EdgeChain &chain : cut.chains) cutting.AddChain(chain);
    return cut;
}

} // namespace diagram
