#include "diagram/layout/LayeredClusters.h"

#include "diagram/layout/LayeredOrder.h"
#include "diagram/layout/LayerPlaces.h"

#include <algorithm>
#include <limits>
#include <map>
#include <numeric>

namespace diagram {

namespace {

constexpr int kSweeps = 16;
constexpr int kSwitchRounds = 8;
constexpr std::size_t kExchangeWork = 2'000'000; // edges counted while stripes change places
constexpr double kBetween = 2;                   // times the gap of boxes lie between stripes

std::size_t At(int i) { return std::size_t(i); }

// The layers from a cluster's first box to its last.
struct Reach {
    int first = std::numeric_limits<int>::max(), last = -1;
};

// Boxes without a cluster count as one.
std::map<int, Reach> ReachesOf(const LayerGraph &graph, const std::vector<int> &clusters) {
    std::map<int, Reach> reaches;
    for (int layer = 0; layer < int(graph.layers.size()); ++layer)
        for (const int vertex : graph.layers[At(layer)]) {
            if (At(vertex) >= clusters.size()) continue; // an edge passes there
            Reach &reach = reaches[std::max(clusters[At(vertex)], -1)];
            reach.first = std::min(reach.first, layer), reach.last = layer;
        }
    return reaches;
}

// As few stripes as possible: clusters that don't share a layer can share a stripe.
std::map<int, int> StripesOfClusters(const std::map<int, Reach> &reaches) {
    std::vector<std::pair<int, Reach>> byFirst(reaches.begin(), reaches.end());
    std::ranges::stable_sort(byFirst, {}, [](const auto &entry) { return entry.second.first; });
    std::vector<int> lasts; // of each stripe, the last layer that is taken
    std::map<int, int> stripes;
    for (const auto &[cluster, reach] : byFirst) {
        const auto isFree = [first = reach.first](int last) { return last < first; };
        const auto free = std::ranges::find_if(lasts, isFree);
        stripes[cluster] = int(free - lasts.begin());
        if (free == lasts.end())
            lasts.push_back(reach.last);
        else
            *free = reach.last;
    }
    return stripes;
}

Stripes FirstStripes(const LayeredPart &part, const std::vector<int> &clusters) {
    const std::map<int, int> known = StripesOfClusters(ReachesOf(part.graph, clusters));
    Stripes stripes(part.graph.vertices.size());
    for (std::size_t i = 0; i < clusters.size(); ++i) stripes[i] = known.at(std::max(clusters[i], -1));
    for (const EdgeChain &chain : part.chains)
        for (const int vertex : chain.passes) stripes[At(vertex)] = stripes[At(chain.lower)];
    return stripes;
}

class Striping {
public:
    Striping(LayerGraph &graph, Stripes stripes, Patience &patience)
        : graph_(graph), patience_(patience), stripes_(std::move(stripes)), places_(graph) {}

    Stripes Order() {
        Renumber(ByMiddles());
        Gather();
        Exchange();
        Refine();
        return std::move(stripes_);
    }

private:
    int Count() const { return *std::ranges::max_element(stripes_) + 1; }

    // The stripes in the order of where their vertices stand in their layers.
    std::vector<int> ByMiddles() const {
        std::vector<double> sums(At(Count())), counts(sums.size());
        for (const std::vector<int> &layer : graph_.layers)
            for (std::size_t i = 0; i < layer.size(); ++i) {
                sums[At(stripes_[At(layer[i])])] += (double(i) + 0.5) / double(layer.size());
                counts[At(stripes_[At(layer[i])])] += 1;
            }
        std::vector<int> order(sums.size());
        std::iota(order.begin(), order.end(), 0);
        std::ranges::stable_sort(
            order, {}, [&](int stripe) { return sums[At(stripe)] / std::max(counts[At(stripe)], 1.0); });
        return order;
    }
    void Renumber(const std::vector<int> &order) {
        std::vector<int> numbers(order.size());
        for (std::size_t i = 0; i < order.size(); ++i) numbers[At(order[i])] = int(i);
        for (int &stripe : stripes_) stripe = numbers[At(stripe)];
    }
    void Gather() {
        for (std::vector<int> &layer : graph_.layers)
            std::ranges::stable_sort(layer, {}, [&](int vertex) { return stripes_[At(vertex)]; });
        places_.Assign(graph_.layers);
    }
    long long Crossings() {
        patience_.Spend(graph_.edges.size() * 4);
        return places_.Crossings();
    }

    // Neighbouring stripes change places while that saves crossings.
    void Exchange() {
        std::size_t work = kExchangeWork;
        long long least = Crossings();
        for (bool better = true; better;) {
            better = false;
            for (int left = 0; left + 1 < Count() && work >= graph_.edges.size(); ++left) {
                work -= std::max<std::size_t>(graph_.edges.size(), 1);
                better = TryExchange(left, least) || better;
            }
        }
    }
    bool TryExchange(int left, long long &least) {
        std::vector<int> order(At(Count()));
        std::iota(order.begin(), order.end(), 0);
        std::swap(order[At(left)], order[At(left + 1)]);
        Renumber(order), Gather();
        const long long crossings = Crossings();
        if (crossings < least) return least = crossings, true;
        Renumber(order), Gather();
        return false;
    }

