#include "diagram/layout/LayeredOrder.h"

#include "diagram/layout/LayerPlaces.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <random>

namespace diagram {

namespace {

using Layers = std::vector<std::vector<int>>;

constexpr int kFruitless = 4;    // sweeps without a better order after which a start is given up
constexpr int kSwitchRounds = 8; // through all layers after one sweep
constexpr std::size_t kFewestSweeps = 12, kMostSweeps = 600;
constexpr std::size_t kWork = 300'000;     // edges looked at in sweeps, where the bounds above let it
constexpr std::size_t kManyEdges = 10'000; // of which a sweep costs twice as much patience
constexpr std::size_t kSiftWork = 6'000'000;
constexpr std::size_t kWidestSift = 200; // places that a vertex is moved at most
constexpr int kSiftRounds = 12;

std::size_t At(int i) { return std::size_t(i); }

// Layers in the order in which a walk over neighbours reaches their vertices.
class Reached {
public:
    Reached(const LayerGraph &graph, const LayerPlaces &places)
        : graph_(graph), places_(places), seen_(graph.vertices.size()), layers_(graph.layers.size()) {}

    enum class Next { Newest, Oldest };
    Layers From(bool top, Next next) {
        for (std::size_t i = 0; i < graph_.layers.size(); ++i)
            for (const int vertex : graph_.layers[top ? i : graph_.layers.size() - 1 - i])
                if (!seen_[At(vertex)]) Walk(vertex, next);
        return std::move(layers_);
    }

private:
    void Walk(int vertex, Next next) {
        std::deque<int> open{vertex};
        while (!open.empty()) {
            const int at = next == Next::Oldest ? open.front() : open.back();
            next == Next::Oldest ? open.pop_front() : open.pop_back();
            if (seen_[At(at)]) continue;
            seen_[At(at)] = 1;
            layers_[At(graph_.vertices[At(at)].layer)].push_back(at);
            for (const int neighbour : places_.Above(at)) open.push_back(neighbour);
            for (const int neighbour : places_.Below(at)) open.push_back(neighbour);
        }
    }

    const LayerGraph &graph_;
    const LayerPlaces &places_;
    std::vector<char> seen_;
    Layers layers_;
};

class Ordering {
public:
    Ordering(const LayerGraph &graph, Patience &patience)
        : graph_(graph),
          patience_(patience),
          places_(graph),
          key_(graph.vertices.size()),
          stirred_(key_.size()) {
        const std::size_t edges = std::max<std::size_t>(graph.edges.size(), 1);
        sweeps_ = std::clamp(kWork / (edges + edges * edges / kManyEdges), kFewestSweeps, kMostSweeps);
    }

    Layers Best() && {
        for (int start = 0; sweeps_ > 0 && best_.crossings > 0; ++start) Improve(StartOrder(start));
        places_.Assign(best_.layers);
        Sift();
        return std::move(best_.layers);
    }

    Layers Kept() && {
        places_.Assign(PresentOrder());
        Switch(false);
        return places_.Layers();
    }

private:
    struct Order {
        Layers layers;
        long long crossings = std::numeric_limits<long long>::max();
    };

    Layers StartOrder(int start) {
        if (start == 0) return PresentOrder();
        if (start == 1) return Reached(graph_, places_).From(true, Reached::Next::Newest);
        if (start == 2) return Reached(graph_, places_).From(true, Reached::Next::Oldest);
        if (start == 3) return Reached(graph_, places_).From(false, Reached::Next::Oldest);
        return start % 8 == 7 ? ShuffledOrder() : DisturbedOrder();
    }
    Layers PresentOrder() const {
        Layers layers = graph_.layers;
        for (std::vector<int> &layer : layers)
            std::ranges::stable_sort(layer, {}, [&](int vertex) { return graph_.vertices[At(vertex)].wish; });
        return layers;
    }
    Layers ShuffledOrder() {
        Layers layers = graph_.layers;
        for (std::vector<int> &layer : layers)
            for (std::size_t i = layer.size(); i > 1; --i) std::swap(layer[i - 1], layer[random_() % i]);
        return layers;
    }
    // The best order so far, with some vertices elsewhere.
    Layers DisturbedOrder() {
        Layers layers = best_.layers;
        for (std::vector<int> &layer : layers)
            for (std::size_t i = 0; i < 1 + layer.size() / 8; ++i)
                std::swap(layer[random_() % layer.size()], layer[random_() % layer.size()]);
        return layers;
    }

    void Improve(const Layers &start) {
        places_.Assign(start);
        long long reached = std::numeric_limits<long long>::max();
        Keep(reached);
        for (int sweep = 0, fruitless = 0; fruitless < kFruitless && sweeps_ > 0 && reached > 0; ++sweep) {
            --sweeps_;
            Sweep(sweep % 2 == 0, sweep % 4 >= 2);
            Switch(sweep % 4 >= 2);
            fruitless = Keep(reached) ? 0 : fruitless + 1;
        }
    }
    // Whether it is better than what the start had reached.
    bool Keep(long long &reached) {
        const long long crossings = places_.Crossings();
        if (crossings < best_.crossings) best_ = {places_.Layers(), crossings};
        const bool better = crossings < reached;
        reached = std::min(reached, crossings);
        return better;
    }

