// How the routes of links behave among other nodes.
#include "diagram/edit/History.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Routing.h"
#include "tests/diagram/model/RouteChecks.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

constexpr int kPolyline = 0, kVHV = 4, kHVH = 5, kHVHVH = 9;

// A and B side by side with room for a node between them.
struct Pair {
    Surface surface;
    Node &a = surface.Nodes().Add(1000, 3000, 1000, 600);
    Node &b = surface.Nodes().Add(8000, 3000, 1000, 600);
    Link &link = a.Links().Add(b);
    explicit Pair(int style = kHVHVH) {
        AttachHistory(surface);
        link.SetStyle(style);
    }
    Node &AddBlock(float top = 2500) { return surface.Nodes().Add(4500, top, 1000, 1500); }
};

} // namespace

class GeneratedMap : public ::testing::TestWithParam<unsigned> {};

TEST_P(GeneratedMap, NoLinkRunsThroughANode) {
    Dice dice(GetParam());
    Surface surface;
    FillWithGaps(surface, dice, 9, 150);
    for (int i = 0; i < 40; ++i) {
        Node &from = AnyNode(surface, dice), &to = AnyNode(surface, dice);
        if (&from == &to) continue;
        Link &link = from.Links().Add(to);
        link.SetStyle(dice.Roll(6, 13));
        ASSERT_EQ(NodesOnRoute(link), 0) << Text(link);
        ASSERT_TRUE(KeepsDirections(link)) << Text(link);
    }
    for (const auto &link : surface.Links()) ASSERT_EQ(NodesOnRoute(*link), 0) << Text(*link);
}

TEST_P(GeneratedMap, NoPolylineRunsThroughANode) {
    Dice dice(GetParam());
    Surface surface;
    FillWithGaps(surface, dice, 9, 150);
    for (int i = 0; i < 40; ++i) {
        Node &from = AnyNode(surface, dice), &to = AnyNode(surface, dice);
        if (&from != &to) from.Links().Add(to).SetStyle(kPolyline);
    }
    for (const auto &link : surface.Links()) ASSERT_EQ(NodesOnRoute(*link), 0) << Text(*link);
}

INSTANTIATE_TEST_SUITE_P(Seeds, GeneratedMap, ::testing::Range(1U, 201U));

TEST(Routes, GoRoundANodeInTheWay) {
    Pair pair;
    pair.AddBlock();
    EXPECT_EQ(NodesOnRoute(pair.link), 0) << Text(pair.link);
    EXPECT_TRUE(KeepsDirections(pair.link));
}

TEST(Routes, APolylineWithNothingInItsWayIsStraight) {
    Pair pair(kPolyline);
    pair.AddBlock(3700);
    EXPECT_EQ(pair.link.Route(), (std::vector<Point>{{2000, 3300}, {8000, 3300}}));
}

TEST(Routes, APolylineGoesRoundANodeInItsWayWithOneBend) {
    Pair pair(kPolyline);
    pair.AddBlock();
    EXPECT_EQ(NodesOnRoute(pair.link), 0) << Text(pair.link);
    EXPECT_EQ(pair.link.Route().size(), 3U) << Text(pair.link);
    EXPECT_FALSE(pair.link.OwnBends());
}

TEST(Routes, APolylineTakesTwoBendsRatherThanALongWay) {
    Pair pair(kPolyline);
    pair.surface.Nodes().Add(2300, 2000, 5400, 2600);
    EXPECT_EQ(NodesOnRoute(pair.link), 0) << Text(pair.link);
    EXPECT_EQ(pair.link.Route().size(), 4U) << Text(pair.link);
}

TEST(Routes, PolylinesSideBySideGoRoundANodeOneOutsideOfTheOther) {
    Pair pair(kPolyline);
    Link &other = pair.b.Links().Add(pair.a);
    pair.AddBlock();
    ASSERT_EQ(NodesOnRoute(pair.link) + NodesOnRoute(other), 0);
    ASSERT_EQ(pair.link.Route().size(), 3U);
    ASSERT_EQ(other.Route().size(), 3U);
    EXPECT_GT(std::abs(pair.link.Route()[1].y - other.Route()[1].y), 100);
}

