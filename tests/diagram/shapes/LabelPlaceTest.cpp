#include "diagram/shapes/LabelPlace.h"

#include "diagram/geometry/Crossing.h"
#include "diagram/geometry/Polyline.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

using namespace diagram;

namespace {

using Route = std::vector<QPointF>;

constexpr QSizeF kSize(900, 240);

struct Placed {
    Route route;
    LabelRequest request{route, false, kSize};
    std::vector<QRectF> boxes;
    std::vector<QLineF> lines;

    explicit Placed(Route points) : route(std::move(points)) { request.route = route; }
    LabelGround Within(const QRectF &area) const {
        LabelGround ground;
        std::ranges::copy_if(boxes, std::back_inserter(ground.boxes),
                             [&](const QRectF &box) { return box.intersects(area); });
        std::ranges::copy_if(lines, std::back_inserter(ground.lines),
                             [&](const QLineF &line) { return RunsThrough(area, line.p1(), line.p2()); });
        return ground;
    }
    LabelGrounds Grounds() const {
        return [this](const QRectF &area) { return Within(area); };
    }
    LabelPlace Place() const { return PlaceLabel(request, Grounds()); }
    // Takes one thing away.
    LabelGround Free(std::size_t which) {
        LabelGround freed;
        if (which < boxes.size()) {
            freed.boxes.push_back(boxes[which]);
            boxes.erase(boxes.begin() + std::ptrdiff_t(which));
        } else if (which < boxes.size() + lines.size()) {
            which -= boxes.size();
            freed.lines.push_back(lines[which]);
            lines.erase(lines.begin() + std::ptrdiff_t(which));
        }
        return freed;
    }
    QRectF Box() const {
        QRectF box(QPointF(), request.size);
        box.moveCenter(Place().middle);
        return box;
    }
    bool IsOnTheRoute() const {
        const QRectF box = Box().adjusted(-1, -1, 1, 1);
        for (std::size_t i = 1; i < route.size(); ++i)
            if (RunsThrough(box, route[i - 1], route[i])) return true;
        return false;
    }
};

} // namespace

TEST(LabelPlace, StandsInTheMiddleOfAWayThatIsFree) {
    EXPECT_EQ(Placed({{0, 0}, {6000, 0}}).Box().center(), QPointF(3000, 0));
    EXPECT_EQ(Placed({{0, 0}, {0, 2000}, {4000, 2000}, {4000, 4000}}).Box().center(), QPointF(2000, 2000));
}

TEST(LabelPlace, LeavesABendForTheMiddleOfASegment) {
    Placed placed({{0, 0}, {4000, 0}, {4000, 4000}});
    EXPECT_EQ(placed.Box().center(), QPointF(2000, 0));
}

TEST(LabelPlace, TakesASegmentThatIsLongEnough) {
    Placed placed({{0, 0}, {0, 2000}, {500, 2000}, {500, 4000}});
    const QRectF box = placed.Box();
    EXPECT_TRUE(box.center().x() == 0 || box.center().x() == 500) << box.center().x();
    for (const QPointF &bend : {placed.route[1], placed.route[2]}) EXPECT_FALSE(box.contains(bend));
}

TEST(LabelPlace, LeavesAHeadInTheMiddle) {
    Placed placed({{0, 0}, {6000, 0}});
    placed.request.middleHead = 200;
    const QRectF box = placed.Box();
    EXPECT_TRUE(box.left() >= 3100 || box.right() <= 2900) << box.left();
    EXPECT_TRUE(placed.IsOnTheRoute());
}

TEST(LabelPlace, LeavesTheHeadsOfAShortWayByStandingBesideIt) {
    Placed placed({{0, 0}, {0, 400}});
    placed.request.destinationHead = 200;
    const QRectF box = placed.Box();
    EXPECT_FALSE(placed.IsOnTheRoute());
    EXPECT_EQ(box.center().y(), 200);
    EXPECT_NEAR(std::min(std::abs(box.left()), std::abs(box.right())), 87, 1); // past the head
}

TEST(LabelPlace, LeavesANodeAndAnotherLabel) {
    Placed placed({{0, 0}, {9000, 0}});
    placed.boxes = {{4000, -200, 800, 400}, {4900, -100, 600, 200}};
    const QRectF box = placed.Box();
    for (const QRectF &other : placed.boxes) EXPECT_FALSE(box.intersects(other));
    EXPECT_TRUE(placed.IsOnTheRoute());
}

TEST(LabelPlace, LeavesALinkThatCrosses) {
    Placed placed({{0, 0}, {9000, 0}});
    placed.lines = {{4500, -3000, 4500, 3000}};
    EXPECT_FALSE(RunsThrough(placed.Box(), {4500, -3000}, {4500, 3000}));
    EXPECT_TRUE(placed.IsOnTheRoute());
}

TEST(LabelPlace, StandsBesideOneOfTwoUprightLinksOnTheOuterSide) {
    Placed placed({{0, 0}, {0, 3000}});
    placed.lines = {{180, 0, 180, 3000}};
    EXPECT_LT(placed.Box().right(), 0);
}

TEST(LabelPlace, CoversAsLittleAsItCanWhereNothingIsFree) {
    Placed placed({{0, 0}, {3000, 0}});
    placed.boxes = {{-2000, -2000, 4300, 4000}, {2300, -2000, 5000, 1900}};
    const QRectF box = placed.Box();
    EXPECT_FALSE(box.intersects(placed.boxes[0]));
}