    // Sweeps within the stripes; the best order stays.
    void Refine() {
        long long least = Crossings();
        for (int sweep = 0; sweep < kSweeps && least > 0; ++sweep) {
            Sweep(sweep % 2 == 0);
            for (int round = 0; round < kSwitchRounds && Switch(); ++round) {
            }
            if (const long long crossings = Crossings(); crossings < least)
                least = crossings, graph_.layers = places_.Layers();
        }
    }
    void Sweep(bool down) {
        const int count = int(graph_.layers.size());
        std::vector<std::pair<int, double>> keys(graph_.vertices.size());
        for (int i = 1; i < count; ++i) {
            const int layer = down ? i : count - 1 - i;
            std::vector<int> vertices = places_.Layers()[At(layer)];
            patience_.Spend(8 * vertices.size());
            for (const int vertex : vertices) keys[At(vertex)] = {stripes_[At(vertex)], Middle(vertex, down)};
            std::ranges::stable_sort(vertices, {}, [&](int vertex) { return keys[At(vertex)]; });
            places_.AssignLayer(layer, vertices);
        }
    }
    // Of its neighbours in the layer above or below; its own without any.
    double Middle(int vertex, bool down) const {
        const auto neighbours = down ? places_.Above(vertex) : places_.Below(vertex);
        if (neighbours.empty()) return places_.Position(vertex);
        double sum = 0;
        for (const int neighbour : neighbours) sum += places_.Position(neighbour);
        return sum / double(neighbours.size());
    }
    bool Switch() {
        bool switched = false;
        for (int layer = 0; layer < int(graph_.layers.size()); ++layer) {
            const std::vector<int> &vertices = places_.Layers()[At(layer)];
            patience_.Spend(6 * vertices.size());
            for (const int vertex : vertices) places_.SortNeighbours(vertex);
            for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
                const int vertex = vertices[i], next = vertices[i + 1];
                if (stripes_[At(vertex)] != stripes_[At(next)] || places_.Gain(vertex, next) < 1) continue;
                places_.SwapWithNext(layer, i);
                switched = true;
            }
        }
        return switched;
    }

    LayerGraph &graph_;
    Patience &patience_;
    Stripes stripes_;
    LayerPlaces places_;
};

// What of the graph stands in one stripe. An edge that comes from another one begins where it first passes.
struct Stripe {
    LayerGraph graph;
    std::vector<int> vertices; // of the whole
};

std::vector<Stripe> Divided(const LayerGraph &graph, const Stripes &stripes) {
    std::vector<Stripe> divided(At(*std::ranges::max_element(stripes) + 1));
    std::vector<int> numbers(stripes.size());
    for (Stripe &stripe : divided) stripe.graph.layers.resize(graph.layers.size());
    for (std::size_t layer = 0; layer < graph.layers.size(); ++layer)
        for (const int vertex : graph.layers[layer]) {
            Stripe &stripe = divided[At(stripes[At(vertex)])];
            numbers[At(vertex)] = int(stripe.vertices.size());
            stripe.vertices.push_back(vertex);
            stripe.graph.vertices.push_back(graph.vertices[At(vertex)]);
            stripe.graph.layers[layer].push_back(numbers[At(vertex)]);
        }
    for (const LayerEdge &edge : graph.edges) {
        Stripe &stripe = divided[At(stripes[At(edge.to)])];
        if (stripes[At(edge.from)] == stripes[At(edge.to)])
            stripe.graph.edges.push_back({numbers[At(edge.from)], numbers[At(edge.to)]});
        else
            stripe.graph.vertices[At(numbers[At(edge.to)])].passes = false;
    }
    return divided;
}

} // namespace

Stripes OrderInStripes(LayeredPart &part, const std::vector<int> &clusters, Patience &patience) {
    return Striping(part.graph, FirstStripes(part, clusters), patience).Order();
}

std::vector<double> PlaceInStripes(const LayeredPart &part, const Stripes &stripes, const LayerGaps &gaps,
                                   Patience &patience) {
    std::vector<double> columns(part.graph.vertices.size());
    double right = 0;
    for (const Stripe &stripe : Divided(part.graph, stripes)) {
        const std::vector<double> places = PlaceInLayers(stripe.graph, gaps, patience);
        double least = std::numeric_limits<double>::infinity(), most = -least;
        for (std::size_t i = 0; i < places.size(); ++i) {
            const double half = stripe.graph.vertices[i].width / 2;
            least = std::min(least, places[i] - half), most = std::max(most, places[i] + half);
        }
        for (std::size_t i = 0; i < places.size(); ++i)
            columns[At(stripe.vertices[i])] = places[i] - least + right;
        right += most - least + kBetween * gaps.boxes;
    }
    return columns;
}

} // namespace diagram