TEST(Routes, APolylineThatIsBlockedEverywhereRunsThrough) {
    Pair pair(kPolyline);
    for (float x : {3000.0F, 3600.0F}) pair.surface.Nodes().Add(x, -900000, 800, 1800000);
    pair.surface.Nodes().Add(-900000, -900000, 1700000, 800000);
    pair.surface.Nodes().Add(-900000, 800000, 1700000, 100000);
    EXPECT_GE(pair.link.Route().size(), 2U);
}

// What a map of former times holds stays, straight through or not, until the link itself has a reason to be
// routed.
TEST(Routes, ALoadedPolylineStaysUntilItsOwnNodesMove) {
    Pair pair(kPolyline);
    const auto straight = pair.link.Route();
    Surface loaded;
    loaded.SetLoading(true);
    for (const Node &node : pair.surface.Nodes()) loaded.Restore(node.Id(), node.Data());
    Node &block = loaded.Nodes().Add(4500, 2500, 1000, 1500), &far = loaded.Nodes().Add(4500, 9000, 500, 500);
    Link &link = loaded.FindNode(pair.a.Id())->Links().Add(*loaded.FindNode(pair.b.Id()));
    link.SetAddPointsMode(true);
    link.Points().Assign(straight);
    link.SetAddPointsMode(false);
    loaded.SetLoading(false);
    EXPECT_EQ(link.Route(), straight);
    far.SetTop(9500);
    EXPECT_EQ(link.Route(), straight);
    block.SetTop(2600);
    EXPECT_EQ(link.Route(), straight);
    link.Destination().SetTop(link.Destination().Top() + 300);
    EXPECT_EQ(link.Route().size(), 2U) << "still a straight line";
    EXPECT_NE(link.Route(), straight);
}

TEST(Routes, BendsOfAPolylineAreTheRoutersWhereItWouldChooseThem) {
    Pair pair(kPolyline);
    pair.AddBlock();
    const auto round = pair.link.Route();
    const auto isOwn = [&pair](const std::vector<Point> &points) {
        Link &link = pair.a.Links().Add(pair.b);
        pair.surface.Remove(*pair.surface.Links()[0]);
        link.SetAddPointsMode(true);
        link.Points().Assign(points);
        link.SetAddPointsMode(false);
        return link.OwnBends();
    };
    EXPECT_FALSE(isOwn(round));
    auto other = round;
    other[1].y += 300;
    EXPECT_TRUE(isOwn(other));
}

TEST(Routes, BendsOfTheUserOnAPolylineDontGiveWay) {
    Pair pair(kPolyline);
    pair.link.Points().Insert(1, {5000, 3400});
    const auto route = pair.link.Route();
    pair.AddBlock();
    EXPECT_EQ(pair.link.Route(), route);
    EXPECT_TRUE(pair.link.OwnBends());
}

TEST(Routes, HiddenNodesAndThoseThatHoldAnEndAreNoObstacles) {
    Pair pair;
    const auto route = pair.link.Route();
    pair.AddBlock().SetHidden(true);
    EXPECT_EQ(pair.link.Route(), route);
    pair.surface.Nodes().Add(500, 2500, 5000, 2000);
    EXPECT_EQ(pair.link.Route(), route);
}

TEST(Routes, ANodeThatIsShownAgainIsGoneRound) {
    Pair pair;
    Node &block = pair.AddBlock();
    block.SetHidden(true);
    ASSERT_EQ(pair.link.Route()[2].y, 3300);
    block.SetHidden(false);
    EXPECT_EQ(NodesOnRoute(pair.link), 0) << Text(pair.link);
}

TEST(Routes, TakingAnObstacleAwayChangesNoWay) {
    Pair pair;
    Node &block = pair.AddBlock();
    const auto route = pair.link.Route();
    block.SetTop(9000);
    EXPECT_EQ(pair.link.Route(), route);
    pair.surface.Remove(block);
    EXPECT_EQ(pair.link.Route(), route);
}

