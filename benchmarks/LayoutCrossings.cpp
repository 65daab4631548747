#include "benchmarks/LayoutCrossings.h"

#include "diagram/layout/Layout.h"
#include "diagram/model/Surface.h"
#include "tests/yardstick/Crossings.h"
#include "tests/yardstick/Dot.h"
#include "tests/yardstick/GraphFile.h"

#include <cmath>
#include <random>

namespace bench {

namespace {

using diagram::LayoutGraph;
using yardstick::CrossingsOf, yardstick::RoutesOf, yardstick::DrawByDot;

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

diagram::LayeredDrawing Drawn(const LayoutGraph &graph) {
    return *DrawInLayers(graph, {}, [] { return true; });
}

struct Kind {
    int boxes, links, reach;
};
constexpr Kind kKinds[] = {{20, 30, 6},    {20, 26, 19},   {40, 52, 39},   {50, 80, 8},
                           {100, 130, 99}, {200, 300, 10}, {200, 259, 199}};
constexpr unsigned kGraphsOfKind = 6;

// How two counts compare over many graphs; one is added to each, since there may be none.
class Ratios {
public:
    void Add(int ours, int others) {
        const double ratio = (ours + 1.0) / (others + 1.0);
        logs_ += std::log(ratio), worst_ = std::max(worst_, ratio), ++graphs_;
    }
    Figure Mean(const QString &name, const QString &remark) const {
        return {name + QStringLiteral(", geometric mean"), std::exp(logs_ / graphs_), QStringLiteral("x"),
                1.0, remark};
    }
    Figure Worst(const QString &name, const QString &remark) const {
        return {name + QStringLiteral(", at worst"), worst_, QStringLiteral("x"), 1.2, remark};
    }
    int Graphs() const { return graphs_; }

private:
    double logs_ = 0, worst_ = 0;
    int graphs_ = 0;
};

void AddGenerated(Figures &figures) {
    Ratios ratios;
    for (const Kind &kind : kKinds)
        for (unsigned seed = 1; seed <= kGraphsOfKind; ++seed) {
            const LayoutGraph graph = Generated(seed, kind.boxes, kind.links, kind.reach);
            const int ours = CrossingsOf(graph, RoutesOf(graph, Drawn(graph)));
            ratios.Add(ours, CrossingsOf(graph, DrawByDot(graph, {}).routes));
        }
    const QString remark =
        QStringLiteral("%1 graphs of 20 to 200 nodes, one crossing added to both").arg(ratios.Graphs());
    const QString name = QStringLiteral("crossings in layers : dot's");
    figures.push_back(ratios.Mean(name, remark));
    figures.push_back(ratios.Worst(name, remark));
}

// The diagrams of tests/data/graphs, with their labels.
void AddDrawn(Figures &figures) {
    Ratios ratios;
    int links = 0, bends = 0, meetings = 0;
    for (const QString &name : yardstick::GraphNames()) {
        diagram::Surface surface;
        yardstick::GraphFile::Read(name, surface);
        const LayoutGraph graph = SubjectOf(surface, diagram::LayoutScope::All).graph;
        const diagram::LayeredDrawing drawing = Drawn(graph);
        const yardstick::Ways routes = RoutesOf(graph, drawing);
        ratios.Add(CrossingsOf(graph, routes), CrossingsOf(graph, DrawByDot(graph, {}).routes));
        links += int(routes.size()), bends += yardstick::BendsOf(routes);
        meetings += yardstick::MeetingsOf(graph, drawing.centres, routes);
    }
    const QString remark = QStringLiteral("%1 diagrams as people draw them").arg(ratios.Graphs());
    const QString name = QStringLiteral("crossings in diagrams : dot's");
    figures.push_back(ratios.Mean(name, remark));
    figures.push_back(ratios.Worst(name, remark));
    figures.push_back(
        {QStringLiteral("bends of a link in diagrams"), double(bends) / links, QString(), 0, remark});
    figures.push_back(
        {QStringLiteral("links through nodes in diagrams"), double(meetings), QString(), 0, remark});
}

} // namespace

Figures LayoutCrossings() {
    Figures figures;
    AddGenerated(figures);
    AddDrawn(figures);
    return figures;
}

} // namespace bench
