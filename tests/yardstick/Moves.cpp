#include "tests/yardstick/Moves.h"

#include "diagram/layout/Layered.h"
#include "diagram/layout/LayeredAgain.h"

#include <QLineF>
#include <random>

namespace yardstick {

namespace {

using diagram::LayoutGraph;
using Centres = std::vector<QPointF>;

Centres Drawn(const LayoutGraph &graph) {
    return diagram::DrawInLayers(graph, {}, [] { return true; })->centres;
}

// Below and a little beside the box that it hangs on, as somebody draws it.
void AddBox(LayoutGraph &graph, int parent) {
    graph.edges.push_back({parent, int(graph.sizes.size())});
    graph.sizes.emplace_back(1500, 750);
    graph.centres.push_back(graph.centres[std::size_t(parent)] + QPointF(300, 1200));
}

// The last box takes the place of the one that goes, in all lists.
void TakeBox(LayoutGraph &graph, int box) {
    const int last = int(graph.sizes.size()) - 1;
    std::erase_if(graph.edges,
                  [&](const diagram::LayoutEdge &edge) { return edge.from == box || edge.to == box; });
    for (diagram::LayoutEdge &edge : graph.edges)
        for (int *end : {&edge.from, &edge.to})
            if (*end == last) *end = box;
    graph.sizes[std::size_t(box)] = graph.sizes.back(), graph.sizes.pop_back();
    graph.centres[std::size_t(box)] = graph.centres.back(), graph.centres.pop_back();
}

double MeanMove(const Centres &before, const Centres &after, const QPointF &shift) {
    double sum = 0;
    for (std::size_t i = 0; i < before.size(); ++i) sum += QLineF(before[i], after[i] + shift).length();
    return sum / double(before.size());
}

} // namespace

LayoutGraph Hundred(unsigned seed) {
    constexpr int kBoxes = 100, kReach = 12;
    std::mt19937 random(seed);
    LayoutGraph graph;
    for (int i = 0; i < kBoxes; ++i) {
        graph.sizes.emplace_back(900 + random() % 1200, 450 + random() % 450);
        graph.centres.emplace_back(0, 0);
        if (i > 0) graph.edges.push_back({std::max(0, i - 1 - int(random() % kReach)), i});
        if (i > kReach && random() % 3 == 0) graph.edges.push_back({i - 1 - int(random() % kReach), i});
        if (i > kReach && random() % 15 == 0) graph.edges.push_back({i, i - 1 - int(random() % kReach)});
    }
    return graph;
}

Moves MovesAfterSmallChange(LayoutGraph graph, unsigned seed) {
    std::mt19937 random(seed);
    graph.centres = Drawn(graph);
    AddBox(graph, int(random() % graph.sizes.size()));
    TakeBox(graph, int(random() % (graph.sizes.size() - 1)));
    const Centres before = graph.centres, again = Drawn(graph);
    graph.centres.assign(before.size(), QPointF());
    const Centres scratch = Drawn(graph);
    return {MeanMove(before, again, {}), MeanMove(before, scratch, diagram::ShiftBack(scratch, before))};
}

} // namespace yardstick
