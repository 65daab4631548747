#include "benchmarks/GeneratedMap.h"
#include "benchmarks/LayoutCrossings.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "diagram/layout/Layout.h"
#include "diagram/layout/Layouts.h"
#include "diagram/layout/TidyTree.h"
#include "diagram/model/Surface.h"
#include "tests/yardstick/Dot.h"
#include "tests/yardstick/Moves.h"

#include <algorithm>
#include <functional>
#include <QLocale>
#include <random>

namespace bench {

namespace {

constexpr int kRuns = 5;
constexpr int kChildren = 4; // at most, of a box of the tree

double BestTimeOf(const std::function<void()> &what) {
    return BestOf(kRuns, [&] { return TimeOf(what); });
}

QString Count(int number) { return QLocale(QLocale::English).toString(number); }

struct Filling {
    const char *name;
    void (*fill)(diagram::Surface &surface, int nodes);
};
constexpr Filling kPlan{"", FillPlan}, kAnyhow{" anyhow", FillAnyhow};

// The layout alone. The remark has the whole command on a surface and, if `beside`, the yardstick's layout.
void AddLayered(Figures &figures, const Filling &filling, int nodes, double bound, bool beside) {
    diagram::Surface surface;
    filling.fill(surface, nodes);
    const diagram::LayoutOptions options;
    const diagram::LayoutGraph graph = SubjectOf(surface, diagram::LayoutScope::All).graph;
    const auto goOn = [] { return true; };
    const double whole =
        BestTimeOf([&] { LayOutInLayers(surface, diagram::LayoutScope::All, options, goOn); });
    const double ours = BestTimeOf([&] { DrawInLayers(graph, options, goOn); });
    QString remark = QStringLiteral("%1 ms with nodes and links placed").arg(whole, 0, 'f', 1);
    if (beside)
        remark += QStringLiteral(", dot %1 ms")
                      .arg(BestOf(kRuns, [&] { return yardstick::TimeOfDot(graph, options); }), 0, 'f', 1);
    figures.push_back({QStringLiteral("layered layout, %1 nodes, %2 links%3")
                           .arg(Count(nodes), Count(int(graph.edges.size())), QLatin1String(filling.name)),
                       ours, QStringLiteral("ms"), bound, remark});
}

diagram::LayoutGraph Tree(int boxes) {
    std::mt19937 random(1);
    diagram::LayoutGraph tree;
    for (int i = 0; i < boxes; ++i) {
        tree.sizes.emplace_back(600 + double(random() % 900), 300 + double(random() % 600));
        tree.centres.emplace_back(i, 0);
        if (i > 0) tree.edges.push_back({(i - 1) / (1 + int(random() % kChildren)), i});
    }
    return tree;
}

void AddTree(Figures &figures, int boxes, double bound) {
    const diagram::LayoutGraph tree = Tree(boxes);
    const double time = BestTimeOf([&] { TidyTree(tree, {}); });
    figures.push_back(
        {QStringLiteral("tree of %1 nodes").arg(Count(boxes)), time, QStringLiteral("ms"), bound, QString()});
}

// The whole command on a surface: reading it, placing, moving the nodes.
void AddTreeOnSurface(Figures &figures, int nodes, double bound) {
    diagram::Surface surface;
    std::vector<diagram::Node *> all;
    for (const QSizeF &size : Tree(nodes).sizes)
        all.push_back(&surface.Nodes().Add(0, 0, float(size.width()), float(size.height())));
    for (const diagram::LayoutEdge &edge : Tree(nodes).edges)
        all[std::size_t(edge.from)]->Links().Add(*all[std::size_t(edge.to)]);
    const double time = BestTimeOf([&] { LayOutAsTree(surface, diagram::LayoutScope::All, {}); });
    figures.push_back({QStringLiteral("tree of %1 nodes on a surface, nodes moved").arg(Count(nodes)), time,
                       QStringLiteral("ms"), bound, QString()});
}

void AddMoves(Figures &figures) {
    constexpr unsigned kGraphs = 50;
    double again = 0, scratch = 0;
    for (unsigned seed = 0; seed < kGraphs; ++seed) {
        const yardstick::Moves moves = yardstick::MovesAfterSmallChange(yardstick::Hundred(seed), seed);
        again += moves.again / kGraphs, scratch += moves.scratch / kGraphs;
    }
    figures.push_back({QStringLiteral("mean move of 100 nodes laid out again : from scratch"),
                       again / scratch, QStringLiteral("x"), 0.6,
                       QStringLiteral("%1 : %2 twips, %3 graphs, a node and a link more, a node less")
                           .arg(again, 0, 'f', 0)
                           .arg(scratch, 0, 'f', 0)
                           .arg(kGraphs)});
}

// The whole command without a window.
void AddKind(Figures &figures, const char *name, int nodes, double bound) {
    diagram::Surface surface;
    FillPlan(surface, nodes);
    const diagram::LayoutRow &row = *diagram::FindLayout(QLatin1String(name));
    const double time = BestTimeOf([&] { row.layOut(surface, {}); });
    figures.push_back({QStringLiteral("%1 layout of %2 nodes").arg(QLatin1String(name), Count(nodes)), time,
                       QStringLiteral("ms"), bound, QString()});
}

} // namespace

Figures LayoutFigures() {
    Figures figures;
    AddLayered(figures, kPlan, 1000, 80, true);
    AddLayered(figures, kPlan, 10000, 3000, false);
    AddLayered(figures, kAnyhow, 10000, 3000, false);
    for (const Figure &figure : LayoutCrossings()) figures.push_back(figure);
    AddMoves(figures);
    AddTree(figures, 1000, 2);
    AddTree(figures, 100000, 300);
    AddTreeOnSurface(figures, 1000, 2);
    AddTreeOnSurface(figures, 100000, 300);
    AddKind(figures, "organic", 1000, 500);
    AddKind(figures, "organic", 10000, 5000);
    AddKind(figures, "radial", 1000, 50);
    AddKind(figures, "circular", 1000, 500);
    AddKind(figures, "levels", 1000, 50);
    return figures;
}

} // namespace bench
