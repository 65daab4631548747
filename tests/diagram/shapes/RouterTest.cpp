#include "diagram/shapes/Router.h"

#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Shapes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <QPainterPathStroker>
#include <random>

using namespace diagram;

namespace {

constexpr int kRectangle = 1, kEllipse = 0, kDiamond = 3;

RouteEnd Box(double left, double top, double width = 1000, double height = 600, int shape = kRectangle) {
    return {QRectF(left, top, width, height), shape, 0};
}

RouteRequest Between(int style, const RouteEnd &from, const RouteEnd &to) {
    RouteRequest request;
    request.style = style;
    request.source = from;
    request.destination = to;
    return request;
}

bool LiesOnOutline(const RouteEnd &end, const Point &point) {
    QPainterPathStroker stroker;
    stroker.setWidth(6);
    return stroker.createStroke(Outline(end.shape, end.orientation, end.box)).contains(ToQPointF(point));
}

bool RunsThrough(const QRectF &box, const Point &from, const Point &to) {
    const QRectF inside = box.adjusted(1, 1, -1, -1);
    for (int i = 0; i <= 50; ++i) {
        if (inside.contains(ToQPointF(from) + (ToQPointF(to) - ToQPointF(from)) * (i / 50.0))) return true;
    }
    return false;
}

int SegmentsThroughBoxes(const RouteRequest &request, const std::vector<Point> &route) {
    int count = 0;
    for (std::size_t i = 1; i < route.size(); ++i) {
        count += RunsThrough(request.source.box, route[i - 1], route[i]);
        count += RunsThrough(request.destination.box, route[i - 1], route[i]);
    }
    return count;
}

std::string Text(const RouteRequest &request, const std::vector<Point> &route) {
    const auto box = [](const QRectF &r) {
        return QStringLiteral("[%1 %2 %3 %4]").arg(r.left()).arg(r.top()).arg(r.right()).arg(r.bottom());
    };
    QString text = QStringLiteral("style %1 ").arg(request.style) + box(request.source.box) +
                   box(request.destination.box);
    for (const Point &p : route) text += QStringLiteral(" (%1 %2)").arg(p.x).arg(p.y);
    return text.toStdString();
}

void ExpectDirections(const RouteRequest &request, const std::vector<Point> &route) {
    const std::string_view directions = FindLinkStyle(request.style)->directions;
    ASSERT_EQ(route.size(), directions.size() + 1);
    for (std::size_t i = 0; i < directions.size(); ++i) {
        if (directions[i] == 'H') {
            ASSERT_EQ(route[i].y, route[i + 1].y) << Text(request, route);
        } else {
            ASSERT_EQ(route[i].x, route[i + 1].x) << Text(request, route);
        }
    }
}

class RouterStyle : public ::testing::TestWithParam<int> {
protected:
    const LinkStyleRow &Row() const { return *FindLinkStyle(GetParam()); }
    bool IsOrthogonal() const { return Row().form == LinkForm::Orthogonal; }
    float Real(float lowest, float highest) {
        return std::uniform_real_distribution<float>(lowest, highest)(engine_);
    }
    std::mt19937 engine_{5};
};

} // namespace

TEST_P(RouterStyle, HasItsPointsAndDirectionsAndEndsOnTheOutlines) {
    for (const ShapeRow &shape : ShapeTable()) {
        for (int round = 0; round < 60; ++round) {
            RouteRequest request = Between(
                GetParam(),
                Box(Real(-5e3F, 5e3F), Real(-5e3F, 5e3F), Real(50, 3e3F), Real(50, 3e3F), shape.value),
                Box(Real(-5e3F, 5e3F), Real(-5e3F, 5e3F), Real(50, 3e3F), Real(50, 3e3F)));
            request.source.orientation = round % 4;
            const auto route = FindRoute(request);
            ASSERT_EQ(int(route.size()), RoutedPointCount(GetParam()));
            if (IsOrthogonal()) ExpectDirections(request, route);
            if (request.source.box.intersects(request.destination.box)) continue;
            ASSERT_TRUE(LiesOnOutline(request.destination, route.back()))
                << shape.name << Text(request, route);
            if (shape.form != ShapeForm::Path) {
                ASSERT_TRUE(LiesOnOutline(request.source, route.front()))
                    << shape.name << Text(request, route);
            }
        }
    }
}

TEST_P(RouterStyle, GoesRoundBoxesThatStandApart) {
    for (int round = 0; round < 3000; ++round) {
        const RouteRequest request =
            Between(GetParam(), Box(0, 0, Real(300, 3000), Real(300, 3000)),
                    Box(Real(-9e3F, 9e3F), Real(-9e3F, 9e3F), Real(300, 3000), Real(300, 3000)));
        const QRectF &from = request.source.box, &to = request.destination.box;
        if (from.adjusted(-500, -500, 500, 500).intersects(to)) continue;
        const auto route = FindRoute(request);
        if (Row().form == LinkForm::Bezier) continue;
        ASSERT_EQ(SegmentsThroughBoxes(request, route), 0) << Text(request, route);
    }
}

TEST_P(RouterStyle, ALinkToTheSameNodeIsALoopOutsideOfIt) {
    RouteRequest request = Between(GetParam(), Box(0, 0), Box(0, 0));
    request.sameNode = true;
    const auto route = FindRoute(request);
    if (IsOrthogonal() && Row().directions.size() > 2) ExpectDirections(request, route);
    EXPECT_TRUE(LiesOnOutline(request.source, route.front()));
    EXPECT_TRUE(LiesOnOutline(request.source, route.back()));
    EXPECT_EQ(SegmentsThroughBoxes(request, route), 0) << Text(request, route);
    EXPECT_GE(route.size(), 4U);
}

