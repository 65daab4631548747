#include "diagram/layout/RouteAnew.h"

#include "diagram/edit/History.h"
#include "diagram/model/Surface.h"

#include <gmock/gmock.h>

namespace diagram {
namespace {

struct RouteAnewTest : ::testing::Test {
    Surface surface;
    Node &from = surface.Nodes().Add(0, 0, 1500, 900), &to = surface.Nodes().Add(6000, 3000, 1500, 900);
    Link &link = from.Links().Add(to);

    RouteAnewTest() {
        AttachHistory(surface);
        link.SetStyle(4);
    }
    // Leaves the link with a route round a node that is gone.
    std::vector<Point> LeaveADetour() {
        Node &obstacle = surface.Nodes().Add(3000, 1200, 1500, 1500);
        const auto detour = link.Route();
        surface.Remove(obstacle);
        return detour;
    }
};

TEST_F(RouteAnewTest, PointsThatNoHandMadeAreTheRoutersAgain) {
    const auto routed = link.Route();
    const auto detour = LeaveADetour();
    ASSERT_NE(detour, routed);
    ASSERT_EQ(link.Route(), detour);
    EXPECT_EQ(RouteAnew(surface), 1);
    EXPECT_EQ(link.Route(), routed);
    EXPECT_EQ(link.Style(), 4);
    EXPECT_EQ(RouteAnew(surface), 0);
}

TEST_F(RouteAnewTest, BendsOfTheUsersStay) {
    auto bent = link.Route();
    bent[1].y += 300, bent[2].y += 300;
    link.Points().Assign(bent);
    link.SetOwnBends(true);
    EXPECT_EQ(RouteAnew(surface), 0);
    EXPECT_EQ(link.Route(), bent);
}

TEST_F(RouteAnewTest, OneUndoBringsTheFormerWaysBack) {
    const auto before = LeaveADetour();
    surface.BeginAction(1);
    EXPECT_EQ(RouteAnew(surface), 1);
    surface.EndAction();
    surface.Undo();
    EXPECT_EQ(link.Route(), before);
    EXPECT_EQ(link.Style(), 4);
}

TEST_F(RouteAnewTest, WaysAreNudgedApartAndStayWhenRoutedAgain) {
    std::vector<Link *> links{&link};
    for (int i = 1; i < 4; ++i) {
        links.push_back(&surface.Nodes().Add(0, float(i) * 1500, 1500, 900).Links().Add(to));
        links.back()->SetStyle(5);
    }
    RouteAnew(surface);
    for (std::size_t i = 0; i < links.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_NE(links[i]->Route().back(), links[j]->Route().back()) << "heads don't lie on each other";
    EXPECT_EQ(RouteAnew(surface), 0);
}

TEST_F(RouteAnewTest, AnEmptySurfaceHasNothingToRoute) {
    Surface empty;
    EXPECT_EQ(RouteAnew(empty), 0);
}

} // namespace
} // namespace diagram
