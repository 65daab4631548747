// Rerouting while a node with 20 links is dragged through the middle of 500 nodes and 800 links, nudging when
// it is let go among 1,000 links, and all of them at once; labels while a node is dragged among 1,000
// labelled links; and, over generated maps, how many links of each style run through nodes.
#include "benchmarks/GeneratedMap.h"
#include "diagram/edit/History.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Routing.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Obstacles.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

namespace {

constexpr int kNodes = 500, kLinks = 800, kManyLinks = 1000, kLinksOfHub = 20, kColumns = 25;
constexpr double kPitchX = 2400, kPitchY = 1800; // twips
constexpr int kSteps = 200;                      // there and back again

// A grid that isn't quite one, and links of all orthogonal styles with more than one bend, most of them to
// nodes near by.
struct Map {
    explicit Map(int links = kLinks) {
        diagram::AttachHistory(surface);
        for (int i = 0; i < kNodes; ++i)
            nodes.push_back(&surface.Nodes().Add(float(i % kColumns * kPitchX + Roll(600)),
                                                 float(i / kColumns * kPitchY + Roll(500)),
                                                 float(900 + Roll(500)), float(500 + Roll(500))));
        hub = nodes[size_t(kNodes / 2 + kColumns / 2)];
        for (int i = 0; i < kLinksOfHub; ++i) Join(*hub, *nodes[size_t(Roll(kNodes))]);
        while (int(surface.Links().size()) < links) {
            const int from = Roll(kNodes), to = from + Roll(5) - 2 + kColumns * (Roll(5) - 2);
            if (to >= 0 && to < kNodes) Join(*nodes[size_t(from)], *nodes[size_t(to)]);
        }
        surface.Routes().Recalculate();
    }
    int Roll(int below) { return int(random() % unsigned(below)); }
    void Join(diagram::Node &from, diagram::Node &to) {
        constexpr int kFirst = 4, kStyles = 10; // the orthogonal styles with more than one bend
        if (&from != &to) from.Links().Add(to).SetStyle(kFirst + Roll(kStyles));
    }

    std::mt19937 random{3};
    diagram::Surface surface;
    std::vector<diagram::Node *> nodes;
    diagram::Node *hub = nullptr;
};

bool IsMet(const diagram::Link &link) {
    const auto &route = link.Route();
    for (const diagram::Node &node : link.Owner().Nodes()) {
        if (&node == &link.Source() || &node == &link.Destination()) continue;
        if (diagram::Overlap(node.Bounds(), link.Source().Bounds())) continue;
        if (diagram::Overlap(node.Bounds(), link.Destination().Bounds())) continue;
        for (size_t i = 1; i < route.size(); ++i)
            if (diagram::Meets(node.Bounds(), diagram::ToQPointF(route[i - 1]), diagram::ToQPointF(route[i])))
                return true;
    }
    return false;
}

// The counter "through": links of four segments or more that run through a node after the last step.
void RouteDrag(benchmark::State &state) {
    Map map;
    const diagram::HeldItems held({map.hub});
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % kSteps;
        const double share = double(step < kSteps / 2 ? step : kSteps - step) / kSteps;
        held.MoveBy(map.surface, QPointF(9000 * share + 30, 6000 * share));
        map.surface.Routes().Recalculate();
    }
    int through = 0;
    constexpr int kFirstOfFour = 6; // the styles from here on have four segments or more
    for (const auto &link : map.surface.Links()) through += link->Style() >= kFirstOfFour && IsMet(*link);
    state.counters["through"] = through;
    held.Restore(map.surface);
}
BENCHMARK(RouteDrag)->Unit(benchmark::kMillisecond);

struct Piece {
    const diagram::Link *link;
    std::size_t place;
    diagram::Point from, to;
    bool Level() const { return from.y == to.y; }
    float At() const { return Level() ? from.y : from.x; }
    float Low() const { return Level() ? std::min(from.x, to.x) : std::min(from.y, to.y); }
    float High() const { return Level() ? std::max(from.x, to.x) : std::max(from.y, to.y); }
};

// The pieces of all routes, but for those without a length.
std::vector<Piece> PiecesOf(const diagram::Surface &surface) {
    std::vector<Piece> pieces;
    for (const auto &link : surface.Links()) {
        const auto &route = link->Route();
        for (size_t i = 1; i < route.size(); ++i)
            if (route[i] != route[i - 1]) pieces.push_back({link.get(), i, route[i - 1], route[i]});
    }
    return pieces;
}

// The links of a tree share its trunk, so these two may lie on each other.
bool AreOfOneTree(const Piece &a, const Piece &b) {
    return &a.link->Source() == &b.link->Source() && a.link->Style() == b.link->Style() && a.place <= 2 &&
           b.place <= 2;
}

bool LieOnEachOther(const Piece &a, const Piece &b) {
    return a.Level() == b.Level() && std::abs(a.At() - b.At()) < 10 &&
           std::min(a.High(), b.High()) - std::max(a.Low(), b.Low()) > 30 && !AreOfOneTree(a, b);
}