TEST(Routes, MovingANodeReroutesItsLinksAndThoseThatItBlocksOnly) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Dice dice(seed);
        Surface surface;
        for (int i = 0; i < 40; ++i)
            surface.Nodes().Add(dice.Real(0, 20000), dice.Real(0, 20000), dice.Real(300, 1500),
                                dice.Real(300, 1500));
        for (int i = 0; i < 60; ++i)
            AnyNode(surface, dice).Links().Add(AnyNode(surface, dice)).SetStyle(dice.Roll(0, 14));
        const RoutesById before = AllRoutes(surface);
        Node &node = AnyNode(surface, dice);
        node.SetBounds(dice.Real(0, 20000), dice.Real(0, 20000), node.Width(), node.Height());
        for (const auto &link : surface.Links()) {
            if (&link->Source() == &node || &link->Destination() == &node) continue;
            const auto &old = before.at(link->Id());
            bool blocked = false;
            for (std::size_t i = 1; i < old.size(); ++i)
                blocked =
                    blocked || Meets(node.Bounds(), ToQPointF(old[i - 1]), ToQPointF(old[i]), kNearness);
            if (!blocked) {
                ASSERT_EQ(link->Route(), old) << seed;
            }
        }
    }
}

TEST(Routes, ALinkThatGivesWayBelongsToTheStepThatMadeIt) {
    Pair pair;
    Node &block = pair.AddBlock(9000);
    const auto before = pair.link.Route();
    {
        const ActionGroup group(pair.surface);
        block.SetTop(2500);
    }
    const auto after = pair.link.Route();
    ASSERT_NE(after, before);
    ASSERT_EQ(NodesOnRoute(pair.link), 0);
    for (int i = 0; i < 3; ++i) {
        pair.surface.Undo();
        EXPECT_EQ(pair.link.Route(), before);
        pair.surface.Redo();
        EXPECT_EQ(pair.link.Route(), after);
    }
}

TEST(Routes, AddingANodeOnAWayAndUndoingItBringsTheWayBack) {
    Pair pair;
    const auto before = pair.link.Route();
    {
        const ActionGroup group(pair.surface);
        pair.AddBlock();
    }
    EXPECT_EQ(NodesOnRoute(pair.link), 0);
    pair.surface.Undo();
    EXPECT_EQ(pair.link.Route(), before);
}

TEST(Routes, AGroupThatIsGivenUpLeavesTheWays) {
    Pair pair;
    Node &block = pair.AddBlock(9000);
    const auto before = pair.link.Route();
    pair.surface.BeginAction(1);
    block.SetTop(2500);
    EXPECT_NE(pair.link.Route(), before);
    pair.surface.Actions().Cancel();
    EXPECT_EQ(pair.link.Route(), before);
}

TEST(Routes, BendsOfTheUserDontGiveWay) {
    Pair pair;
    pair.link.Points().SetItem(2, {4800, 3400});
    const auto route = pair.link.Route();
    pair.AddBlock();
    EXPECT_EQ(pair.link.Route(), route);
}

TEST(Routes, PointsWithASwitchOnAreNeverTouched) {
    Pair pair;
    pair.link.SetAddPointsMode(true);
    const auto route = pair.link.Route();
    Node &block = pair.AddBlock();
    block.SetTop(2600);
    EXPECT_EQ(pair.link.Route(), route);
    pair.b.SetTop(6000);
    EXPECT_EQ(pair.link.Route(), route);
}

TEST(Routes, AfterALoadNothingGivesWayUntilANodeMoves) {
    Pair pair;
    const auto route = pair.link.Route();
    Surface loaded;
    loaded.SetLoading(true);
    for (const Node &node : pair.surface.Nodes()) loaded.Restore(node.Id(), node.Data());
    Node &block = loaded.Nodes().Add(4500, 2500, 1000, 1500);
    Link &link = loaded.Restore(77, pair.link.Data());
    loaded.SetLoading(false);
    EXPECT_EQ(link.Route(), route);
    block.SetTop(2600);
    EXPECT_EQ(NodesOnRoute(link), 0) << Text(link);
}

// The router's choice round the obstacle comes back from a file as the router's, the straight route through
// it as the user's.
TEST(Routes, BendsAreJudgedByWhatTheRouterChoosesAmongTheNodes) {
    Pair pair;
    const auto through = pair.link.Route();
    pair.AddBlock();
    const auto round = pair.link.Route();
    const auto give = [&pair](const std::vector<Point> &points) {
        Link &link = pair.a.Links().Add(pair.b);
        pair.surface.Remove(*pair.surface.Links()[0]);
        link.SetStyle(kHVHVH);
        link.SetAddPointsMode(true);
        link.Points().Assign(points);
        link.SetAddPointsMode(false);
        return link.OwnBends();
    };
    EXPECT_FALSE(give(round));
    EXPECT_TRUE(give(through));
}