    void Sweep(bool down, bool turnTies) {
        const int count = int(places_.Layers().size());
        for (int i = 1; i < count; ++i) SortLayer(down ? i : count - 1 - i, down, turnTies);
    }
    // Vertices without neighbours there keep their places.
    void SortLayer(int layer, bool down, bool turnTies) {
        std::vector<int> vertices = places_.Layers()[At(layer)];
        sorted_.clear();
        for (const int vertex : vertices) {
            const auto neighbours = down ? places_.Above(vertex) : places_.Below(vertex);
            if (neighbours.empty()) continue;
            double sum = 0;
            for (const int neighbour : neighbours) sum += places_.Position(neighbour);
            key_[At(vertex)] = sum / double(neighbours.size());
            sorted_.push_back(vertex);
        }
        patience_.Spend(8 * vertices.size());
        if (turnTies) std::ranges::reverse(sorted_);
        std::ranges::stable_sort(sorted_, {}, [&](int vertex) { return key_[At(vertex)]; });
        auto next = sorted_.begin();
        for (int &place : vertices)
            if (!(down ? places_.Above(place) : places_.Below(place)).empty()) place = *next++;
        places_.AssignLayer(layer, vertices);
    }

    // Neighbours change places while that saves crossings. Two neighbours need no second look unless one of
    // them, or a vertex joined with one of them, has changed places since; such vertices are stirred, and so
    // are their layers.
    void Switch(bool turnTies) {
        const std::size_t count = places_.Layers().size();
        std::vector<char> stirred(count, 1);
        std::ranges::fill(stirred_, kStirred);
        for (int round = 0; round < kSwitchRounds && std::ranges::count(stirred, 1) > 0; ++round) {
            for (std::size_t i = 0; i < count; ++i) {
                if (!std::exchange(stirred[i], char(0)) || !SwitchLayer(int(i), turnTies && round == 0))
                    continue;
                stirred[i] = 1;
                if (i > 0) stirred[i - 1] = 1;
                if (i + 1 < count) stirred[i + 1] = 1;
            }
        }
    }
    bool SwitchLayer(int layer, bool turnTies) {
        const std::vector<int> &vertices = places_.Layers()[At(layer)];
        for (const int vertex : vertices)
            if (stirred_[At(vertex)]) places_.SortNeighbours(vertex);
        patience_.Spend(6 * vertices.size());
        bool switched = false;
        for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
            const int vertex = vertices[i], next = vertices[i + 1];
            if (!stirred_[At(vertex)] && !stirred_[At(next)]) continue;
            if (places_.Gain(vertex, next) < (turnTies ? 0 : 1)) continue;
            places_.SwapWithNext(layer, i);
            Stir(vertex), Stir(next);
            switched = true;
        }
        for (const int vertex : vertices)
            stirred_[At(vertex)] = stirred_[At(vertex)] == kAgain ? kStirred : 0;
        return switched;
    }
    void Stir(int vertex) {
        stirred_[At(vertex)] = kAgain;
        for (const int neighbour : places_.Above(vertex)) stirred_[At(neighbour)] = kStirred;
        for (const int neighbour : places_.Below(vertex)) stirred_[At(neighbour)] = kStirred;
    }

    // Each vertex goes to the best place of its layer, until none finds a better one.
    void Sift() {
        std::size_t work = kSiftWork;
        for (int round = 0; round < kSiftRounds && work > 0 && best_.crossings > 0; ++round) {
            long long gain = 0;
            for (int layer = 0; layer < int(graph_.layers.size()); ++layer) gain += SiftLayer(layer, work);
            if (gain == 0) break;
            best_.crossings -= gain;
            best_.layers = places_.Layers();
        }
    }
    long long SiftLayer(int layer, std::size_t &work) {
        for (const int vertex : places_.Layers()[At(layer)]) places_.SortNeighbours(vertex);
        long long gain = 0;
        for (const int vertex : std::vector<int>(places_.Layers()[At(layer)])) {
            const std::size_t reach = std::min(kWidestSift, places_.Layers()[At(layer)].size());
            if (work < reach) return gain;
            work -= reach;
            patience_.Spend(4 * reach);
            gain += SiftVertex(layer, vertex, int(reach));
        }
        return gain;
    }
    long long SiftVertex(int layer, int vertex, int reach) {
        const std::vector<int> &row = places_.Layers()[At(layer)];
        const int at = places_.Position(vertex);
        long long best = 0;
        int bestPlace = at;
        const auto weigh = [&](long long gain, int place) {
            if (gain > best) best = gain, bestPlace = place;
        };
        long long gain = 0;
        for (int i = at - 1; i >= std::max(0, at - reach); --i)
            weigh(gain += places_.Gain(row[At(i)], vertex), i);
        gain = 0;
        for (int i = at + 1; i < std::min(int(row.size()), at + reach); ++i)
            weigh(gain += places_.Gain(vertex, row[At(i)]), i);
        for (int i = at; i > bestPlace; --i) places_.SwapWithNext(layer, At(i - 1));
        for (int i = at; i < bestPlace; ++i) places_.SwapWithNext(layer, At(i));
        return best;
    }

    const LayerGraph &graph_;
    Patience &patience_;
    LayerPlaces places_;
    std::vector<double> key_;
    std::vector<int> sorted_;
    // Of the vertices: 0 for one that needs no look, kStirred since its layer was looked at last, kAgain
    // while its layer is being looked at.
    static constexpr char kStirred = 1, kAgain = 2;
    std::vector<char> stirred_;
    std::mt19937 random_{1};
    std::size_t sweeps_ = 0;
    Order best_;
};

} // namespace

void OrderLayers(LayerGraph &graph, Patience &patience) { graph.layers = Ordering(graph, patience).Best(); }
void KeepOrder(LayerGraph &graph, Patience &patience) { graph.layers = Ordering(graph, patience).Kept(); }

} // namespace diagram
