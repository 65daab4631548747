// Rerouting while a node with 20 links is dragged through the middle of 500 nodes and 800 links.
#include "diagram/edit/History.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/shapes/Obstacles.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

namespace {

constexpr int kNodes = 500, kLinks = 800, kLinksOfHub = 20, kColumns = 25;
constexpr double kPitchX = 2400, kPitchY = 1800; // twips
constexpr int kSteps = 200;                      // there and back again

// A grid that isn't quite one, and links of all orthogonal styles with more than one bend, most of them to
// nodes near by.
struct Map {
    Map() {
        diagram::AttachHistory(surface);
        for (int i = 0; i < kNodes; ++i)
            nodes.push_back(&surface.Nodes().Add(float(i % kColumns * kPitchX + Roll(600)),
                                                 float(i / kColumns * kPitchY + Roll(500)),
                                                 float(900 + Roll(500)), float(500 + Roll(500))));
        hub = nodes[size_t(kNodes / 2 + kColumns / 2)];
        for (int i = 0; i < kLinksOfHub; ++i) Join(*hub, *nodes[size_t(Roll(kNodes))]);
        while (int(surface.Links().size()) < kLinks) {
            const int from = Roll(kNodes), to = from + Roll(5) - 2 + kColumns * (Roll(5) - 2);
            if (to >= 0 && to < kNodes) Join(*nodes[size_t(from)], *nodes[size_t(to)]);
        }
        surface.Recalculate();
    }
    int Roll(int below) { return int(random() % unsigned(below)); }
    void Join(diagram::Node &from, diagram::Node &to) {
        if (&from != &to) from.Links().Add(to).SetStyle(4 + Roll(10));
    }

    std::mt19937 random{3};
    diagram::Surface surface;
    std::vector<diagram::Node *> nodes;
    diagram::Node *hub = nullptr;
};

bool IsMet(const diagram::Link &link) {
    const auto &way = link.Way();
    for (const diagram::Node &node : link.Owner().Nodes()) {
        if (&node == &link.Source() || &node == &link.Destination()) continue;
        if (diagram::Overlap(node.Bounds(), link.Source().Bounds())) continue;
        if (diagram::Overlap(node.Bounds(), link.Destination().Bounds())) continue;
        for (size_t i = 1; i < way.size(); ++i)
            if (diagram::Meets(node.Bounds(), diagram::ToQPointF(way[i - 1]), diagram::ToQPointF(way[i])))
                return true;
    }
    return false;
}

// Counts beside the time how many links with four segments or more run through a node after the last step.
void RouteDrag(benchmark::State &state) {
    Map map;
    const diagram::HeldItems held({map.hub});
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % kSteps;
        const double share = double(step < kSteps / 2 ? step : kSteps - step) / kSteps;
        held.MoveBy(map.surface, QPointF(9000 * share + 30, 6000 * share));
        map.surface.Recalculate();
    }
    int through = 0;
    for (const auto &link : map.surface.Links()) through += link->Style() >= 6 && IsMet(*link);
    state.counters["through"] = through;
    held.Restore(map.surface);
}
BENCHMARK(RouteDrag)->Unit(benchmark::kMillisecond);

} // namespace
