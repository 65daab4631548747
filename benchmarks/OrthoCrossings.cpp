#include "benchmarks/GeneratedMap.h"
#include "benchmarks/Parts.h"
#include "diagram/layout/Layout.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "tests/yardstick/Crossings.h"
#include "tests/yardstick/Dot.h"

#include <map>

namespace bench {

namespace {

constexpr unsigned kMaps = 200;

struct Counts {
    int ours = 0, others = 0, worse = 0; // worse: maps with more than 1.05 times as many and two

    void Add(int our, int other) {
        ours += our, others += other;
        worse += our > 1.05 * other + 2;
    }
};

yardstick::Ways RoutedByUs(diagram::Surface &surface) {
    surface.Routes().TidyAll();
    yardstick::Ways ways;
    for (const auto &link : surface.Links()) {
        ways.emplace_back();
        for (const diagram::Point &point : link->Route()) ways.back().push_back(ToQPointF(point));
    }
    return ways;
}

diagram::LayoutGraph GraphOf(diagram::Surface &surface) {
    diagram::LayoutGraph graph;
    std::map<diagram::ItemId, int> places;
    for (const diagram::Node &node : surface.Nodes()) {
        places[node.Id()] = int(graph.sizes.size());
        graph.sizes.push_back(node.Bounds().size());
        graph.centres.push_back(node.Bounds().center());
    }
    for (const auto &link : surface.Links())
        graph.edges.push_back({places[link->Source().Id()], places[link->Destination().Id()]});
    return graph;
}

} // namespace

Figures OrthoCrossings() {
    Counts counts;
    for (unsigned seed = 1; seed <= kMaps; ++seed) {
        diagram::Surface surface;
        FillGenerated(surface, seed, diagram::kAutomaticStyle);
        const diagram::LayoutGraph graph = GraphOf(surface);
        const int others = yardstick::CrossingsOf(graph, yardstick::RouteByOrtho(graph));
        counts.Add(yardstick::CrossingsOf(graph, RoutedByUs(surface)), others);
    }
    const QString remark = QStringLiteral("%1 maps of 40 links, %2 crossings to %3")
                               .arg(kMaps)
                               .arg(counts.ours)
                               .arg(counts.others);
    return {{QStringLiteral("crossings of Automatic links : ortho's on the same places"),
             double(counts.ours) / counts.others, QStringLiteral("x"), 1.05, remark},
            {QStringLiteral("maps with more than 1.05 times the crossings of ortho and two"),
             double(counts.worse), QString(), 0, remark}};
}

} // namespace bench
