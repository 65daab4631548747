#include "benchmarks/LayoutCrossings.h"

#include "diagram/layout/Layered.h"
#include "tests/yardstick/Crossings.h"
#include "tests/yardstick/Dot.h"

#include <cmath>
#include <random>

namespace bench {

namespace {

using diagram::LayoutGraph;
using yardstick::CrossingsOf, yardstick::WaysOf, yardstick::DrawByDot;

// Boxes of several sizes; links to boxes at most `reach` further on, one in twelve of them backwards.
LayoutGraph Generated(unsigned seed, int boxes, int links, int reach) {
    std::mt19937 random(seed);
    LayoutGraph graph;
    for (int i = 0; i < boxes; ++i) {
        graph.sizes.emplace_back(600 + random() % 1500, 400 + random() % 600);
        graph.centres.emplace_back(0, 0);
    }
    for (int i = 0; i < links; ++i) {
        int from = int(random() % unsigned(boxes)), to = from + 1 + int(random() % unsigned(reach));
        if (to >= boxes) continue;
        if (random() % 12 == 0) std::swap(from, to);
        graph.edges.push_back({from, to});
    }
    return graph;
}

struct Kind {
    int boxes, links, reach;
};
constexpr Kind kKinds[] = {{20, 30, 6},    {20, 26, 19},   {40, 52, 39},   {50, 80, 8},
                           {100, 130, 99}, {200, 300, 10}, {200, 259, 199}};
constexpr unsigned kGraphsOfKind = 6;

} // namespace

Figures LayoutCrossings() {
    double logs = 0, worst = 0;
    int graphs = 0;
    for (const Kind &kind : kKinds)
        for (unsigned seed = 1; seed <= kGraphsOfKind; ++seed, ++graphs) {
            const LayoutGraph graph = Generated(seed, kind.boxes, kind.links, kind.reach);
            const int ours = CrossingsOf(graph, WaysOf(graph, *DrawInLayers(graph, {}, [] { return true; })));
            const int dots = CrossingsOf(graph, DrawByDot(graph, {}).ways);
            const double ratio = (ours + 1.0) / (dots + 1.0);
            logs += std::log(ratio), worst = std::max(worst, ratio);
        }
    const QString remark =
        QStringLiteral("%1 graphs of 20 to 200 nodes, one crossing added to both").arg(graphs);
    return {
        {QStringLiteral("crossings in layers : dot's, geometric mean"), std::exp(logs / graphs),
         QStringLiteral("x"), 1.0, remark},
        {QStringLiteral("crossings in layers : dot's, at worst"), worst, QStringLiteral("x"), 1.2, remark}};
}

} // namespace bench
