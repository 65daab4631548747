#include "diagram/layout/LayerChains.h"

#include "diagram/layout/LayeredRanks.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace diagram {

namespace {

constexpr std::size_t kMostCounted = 4; // edges between the same boxes that count when crossings are counted
constexpr double kAroundLabel = 90;     // twips beside a label
constexpr double kLoop = 300;           // twips that a link from a box to itself needs on either side

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
        if (isNew) chains.push_back({.upper = upper, .lower = lower});
        chains[at->second].edges.push_back(int(i));
    }
    return chains;
}

// Side by side, as far apart as their labels need.
void SpreadEdges(const LayoutGraph &part, EdgeChain &chain) {
    double at = 0, room = 0;
    for (const int edge : chain.edges) {
        const double half = LabelOf(part, edge).width() / 2;
        if (!chain.asides.empty())
            at += std::max(room + half + (room + half > 0 ? kAroundLabel : 0), kBeside);
        chain.asides.push_back(at);
        chain.bends = chain.bends || half > 0;
        room = half;
    }
    chain.bends = chain.bends && chain.edges.size() > 1;
    for (double &aside : chain.asides) aside -= at / 2;
}

// Adds edges that cost nothing, so that unconnected parts begin in the same layer.
void JoinParts(int boxes, std::vector<RankEdge> &edges) {
    std::vector<int> part(At(boxes));
    std::iota(part.begin(), part.end(), 0);
    const auto partOf = [&](int box) {
        while (part[At(box)] != box) box = part[At(box)] = part[At(part[At(box)])];
        return box;
    };
    std::vector<char> isEntered(At(boxes));
    for (const RankEdge &edge : edges) {
        isEntered[At(edge.to)] = 1;
        part[At(partOf(edge.from))] = partOf(edge.to);
    }
    int first = -1;
    for (int box = 0; box < boxes; ++box) {
        if (isEntered[At(box)]) continue;
        if (first < 0) first = box;
        if (partOf(box) == partOf(first)) continue;
        edges.push_back({first, box, 0, 0});
        part[At(partOf(box))] = partOf(first);
    }
}

std::vector<int> RanksOf(const LayoutGraph &part, const std::vector<EdgeChain> &chains,
                         const Layering &layering, Patience &patience) {
    std::vector<RankEdge> edges;
    edges.reserve(chains.size());
    for (const EdgeChain &chain : chains) {
        edges.push_back({chain.upper, chain.lower, 1, int(chain.edges.size())});
        if (layering.mirrored) std::swap(edges.back().from, edges.back().to);
    }
    JoinParts(int(part.sizes.size()), edges);
    std::vector<int> ranks = RankBoxes(int(part.sizes.size()), edges, layering.balanced, patience);
    const int last = *std::ranges::max_element(ranks);
    if (layering.mirrored)
        for (int &rank : ranks) rank = last - rank;
    return ranks;
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
            Join(last, vertex, chain);
            chain.passes.push_back(vertex);
            last = vertex;
        }
        Join(last, chain.lower, chain);
    }

private:
    // Once for each edge of the chain, so that a crossing with each of them counts.
    void Join(int from, int to, const EdgeChain &chain) {
        for (std::size_t i = 0; i < std::min(chain.edges.size(), kMostCounted); ++i)
            graph_.edges.push_back({from, to});
    }
    int Add(const LayerVertex &vertex) {
        graph_.vertices.push_back(vertex);
        if (graph_.layers.size() <= At(vertex.layer)) graph_.layers.resize(At(vertex.layer) + 1);
        graph_.layers[At(vertex.layer)].push_back(int(graph_.vertices.size()) - 1);
        return int(graph_.vertices.size()) - 1;
    }
    LayerVertex Passing(const EdgeChain &chain, bool withLabels) const {
        LayerVertex passing{WidthOf(chain), 0, 0, 0, true};
        if (!withLabels) return passing;
        for (const int edge : chain.edges)
            passing.height = std::max(passing.height, LabelOf(part_, edge).height());
        const double first = LabelOf(part_, chain.edges.front()).width();
        const double last = LabelOf(part_, chain.edges.back()).width();
        passing.width += std::max(first, last);
        return passing;
    }
    static double WidthOf(const EdgeChain &chain) { return chain.asides.back() - chain.asides.front(); }

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
    cutting.AddBoxes(RanksOf(part, cut.chains, layering, patience));
    for (EdgeChain &chain : cut.chains) {
        SpreadEdges(part, chain);
        cutting.AddChain(chain);
    }
    return cut;
}

} // namespace diagram
