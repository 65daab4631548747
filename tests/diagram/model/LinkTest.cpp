#include "diagram/model/Link.h"

#include "tests/diagram/model/RandomSurface.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

struct Pair {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1000, 600);
    Node &b = surface.Nodes().Add(5000, 4000, 1000, 600);
    Link &link = a.Links().Add(b);

    // As a map that is read gives them.
    void Give(std::vector<Point> points) {
        link.SetAddPointsMode(true);
        link.SetMovePointsMode(true);
        link.Points().Assign(std::move(points));
        link.SetAddPointsMode(false);
        link.SetMovePointsMode(false);
    }
};

} // namespace

TEST(Link, KnowsBothEndsAndBothEndsKnowIt) {
    Pair pair;
    EXPECT_EQ(&pair.link.Source(), &pair.a);
    EXPECT_EQ(&pair.link.Destination(), &pair.b);
    EXPECT_EQ(pair.a.Links().Count(), 1);
    EXPECT_EQ(&pair.b.Links().Item(1), &pair.link);
    pair.link.SetKey(QStringLiteral("{L}"));
    EXPECT_EQ(&pair.b.Links().Item(QStringLiteral("{L}")), &pair.link);
    EXPECT_EQ(tests::NumberOf([&] { pair.a.Links().Item(QStringLiteral("{M}")); }), 5);
    EXPECT_EQ(tests::NumberOf([&] { pair.a.Links().Item(2); }), 9);
    EXPECT_EQ(tests::NumberOf([&] { pair.a.Links().Item(0); }), 9);
    pair.a.Links().Remove(QStringLiteral("{L}"));
    EXPECT_EQ(pair.b.Links().Count(), 0);
}

TEST(Link, ANewOneIsAStraightLineWithAFilledArrowAtItsDestination) {
    Pair pair;
    const Link &link = pair.link;
    EXPECT_EQ(link.Style(), 0);
    EXPECT_EQ(link.ArrowSource(), 0);
    EXPECT_EQ(link.ArrowMiddle(), 0);
    EXPECT_EQ(link.ArrowDest(), 5);
    EXPECT_EQ(link.ArrowSizeDest(), 1);
    EXPECT_EQ(link.Key(), QString());
    EXPECT_FALSE(link.Rigid());
    EXPECT_TRUE(link.Oriented());
    EXPECT_TRUE(link.Selectable());
    EXPECT_FALSE(link.Hidden());
}

TEST(Link, ALinkToItsOwnNodeStandsOnceAmongTheLinks) {
    Pair pair;
    pair.a.Links().Add(pair.a);
    EXPECT_EQ(pair.a.Links().Count(), 2);
    EXPECT_EQ(pair.b.Links().Count(), 1);
}

TEST(Link, AnotherSurfacesNodeIsNoEnd) {
    Pair pair, other;
    EXPECT_EQ(tests::NumberOf([&] { pair.a.Links().Add(other.a); }), 5);
    EXPECT_EQ(tests::NumberOf([&] { pair.link.SetDestination(other.b); }), 5);
    EXPECT_EQ(&pair.link.Destination(), &pair.b);
}

TEST(Link, SettingAnEndMovesItToTheOtherNode) {
    Pair pair;
    Node &c = pair.surface.Nodes().Add(0, 9000, 1000, 600);
    pair.link.SetDestination(c);
    EXPECT_EQ(pair.b.Links().Count(), 0);
    EXPECT_EQ(c.Links().Count(), 1);
    EXPECT_EQ(pair.link.Route().back().y, 9000);
    pair.surface.Remove(pair.b);
    EXPECT_EQ(pair.surface.Links().size(), 1U);
}