TEST(LabelPlace, ACurveHasNoBends) {
    Route route;
    for (int i = 0; i <= 16; ++i) route.emplace_back(i * 100, std::sin(i / 5.0) * 400);
    Placed placed(route);
    placed.request.curved = true;
    placed.request.size = QSizeF(300, 200);
    const QPointF middle = PlaceOnRoute(route, RouteLength(route) / 2).point;
    EXPECT_EQ(placed.Box().center(), middle);
    placed.boxes = {QRectF(middle - QPointF(50, 50), QSizeF(100, 100))};
    EXPECT_FALSE(placed.Box().intersects(placed.boxes[0]));
    EXPECT_TRUE(placed.IsOnTheRoute());
}

TEST(LabelPlace, AWayWithoutLengthHasAPlaceToo) {
    Placed placed({{10, 20}, {10, 20}});
    EXPECT_EQ(placed.Box().center(), QPointF(10, 20));
    placed.boxes = {{0, 0, 100, 100}};
    EXPECT_FALSE(placed.Box().intersects(placed.boxes[0]));
}

namespace {

struct Random {
    unsigned state;
    int Roll(int most) {
        state = state * 1664525U + 1013904223U;
        return int(state >> 8) % most;
    }
    QPointF Spot(int most) {
        const double x = Roll(most), y = Roll(most);
        return {x, y};
    }
};

// A route of two bends at most, among boxes and lines.
struct Crowded {
    Random random;
    Placed placed;

    explicit Crowded(unsigned seed) : random{seed * 7919 + 1}, placed(RandomRoute()) {
        for (int i = 0; i < 6; ++i)
            placed.boxes.emplace_back(random.Spot(4000), QSizeF(random.Roll(1200), random.Roll(1200)));
        for (int i = 0; i < 6; ++i) placed.lines.emplace_back(random.Spot(4000), random.Spot(4000));
    }
    Route RandomRoute() {
        Route route{random.Spot(4000), random.Spot(4000)};
        while (random.Roll(2) && route.size() < 4) route.push_back(random.Spot(4000));
        return route;
    }
};

bool IsLookedAt(const LabelPlace &place, const QRectF &box) {
    return std::ranges::any_of(place.looked, [&](const QRectF &area) { return area.intersects(box); });
}
bool IsLookedAt(const LabelPlace &place, const QLineF &line) {
    return std::ranges::any_of(place.looked,
                               [&](const QRectF &area) { return RunsThrough(area, line.p1(), line.p2()); });
}

} // namespace

TEST(LabelPlace, WhatGoesWhereItDidntLookChangesNothing) {
    int gone = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        Crowded map(seed);
        const LabelPlace place = map.placed.Place();
        gone +=
            int(std::erase_if(map.placed.boxes, [&](const auto &box) { return !IsLookedAt(place, box); }));
        gone +=
            int(std::erase_if(map.placed.lines, [&](const auto &line) { return !IsLookedAt(place, line); }));
        ASSERT_EQ(map.placed.Place().middle, place.middle) << seed;
    }
    EXPECT_GT(gone, 100);
}

TEST(LabelPlace, WhatComesButNotNearChangesNothing) {
    int come = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        Crowded map(seed);
        const QPointF middle = map.placed.Place().middle;
        const QRectF room = map.placed.Box().adjusted(-kLabelGap, -kLabelGap, kLabelGap, kLabelGap);
        for (int i = 0; i < 6; ++i) {
            const QRectF box(map.random.Spot(4000), QSizeF(map.random.Roll(900), map.random.Roll(900)));
            const QLineF line(map.random.Spot(4000), map.random.Spot(4000));
            if (!box.intersects(room)) map.placed.boxes.push_back(box), ++come;
            if (!RunsThrough(room, line.p1(), line.p2())) map.placed.lines.push_back(line), ++come;
        }
        ASSERT_EQ(map.placed.Place().middle, middle) << seed;
    }
    EXPECT_GT(come, 1000);
}

// Whatever goes: the label is said to stay only where it does, and mostly where it does.
TEST(LabelPlace, IsKnownToStayWithoutLookingForAnother) {
    int kept = 0, moved = 0, looked = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        const Crowded whole(seed);
        const LabelPlace place = whole.placed.Place();
        for (std::size_t i = 0; i < whole.placed.boxes.size() + whole.placed.lines.size(); ++i) {
            Crowded map(seed);
            const LabelGround freed = map.placed.Free(i);
            const bool stays = map.placed.Place().middle == place.middle;
            const bool keeps = KeepsPlace(map.placed.request, place, freed, map.placed.Grounds());
            ASSERT_TRUE(stays || !keeps) << seed << " without " << i;
            kept += keeps, moved += !stays, looked += stays && !keeps;
        }
    }
    EXPECT_GT(moved, 100);
    EXPECT_GT(kept, 10 * looked);
}

TEST(LabelPlace, StandsWhereItHasLooked) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const Crowded map(seed);
        const LabelPlace place = map.placed.Place();
        const QRectF box = map.placed.Box();
        ASSERT_TRUE(std::ranges::any_of(place.looked, [&](const QRectF &area) { return area.contains(box); }))
            << seed;
    }
}
