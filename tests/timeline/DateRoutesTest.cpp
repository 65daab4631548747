#include "timeline/DateRoutes.h"

#include "diagram/model/Calendar.h"
#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/MapSchema.h"
#include "document/Tags.h"
#include "support/Files.h"
#include "tests/document/ProgramFolder.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AdjustLinks.h"
#include "timeline/Arrange.h"

namespace timeline::testing {

namespace {

// March 2004 at the top, 3100 wide and 500 high: the 14th is the slot from 1400 to 1500.
class DateRoutes : public TimelineTest {
protected:
    DateRoutes() {
        Template(3100, 500).SetForeColor(0x6A5444);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
    }
    diagram::Link &Date(const QRectF &box) {
        node.SetBounds(float(box.left()), float(box.top()), float(box.width()), float(box.height()));
        AddTimelineLink(window, flow, node, QStringLiteral("14 March 2004"));
        return *flow.Links().front();
    }
    static std::vector<diagram::Point> RouteOf(diagram::Link &link) { return link.Points().All(); }
    diagram::Node &node = UserNode();
};

using Route = std::vector<diagram::Point>;

} // namespace

TEST_F(DateRoutes, ANewLinkIsThinAndInTheColourOfTheMonths) {
    const diagram::Link &link = Date({1000, 2000, 1000, 500});
    EXPECT_TRUE(diagram::IsQuietDateLink(link));
    EXPECT_EQ(link.DrawWidth(), 1);
    EXPECT_EQ(link.LineColor(), 0x6A5444);
    EXPECT_EQ(link.DrawStyle(), 0);
}

TEST_F(DateRoutes, StraightUpToADayOverTheNode) {
    diagram::Link &link = Date({1000, 2000, 1000, 500});
    EXPECT_EQ(RouteOf(link), (Route{{1450, 2000}, {1450, 2000}, {1450, 500}}));
}

TEST_F(DateRoutes, ElseWithOneBendFromTheSideThatFacesTheDay) {
    EXPECT_EQ(RouteOf(Date({4000, 2000, 1000, 500})), (Route{{4000, 2250}, {1450, 2250}, {1450, 500}}));
    node.SetLeft(0);
    AdjustLinks(node, true);
    EXPECT_EQ(RouteOf(*flow.Links().front()), (Route{{1000, 2250}, {1450, 2250}, {1450, 500}}));
}

TEST_F(DateRoutes, BesideTheStripWhereTheNodeIsLevelWithIt) {
    EXPECT_EQ(RouteOf(Date({6000, 0, 1000, 480})),
              (Route{{6500, 480}, {6500, 1190}, {1450, 1190}, {1450, 500}}));
    Set(document::tags::kTimelineAlign, QStringLiteral("4"));
    UpdateTimeLineNodes(window, flow, true);
    const float strip = flow.Links().front()->Destination().Top();
    node.SetTop(strip - 100);
    AdjustLinks(node, true);
    const float level = strip - 540 - 150;
    EXPECT_EQ(RouteOf(*flow.Links().front()),
              (Route{{6500, strip - 100}, {6500, level}, {1450, level}, {1450, strip}}));
}

TEST_F(DateRoutes, OtherLinksCrossTheMonths) {
    Set(document::tags::kTimelineAlign, QStringLiteral("4"));
    Date({6000, 2000, 1000, 500});
    const float strip = flow.Links().front()->Destination().Top();
    diagram::Node &above = flow.Nodes().Add(1000, strip - 3000, 1000, 500);
    diagram::Node &below = flow.Nodes().Add(1200, strip + 3000, 1000, 500);
    diagram::Link &link = above.Links().Add(below);
    EXPECT_EQ(link.Route().size(), 2U) << "straight, not round them";
    flow.Nodes().Add(1100, strip + 1500, 1000, 500);
    EXPECT_GT(link.Route().size(), 2U) << "but round a node";
}

TEST_F(DateRoutes, RoundANodeThatStandsInTheWay) {
    flow.Nodes().Add(2500, 1900, 600, 700);
    EXPECT_EQ(RouteOf(Date({4000, 2000, 1000, 500})),
              (Route{{4500, 2000}, {4500, 1850}, {1450, 1850}, {1450, 500}}))
        << "it comes too near there";
}

TEST_F(DateRoutes, AStripThatRunsDownIsMetFromItsSide) {
    Set(document::tags::kTimelineAlign, QStringLiteral("0"));
    Template(1000, 3100);
    EXPECT_EQ(RouteOf(Date({4000, 1000, 1000, 1000})), (Route{{4000, 1450}, {4000, 1450}, {1000, 1450}}));
    node.SetTop(4000);
    AdjustLinks(node, false);
    EXPECT_EQ(RouteOf(*flow.Links().front()), (Route{{4500, 4000}, {4500, 1450}, {1000, 1450}}));
}

TEST_F(DateRoutes, LinksOfMapsFromElsewhereKeepTheirLook) {
    diagram::Link &link = Date({4000, 2000, 1000, 500});
    link.SetStyle(0);
    link.SetDrawWidth(3);
    link.Points().Assign({{4000, 2250}, {1450, 500}});
    Arrange();
    EXPECT_EQ(link.Style(), 0);
    EXPECT_EQ(link.DrawWidth(), 3);
    EXPECT_EQ(link.Points().Count(), 2);
    EXPECT_FALSE(diagram::IsQuietDateLink(link));
}

TEST_F(DateRoutes, AFrameAroundTheNodeIsNotInItsWay) {
    flow.Nodes().Add(600, 1800, 5000, 3000);
    EXPECT_EQ(RouteOf(Date({4000, 2000, 1000, 500})), (Route{{4000, 2250}, {1450, 2250}, {1450, 500}}));
}

TEST_F(DateRoutes, TheFrameOfAnotherLaneIsNotInItsWay) {
    diagram::Node &frame = flow.Nodes().Add(600, 900, 5000, 1000);
    diagram::Node &held = flow.Nodes().Add(2500, 1000, 600, 400);
    diagram::Link &link = Date({1000, 3000, 1000, 500});
    EXPECT_EQ(RouteOf(link), (Route{{1450, 3000}, {1450, 3000}, {1450, 500}}));
    EXPECT_GT(link.Zorder(), frame.ZOrder());
    EXPECT_GT(link.Zorder(), held.ZOrder());
}

TEST_F(DateRoutes, ALargeNodeThatHoldsNoOtherIsInItsWay) {
    const diagram::Node &large = flow.Nodes().Add(600, 900, 5000, 1000);
    const diagram::Link &link = Date({1000, 3000, 1000, 500});
    EXPECT_LT(link.Zorder(), large.ZOrder());
}

TEST_F(DateRoutes, LiesBelowTheNodesThroughWhichItMustRun) {
    diagram::Node &frame = flow.Nodes().Add(0, 1000, 5000, 5000),
                  &met = flow.Nodes().Add(1000, 1200, 900, 500);
    const diagram::Link &link = Date({1000, 3000, 1000, 500});
    EXPECT_LT(link.Zorder(), met.ZOrder());
    EXPECT_GT(link.Zorder(), frame.ZOrder());
}

TEST_F(DateRoutes, SavedAndOpenedTheyLookAndRunTheSame) {
    const document::testing::ProgramFolder folder;
    diagram::Node &aside = UserNode(), &blocked = UserNode();
    aside.SetBounds(6000, 4000, 1000, 500);
    blocked.SetBounds(6000, 2000, 1000, 500);
    flow.Nodes().Add(2500, 1900, 600, 700);
    Date({1000, 2000, 1000, 500});
    AddTimelineLinks(
        window, flow,
        {{&aside, QStringLiteral("20 March 2004")}, {&blocked, QStringLiteral("17 March 2004")}});
    std::vector<Route> routes;
    std::vector<int> styles;
    for (const auto &link : flow.Links()) routes.push_back(RouteOf(*link)), styles.push_back(link->Style());
    window.clsSettings().SetDatabase(folder.File(QStringLiteral("plan.map")));
    ASSERT_TRUE(document::DoSave(window));
    document::MemoryWindow other(desktop.Get(), document::EmptyPools{});
    other.clsSettings().SetDatabase(folder.File(QStringLiteral("plan.map")));
    document::DoLoad(other);
    diagram::Surface &again = other.AddFlow1()[0];
    for (int pass = 0; pass < 2; ++pass) {
        ASSERT_EQ(again.Links().size(), 3u);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(RouteOf(*again.Links()[i]), routes[i]) << i << pass;
            EXPECT_EQ(again.Links()[i]->Style(), styles[i]) << i;
            EXPECT_TRUE(diagram::IsQuietDateLink(*again.Links()[i])) << i;
        }
        ArrangeTimeLineNodes(other, again, kStoredArrangement);
    }
    support::SetProgramPath(QString());
}

} // namespace timeline::testing