bool Cross(const Piece &a, const Piece &b) {
    return a.Level() != b.Level() && a.At() > b.Low() && a.At() < b.High() && b.At() > a.Low() &&
           b.At() < a.High();
}

void CountPieces(const diagram::Surface &surface, benchmark::State &state) {
    const std::vector<Piece> pieces = PiecesOf(surface);
    int overlaps = 0, crossings = 0, bends = 0;
    for (size_t i = 0; i < pieces.size(); ++i) {
        bends += i > 0 && pieces[i].link == pieces[i - 1].link && pieces[i].Level() != pieces[i - 1].Level();
        for (size_t j = 0; j < i; ++j) {
            if (pieces[i].link == pieces[j].link) continue;
            overlaps += LieOnEachOther(pieces[i], pieces[j]), crossings += Cross(pieces[i], pieces[j]);
        }
    }
    state.counters["overlaps"] = overlaps;
    state.counters["crossings"] = crossings;
    state.counters["bends"] = double(bends) / double(surface.Links().size());
}

// What the release of a node takes beyond the last step of its drag.
void RouteRelease(benchmark::State &state) {
    Map map(kManyLinks);
    map.surface.Routes().TidyAll();
    for (auto _ : state) {
        state.PauseTiming();
        diagram::Node &node = *map.nodes[size_t(map.Roll(kNodes))];
        map.surface.BeginAction(0);
        node.SetLeft(node.Left() + float(map.Roll(900) - 450));
        map.surface.Routes().Recalculate();
        state.ResumeTiming();
        map.surface.EndAction();
    }
    CountPieces(map.surface, state);
}
BENCHMARK(RouteRelease)->Unit(benchmark::kMillisecond);

// Routes and nudges all links at once. Counts what lies on each other then.
void RouteWhole(benchmark::State &state) {
    for (auto _ : state) {
        state.PauseTiming();
        Map map(kManyLinks);
        for (const auto &link : map.surface.Links()) {
            const int style = link->Style();
            link->SetStyle(style ^ 1); // another style and back, so that the route is out of date
            link->SetStyle(style);
        }
        state.ResumeTiming();
        map.surface.Routes().TidyAll();
        state.PauseTiming();
        CountPieces(map.surface, state);
        state.ResumeTiming();
    }
}
BENCHMARK(RouteWhole)->Unit(benchmark::kMillisecond);

struct LabelledMap : Map {
    LabelledMap() {
        while (surface.Links().size() < kManyLinks)
            Join(*nodes[size_t(Roll(kNodes))], *nodes[size_t(Roll(kNodes))]);
        for (const auto &link : surface.Links()) link->SetText(QStringLiteral("approved"));
        scene.TakeDamage();
    }
    diagram::Scene scene{surface};
};

// A step of a drag of the node in the middle, or of all nodes, with a label on each of 1,000 links.
void LabelDrag(benchmark::State &state) {
    LabelledMap map;
    const diagram::HeldItems held(state.range(0) ? map.nodes : std::vector<diagram::Node *>{map.hub});
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % kSteps;
        held.MoveBy(map.surface, QPointF(30 * step, 20 * step));
        benchmark::DoNotOptimize(map.scene.TakeDamage());
    }
    held.Restore(map.surface);
}
BENCHMARK(LabelDrag)->ArgName("all")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// What the labels cost when the node in the middle is let go, after a step of the drag.
void LabelRelease(benchmark::State &state) {
    LabelledMap map;
    int step = 0;
    for (auto _ : state) {
        state.PauseTiming();
        {
            const diagram::HeldItems held({map.hub});
            held.MoveBy(map.surface, QPointF(step % 2 ? -600 : 600, step % 4 < 2 ? 400 : -400));
            map.scene.TakeDamage();
        }
        ++step;
        state.ResumeTiming();
        benchmark::DoNotOptimize(map.scene.TakeDamage());
    }
}
BENCHMARK(LabelRelease)->Iterations(60)->Unit(benchmark::kMillisecond);

constexpr int kMaps = 200;

// Routes all links of the maps; counts those that run through a node, and the bends of a link.
void RouteGenerated(benchmark::State &state) {
    double links = 0, through = 0, bends = 0;
    for (auto _ : state) {
        links = through = bends = 0;
        for (unsigned seed = 1; seed <= kMaps; ++seed) {
            diagram::Surface surface;
            bench::FillGenerated(surface, seed, int(state.range(0)));
            for (const auto &link : surface.Links()) {
                ++links, through += IsMet(*link), bends += double(link->Route().size() - 2);
            }
        }
    }
    state.counters["through"] = through;
    state.counters["links"] = links;
    state.counters["bends"] = bends / links;
}

void EachStyle(benchmark::internal::Benchmark *figure) {
    for (const diagram::LinkStyleRow &row : diagram::LinkStyleTable()) figure->Arg(row.value);
    figure->Arg(diagram::kAutomaticStyle);
}
BENCHMARK(RouteGenerated)->ArgName("style")->Apply(EachStyle)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