TEST_P(RouterStyle, BendsOfALoopStayWhereTheUserPutThem) {
    if (!IsOrthogonal()) return;
    RouteRequest request = Between(GetParam(), Box(0, 0), Box(0, 0));
    request.sameNode = true;
    auto route = FindRoute(request);
    for (Point &point : route) point.x += point.x > 1000 ? 200 : 0;
    request.old = route;
    request.keepBends = true;
    EXPECT_EQ(FindRoute(request), route) << Text(request, route);
}

TEST_P(RouterStyle, KeptBendsStayWhenTheDestinationMoves) {
    RouteRequest request = Between(GetParam(), Box(0, 0), Box(6000, 5000));
    auto route = FindRoute(request);
    if (route.size() < 4) route = {route.front(), {2000, 3000}, {3000, 2000}, route.back()};
    if (IsOrthogonal() && route.size() != Row().directions.size() + 1) return;
    request.old = route;
    request.keepBends = true;
    request.destination = Box(6900, 5400);
    const auto moved = FindRoute(request);
    ASSERT_EQ(moved.size(), route.size());
    if (IsOrthogonal()) ExpectDirections(request, moved);
    for (std::size_t i = 1; i + 2 < route.size(); ++i) EXPECT_EQ(moved[i], route[i]) << i;
    EXPECT_TRUE(LiesOnOutline(request.source, moved.front()));
    EXPECT_TRUE(LiesOnOutline(request.destination, moved.back())) << Text(request, moved);
}

TEST_P(RouterStyle, BoxesOnTopOfEachOtherAndWithoutSizeStillHaveAWay) {
    for (const RouteEnd &end :
         {Box(0, 0, 0, 0), Box(0, 0), Box(300, 100), Box(0, 0, 1e8, 1e8), Box(-1e8, -1e8, 0, 1e8)}) {
        for (int shape : {kEllipse, kRectangle, kDiamond, 68}) {
            RouteRequest request = Between(GetParam(), end, Box(0, 0, 1000, 600, shape));
            const auto route = FindRoute(request);
            ASSERT_GE(route.size(), 2U);
            for (const Point &point : route) ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, RouterStyle, ::testing::Range(0, 15));

TEST(Router, AStraightLinkRunsBetweenTheMiddlesAndEndsOnTheOutlines) {
    const auto route = FindRoute(Between(0, Box(0, 0, 1000, 1000, kEllipse), Box(4000, 3000, 1000, 1000)));
    ASSERT_EQ(route.size(), 2U);
    EXPECT_NEAR(route[0].x, 500 + 400, 2);
    EXPECT_NEAR(route[0].y, 500 + 300, 2);
    EXPECT_NEAR(route[1].x, 4000, 1);
    EXPECT_NEAR(route[1].y, 3125, 1);
}

TEST(Router, TheBendOfTwoLevelsLiesHalfwayBetweenTheBoxes) {
    const auto route = FindRoute(Between(4, Box(0, 0), Box(3000, 2000)));
    const std::vector<Point> expected{{500, 600}, {500, 1300}, {3500, 1300}, {3500, 2000}};
    EXPECT_EQ(route, expected);
}

TEST(Router, TwoSegmentsBetweenBoxesSideBySideAreAStraightLine) {
    const auto route = FindRoute(Between(2, Box(0, 0), Box(3000, 0)));
    const std::vector<Point> expected{{1000, 300}, {1000, 300}, {3000, 300}};
    EXPECT_EQ(route, expected);
}

TEST(Router, BoxesSideBySideAreJoinedRoundBelow) {
    const auto route = FindRoute(Between(4, Box(0, 0), Box(3000, 0)));
    ASSERT_EQ(route.size(), 4U);
    EXPECT_EQ(route[0].y, 600);
    EXPECT_GT(route[1].y, 600);
    EXPECT_EQ(route[3].y, 600);
}

TEST(Router, AnEndBesideTheMiddleLiesOnTheSlantOfADiamond) {
    RouteRequest request = Between(4, Box(0, 0, 1000, 600, kDiamond), Box(3000, 2000));
    const std::vector<Point> old{{750, 450}, {750, 1300}, {3500, 1300}, {3500, 2000}};
    request.old = old;
    request.keepBends = true;
    const auto route = FindRoute(request);
    EXPECT_EQ(route[0].x, 750);
    EXPECT_NEAR(route[0].y, 450, 1);
}

TEST(Router, ABezierLeavesAndArrivesInTheDirectionOfTheOtherBox) {
    const auto route = FindRoute(Between(1, Box(0, 0), Box(5000, 1000)));
    ASSERT_EQ(route.size(), 4U);
    EXPECT_EQ(route[0], (Point{1000, 300}));
    EXPECT_EQ(route[1].y, route[0].y);
    EXPECT_GT(route[1].x, route[0].x);
    EXPECT_EQ(route[2].y, route[3].y);
    EXPECT_LT(route[2].x, route[3].x);
}

TEST(Router, MovingABendMovesItsTwoSegments) {
    const std::vector<Point> route{{500, 600}, {500, 1300}, {3500, 1300}, {3500, 2000}};
    const auto moved = WithBendMoved(4, route, 1, {700, 1500});
    const std::vector<Point> expected{{700, 600}, {700, 1500}, {3500, 1500}, {3500, 2000}};
    EXPECT_EQ(moved, expected);
    EXPECT_EQ(WithBendMoved(0, route, 1, {700, 1500})[2], route[2]);
}