TEST(Link, RangesAreKept) {
    Pair pair;
    Link &link = pair.link;
    link.SetStyle(14), link.SetArrowDest(32), link.SetArrowSizeDest(2), link.SetJumpStyle(2),
        link.SetDrawStyle(6);
    const QString before = Dump(pair.surface);
    EXPECT_EQ(tests::NumberOf([&] { link.SetStyle(15); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.SetArrowSource(33); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.SetArrowMiddle(-1); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.SetArrowDest(256); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.SetArrowSizeSource(3); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.SetArrowSizeMiddle(3); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.SetJumpStyle(3); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.SetDrawStyle(7); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.SetDrawWidth(-1); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { link.Points().SetItem(0, {2e8F, 0}); }), 380);
    EXPECT_EQ(Dump(pair.surface), before);
}

TEST(Link, PointsOutsideOfTheCollectionAreErrors) {
    Pair pair;
    EXPECT_EQ(pair.link.Points().Count(), 2);
    EXPECT_EQ(tests::NumberOf([&] { pair.link.Points().Item(2); }), 9);
    EXPECT_EQ(tests::NumberOf([&] { pair.link.Points().Item(-1); }), 9);
    EXPECT_EQ(tests::NumberOf([&] { pair.link.Points().SetItem(2, {}); }), 9);
    EXPECT_EQ(tests::NumberOf([&] { pair.link.Points().Insert(3, {}); }), 9);
    EXPECT_EQ(tests::NumberOf([&] { pair.link.Points().Remove(0); }), 5);
    EXPECT_EQ(tests::NumberOf([&] { pair.link.Points().Assign({{1, 1}}); }), 5);
}

TEST(Link, WithAPointEditSwitchOnThePointsStayAsGiven) {
    Pair pair;
    const std::vector<Point> given{{11, 12}, {2000, 50}, {3000, 7777}, {90, 95}};
    pair.Give(given);
    EXPECT_EQ(pair.link.Route(), given);
}

TEST(Link, WithoutASwitchTheEndsComeBackToTheOutlines) {
    Pair pair;
    pair.link.Points().Insert(1, {3000, 300});
    ASSERT_EQ(pair.link.Points().Count(), 3);
    EXPECT_EQ(pair.link.Route()[0], (Point{1000, 300}));
    EXPECT_EQ(pair.link.Route()[1], (Point{3000, 300}));
    EXPECT_TRUE(pair.link.OwnBends());
}

TEST(Link, BendsOfTheUserLastThroughAMove) {
    Pair pair;
    pair.Give({{1000, 300}, {2222, 333}, {5000, 4300}});
    pair.b.SetTop(6000);
    ASSERT_EQ(pair.link.Route().size(), 3U);
    EXPECT_EQ(pair.link.Route()[1], (Point{2222, 333}));
    EXPECT_TRUE(pair.link.OwnBends());
}

TEST(Link, BendsThatTheRouterMadeAreMadeAnewThoughTheyCameFromAFile) {
    Pair pair;
    pair.link.SetStyle(4);
    const std::vector<Point> routed = pair.link.Route();
    pair.Give(routed);
    EXPECT_FALSE(pair.link.OwnBends());
    pair.b.SetTop(8000);
    EXPECT_EQ(pair.link.Route()[1].y, (600 + 8000) / 2);
}

TEST(Link, MovingABendOfAnOrthogonalLinkKeepsItOrthogonal) {
    Pair pair;
    pair.link.SetStyle(4);
    pair.link.Points().SetItem(1, {700, 1500});
    const auto &route = pair.link.Route();
    ASSERT_EQ(route.size(), 4U);
    EXPECT_EQ(route[0], (Point{700, 600}));
    EXPECT_EQ(route[1], (Point{700, 1500}));
    EXPECT_EQ(route[2], (Point{5500, 1500}));
}

TEST(Link, AnotherStyleDropsTheBends) {
    Pair pair;
    pair.link.Points().Insert(1, {3000, 300});
    pair.link.SetStyle(14);
    EXPECT_EQ(pair.link.Points().Count(), 3);
    pair.link.SetStyle(5);
    EXPECT_EQ(pair.link.Points().Count(), 4);
    EXPECT_FALSE(pair.link.OwnBends());
    pair.link.SetStyle(0);
    EXPECT_EQ(pair.link.Points().Count(), 2);
}

TEST(Link, WhileASwitchIsOnMovingANodeLeavesThePoints) {
    Pair pair;
    pair.link.SetMovePointsMode(true);
    const auto route = pair.link.Route();
    pair.b.SetLeft(100);
    EXPECT_EQ(pair.link.Route(), route);
}
