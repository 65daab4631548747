#include "diagram/model/RouteRequests.h"

#include "diagram/model/Surface.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <tuple>

namespace diagram {

namespace {

std::vector<QRectF> Sorted(std::vector<QRectF> boxes) {
    std::ranges::sort(boxes, {}, [](const QRectF &box) { return std::tuple(box.left(), box.top()); });
    return boxes;
}

bool Touches(const QRectF &a, const QRectF &b) {
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
}

} // namespace

// It looks into the index for some questions and remembers for others; the answers are those of going through
// all nodes, for areas without width or height as well.
TEST(NodesAround, AskedOften_FindsWhatTouchesTheArea) {
    Surface surface;
    std::mt19937 random(3);
    const auto within = [&](int from, int to) {
        return float(std::uniform_int_distribution<int>(from, to)(random));
    };
    for (int i = 0; i < 900; ++i)
        surface.Nodes().Add(within(0, 40000), within(0, 40000), within(1, 1500), within(1, 1500));
    Node &from = *surface.Nodes().begin(), &to = surface.Nodes().Item(200);
    Link &link = from.Links().Add(to);
    const LinkDraft draft(link);
    const RouteRequest request = RequestFor(draft);
    std::vector<BoxIndex::Entry> entries;
    std::vector<QRectF> obstacles;
    for (const Node &node : surface.Nodes()) {
        const QRectF box = node.Bounds();
        entries.push_back(
            {{float(box.left()), float(box.top()), float(box.right()), float(box.bottom())}, node.Id()});
        if (&node != &from && &node != &to && IsObstacleFor(request, box)) obstacles.push_back(box);
    }
    BoxIndex index;
    index.Build(entries);

    const NodesAround around(index, draft, request);
    std::size_t found = 0;
    for (int i = 0; i < 200; ++i) {
        const QRectF area(within(5000, 9000), within(5000, 9000), i % 3 ? within(0, 4000) : 0,
                          i % 4 ? within(0, 4000) : 0);
        std::vector<QRectF> boxes, expected;
        around.In(area, boxes);
        std::ranges::copy_if(obstacles, std::back_inserter(expected),
                             [&](const QRectF &box) { return Touches(box, area); });
        EXPECT_EQ(Sorted(boxes), Sorted(expected)) << i;
        found += boxes.size();
    }
    EXPECT_GT(found, 200U);
}

// Lines of any direction, level, upright and without length, come near to the same nodes as by comparing
// each.
TEST(NodesAround, AskedAlongALine_FindsWhatItComesNearTo) {
    Surface surface;
    std::mt19937 random(5);
    const auto within = [&](int from, int to) {
        return float(std::uniform_int_distribution<int>(from, to)(random));
    };
    for (int i = 0; i < 900; ++i)
        surface.Nodes().Add(within(0, 40000), within(0, 40000), within(1, 1500), within(1, 1500));
    Link &link = surface.Nodes().Item(1).Links().Add(surface.Nodes().Item(200));
    const LinkDraft draft(link);
    const RouteRequest request = RequestFor(draft);
    std::vector<BoxIndex::Entry> entries;
    for (const Node &node : surface.Nodes()) {
        const QRectF box = node.Bounds();
        entries.push_back(
            {{float(box.left()), float(box.top()), float(box.right()), float(box.bottom())}, node.Id()});
    }
    BoxIndex index;
    index.Build(entries);

    const NodesAround around(index, draft, request);
    std::size_t found = 0;
    for (int i = 0; i < 300; ++i) {
        const QPointF from(within(0, 40000), within(0, 40000));
        const QPointF to(i % 5 == 1 ? from.x() : within(0, 40000), i % 5 < 2 ? from.y() : within(0, 40000));
        const double nearness = i % 2 * 240;
        std::vector<QRectF> boxes, expected;
        around.Along(from, to, nearness, boxes);
        around.Obstacles::Along(from, to, nearness, expected);
        EXPECT_EQ(Sorted(boxes), Sorted(expected)) << i;
        found += boxes.size();
    }
    EXPECT_GT(found, 1000U);
}

} // namespace diagram