// As a map is loaded: the nodes, the links, their points, and all the while the surface is told so.
TEST(Routes, LoadedBendsAreJudgedByTheNodesAsTheyStoodAfterTheLoad) {
    for (const bool own : {false, true}) {
        Pair pair;
        Node &block = pair.AddBlock();
        std::vector<Point> stored = pair.link.Route();
        if (own) stored[2].y = stored[3].y = stored[2].y + 300;
        Surface loaded;
        loaded.SetLoading(true);
        for (const Node &node : pair.surface.Nodes()) loaded.Restore(node.Id(), node.Data());
        Link &link = loaded.FindNode(pair.a.Id())->Links().Add(*loaded.FindNode(pair.b.Id()));
        link.SetStyle(kHVHVH);
        link.SetAddPointsMode(true);
        link.Points().Assign(stored);
        link.SetAddPointsMode(false);
        loaded.SetLoading(false);
        EXPECT_EQ(link.Route(), stored);
        loaded.FindNode(block.Id())->SetTop(9000);
        EXPECT_EQ(link.Route(), stored);
        EXPECT_EQ(link.OwnBends(), own);
    }
}

TEST(Routes, ABlockThatMovesOntoAJudgedWayIsGoneRound) {
    Pair pair;
    Node &block = pair.AddBlock(9000);
    pair.link.SetAddPointsMode(true);
    const auto route = pair.link.Route();
    pair.link.Points().Assign({{1, 1}, {2, 2}});
    pair.link.Points().Assign(route); // as from a file
    pair.link.SetAddPointsMode(false);
    block.SetTop(2500);
    EXPECT_EQ(NodesOnRoute(pair.link), 0) << Text(pair.link);
    EXPECT_FALSE(pair.link.OwnBends());
}

TEST(Routes, BendsComeOutFromUnderArrowHeads) {
    for (int style : {kVHV, kHVH}) {
        Surface surface;
        Node &a = surface.Nodes().Add(1000, 1000, 800, 800), &b = surface.Nodes().Add(2150, 2150, 800, 800);
        Link &link = a.Links().Add(b);
        link.SetStyle(style);
        const Point tip = link.Route()[3], bend = link.Route()[2];
        EXPECT_GT(std::abs(tip.x - bend.x) + std::abs(tip.y - bend.y), 210) << Text(link);
    }
}

TEST(Routes, TenThousandLinksOnOneNodeAndBetweenTwoAreRouted) {
    Surface surface;
    Node &hub = surface.Nodes().Add(50000, 50000, 1000, 1000);
    Node &other = surface.Nodes().Add(0, 0, 1000, 1000);
    for (int i = 0; i < 10000; ++i) {
        Node &node = surface.Nodes().Add(float(i % 100) * 2000, float(i / 100) * 2000, 500, 500);
        hub.Links().Add(node).SetStyle(i % 15);
        hub.Links().Add(other).SetStyle(i % 15);
    }
    surface.Routes().Recalculate();
    hub.SetLeft(40000);
    surface.Routes().Recalculate();
    for (const auto &link : surface.Links()) ASSERT_GE(link->Route().size(), 2U);
}

TEST(Routes, NodesAtTheEndsOfTheRangeHaveWays) {
    for (int style = 0; style < 15; ++style) {
        Surface surface;
        AttachHistory(surface);
        Node &a = surface.Nodes().Add(-1e8F, -1e8F, 1e8F, 10), &b = surface.Nodes().Add(1e8F, 1e8F, 0, 0);
        Node &c = surface.Nodes().Add(-5e7F, 0, 1e8F, 1e7F);
        for (Node *from : {&a, &b, &c})
            for (Node *to : {&a, &b, &c}) from->Links().Add(*to).SetStyle(style);
        const ActionGroup group(surface);
        c.SetLeft(1e8F);
        for (const auto &link : surface.Links())
            for (const Point &p : link->Route()) ASSERT_TRUE(std::isfinite(p.x) && std::isfinite(p.y));
    }
}
