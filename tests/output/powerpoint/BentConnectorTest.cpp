#include "output/powerpoint/BentConnector.h"

#include <gtest/gtest.h>
#include <QTransform>

namespace powerpoint::testing {

namespace {

using Route = std::vector<QPointF>;

// The route that the format's definition gives the connector: built in its box, flipped and turned about the
// middle.
Route RouteOf(const BentConnector &connector) {
    const double width = connector.box.width(), height = connector.box.height();
    Route route{{0, 0}};
    QPointF at;
    for (std::size_t i = 0; i < connector.adjusts.size(); ++i) {
        const double part = connector.adjusts[i] / 100000.0;
        i % 2 == 0 ? at.setX(width * part) : at.setY(height * part);
        route.push_back(at);
    }
    route.push_back(connector.segments % 2 ? QPointF(at.x(), height) : QPointF(width, at.y()));
    route.push_back({width, height});
    QTransform place;
    place.translate(connector.box.center().x(), connector.box.center().y());
    if (connector.turned) place.rotate(90);
    place.scale(connector.flipH ? -1 : 1, connector.flipV ? -1 : 1);
    place.translate(-width / 2, -height / 2);
    for (QPointF &point : route) point = place.map(point);
    return route;
}

void ExpectFound(const Route &route) {
    const auto found = FindBentConnector(route);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->segments, int(route.size()) - 1);
    EXPECT_GT(found->box.width(), 0);
    EXPECT_GT(found->box.height(), 0);
    const Route again = RouteOf(*found);
    ASSERT_EQ(again.size(), route.size());
    for (std::size_t i = 0; i < route.size(); ++i) {
        EXPECT_NEAR(again[i].x(), route[i].x(), 1400) << i;
        EXPECT_NEAR(again[i].y(), route[i].y(), 1400) << i;
    }
}

// The route as it is, mirrored in both directions, and all of these turned: every way a connector can lie.
void ExpectFoundAllAround(const Route &route) {
    for (const double x : {1, -1})
        for (const double y : {1, -1})
            for (const bool turned : {false, true}) {
                Route placed;
                for (const QPointF &point : route)
                    placed.push_back(turned ? QPointF(point.y() * y, point.x() * x)
                                            : QPointF(point.x() * x, point.y() * y));
                ExpectFound(placed);
            }
}

} // namespace

TEST(BentConnector, TakesTwoToFiveSegmentsInEachDirection) {
    ExpectFoundAllAround({{0, 0}, {5e5, 0}, {5e5, 3e5}});
    ExpectFoundAllAround({{0, 0}, {2e5, 0}, {2e5, 3e5}, {5e5, 3e5}});
    ExpectFoundAllAround({{0, 0}, {2e5, 0}, {2e5, 1e5}, {5e5, 1e5}, {5e5, 3e5}});
    ExpectFoundAllAround({{0, 0}, {2e5, 0}, {2e5, 1e5}, {4e5, 1e5}, {4e5, 3e5}, {5e5, 3e5}});
}

TEST(BentConnector, TakesBendsBeyondItsEnds) {
    ExpectFoundAllAround({{0, 0}, {9e5, 0}, {9e5, 3e5}, {5e5, 3e5}});
    ExpectFoundAllAround({{0, 0}, {-2e5, 0}, {-2e5, -4e5}, {6e5, -4e5}, {6e5, 3e5}});
}

TEST(BentConnector, TakesEndsInOneLine) {
    ExpectFoundAllAround({{0, 0}, {3e5, 0}, {3e5, 3e5}, {0, 3e5}});
    ExpectFoundAllAround({{0, 0}, {3e5, 0}, {3e5, 2e5}, {5e5, 2e5}, {5e5, 0}});
}

TEST(BentConnector, TellsTheNumbersOfTheFormat) {
    const auto found = FindBentConnector({{0, 0}, {250000, 0}, {250000, 400000}, {1000000, 400000}});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->adjusts, std::vector<int>{25000});
    EXPECT_EQ(found->box, QRectF(0, 0, 1000000, 400000));
    EXPECT_FALSE(found->flipH || found->flipV || found->turned);
}

TEST(BentConnector, HasNoneForOtherRoutes) {
    EXPECT_FALSE(FindBentConnector({{0, 0}, {5e5, 3e5}}));
    EXPECT_FALSE(FindBentConnector({{0, 0}, {5e5, 1e5}, {5e5, 3e5}}));
    EXPECT_FALSE(FindBentConnector({{0, 0}, {1e5, 0}, {3e5, 0}, {3e5, 1e5}}));
    EXPECT_FALSE(FindBentConnector({{0, 0}, {1, 0}, {1, 1}, {2, 1}, {2, 9e5}, {9e5, 9e5}, {9e5, 0}}));
    EXPECT_FALSE(FindBentConnector({{0, 0}}));
    EXPECT_FALSE(FindBentConnector({}));
}

} // namespace powerpoint::testing
