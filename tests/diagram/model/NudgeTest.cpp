// Ends on one side of a node, and routes that share a channel, when a group of changes closes.
#include "diagram/edit/History.h"
#include "diagram/model/Routing.h"
#include "diagram/shapes/Nudging.h"
#include "tests/diagram/model/RouteChecks.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>

using namespace diagram;
using namespace diagram::testing;

namespace {

constexpr int kVH = 2, kVHV = 4, kHVH = 5, kVHVHV = 8, kHVHVH = 9;
constexpr double kNearly = kApart - 1;

using Route = std::vector<Point>;
struct Piece {
    Point from, to;
    bool Level() const { return from.y == to.y; }
    double At() const { return Level() ? from.y : from.x; }
    double Low() const { return Level() ? std::min(from.x, to.x) : std::min(from.y, to.y); }
    double High() const { return Level() ? std::max(from.x, to.x) : std::max(from.y, to.y); }
};

std::vector<Piece> PiecesOf(const Link &link) {
    std::vector<Piece> pieces;
    const Route &route = link.Route();
    for (std::size_t i = 1; i < route.size(); ++i)
        if (route[i] != route[i - 1]) pieces.push_back({route[i - 1], route[i]});
    return pieces;
}

bool RunBeside(const Piece &a, const Piece &b, double nearness) {
    const double shared = std::min(a.High(), b.High()) - std::max(a.Low(), b.Low());
    return a.Level() == b.Level() && shared > 30 && std::abs(a.At() - b.At()) < nearness;
}

// Trees may share their first pieces.
bool AreOneTree(const Link &a, const Link &b) { return &a.Source() == &b.Source() && a.Style() == b.Style(); }

int PiecesBeside(const Link &a, const Link &b, double nearness) {
    int count = 0;
    for (const Piece &one : PiecesOf(a))
        for (const Piece &other : PiecesOf(b)) count += RunBeside(one, other, nearness);
    return count;
}

int PiecesTooNear(const Surface &surface, double nearness) {
    int count = 0;
    const auto &links = surface.Links();
    for (std::size_t i = 0; i < links.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (!AreOneTree(*links[i], *links[j])) count += PiecesBeside(*links[i], *links[j], nearness);
    return count;
}

int CountCrossings(const Link &a, const Link &b) {
    int count = 0;
    for (const Piece &one : PiecesOf(a))
        for (const Piece &other : PiecesOf(b)) {
            if (one.Level() == other.Level()) continue;
            count += one.At() > other.Low() && one.At() < other.High() && other.At() > one.Low() &&
                     other.At() < one.High();
        }
    return count;
}

int CountCrossings(const Surface &surface) {
    int count = 0;
    const auto &links = surface.Links();
    for (std::size_t i = 0; i < links.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) count += CountCrossings(*links[i], *links[j]);
    return count;
}

// How many pieces of the link run through nodes, counted once for each node.
int PiecesInNodes(const Link &link) {
    int count = 0;
    for (const Node &node : link.Owner().Nodes()) {
        if (&node == &link.Source() || &node == &link.Destination()) continue;
        for (const Piece &piece : PiecesOf(link))
            if (Meets(node.Bounds(), ToQPointF(piece.from), ToQPointF(piece.to))) ++count;
    }
    return count;
}

class Nudges : public ::testing::Test {
protected:
    Nudges() { AttachHistory(surface); }
    Node &Box(float left, float top, float width = 1500, float height = 900) {
        return surface.Nodes().Add(left, top, width, height);
    }
    // All in one step.
    Link &Join(Node &from, Node &to, int style) {
        const ActionGroup group(surface);
        Link &link = from.Links().Add(to);
        link.SetStyle(style);
        return link;
    }
    Surface surface;
};

} // namespace

TEST_F(Nudges, EndsOnOneSideSpreadOverIt_InTheOrderOfWhereTheyComeFrom) {
    Node &hub = Box(6000, 6000);
    std::vector<Link *> links;
    for (const float left : {9000.0F, 0.0F, 6300.0F, 3000.0F, 12000.0F})
        links.push_back(&Join(Box(left, 1000), hub, kVHV));
    std::ranges::sort(links, {}, [](Link *link) { return link->Source().Left(); });
    for (std::size_t i = 1; i < links.size(); ++i)
        EXPECT_GE(links[i]->Route().back().x - links[i - 1]->Route().back().x, kNearly) << Text(*links[i]);
    EXPECT_EQ(CountCrossings(surface), 0);
    EXPECT_EQ(PiecesTooNear(surface, kNearly), 0);
    EXPECT_EQ((links.front()->Route().back().x + links.back()->Route().back().x) / 2, 6750)
        << "around the middle";
}

TEST_F(Nudges, InAndOutDontShareAPoint) {
    Node &a = Box(0, 0), &b = Box(6000, 200), &c = Box(6000, 3000);
    for (const int style : {kVHV, kHVH, kVHVHV, kHVHVH}) {
        Link &in = Join(b, a, style), &out = Join(a, c, style);
        const Point end = in.Route().back(), start = out.Route().front();
        EXPECT_GE(std::abs(end.x - start.x) + std::abs(end.y - start.y), kNearly) << Text(in) << Text(out);
        surface.Remove(in), surface.Remove(out);
    }
}

TEST_F(Nudges, LinksOfATreeShareTheirTrunk) {
    Node &root = Box(6000, 0);
    std::vector<Link *> links;
    for (int i = 0; i < 5; ++i)
        links.push_back(&Join(root, Box(float(i) * 3000, 4000 + float(i % 2) * 60), kVHV));
    for (const Link *link : links) {
        EXPECT_EQ(link->Route()[0], links[0]->Route()[0]) << Text(*link);
        if (link->Route()[1] != link->Route()[2]) {
            EXPECT_EQ(link->Route()[1], links[0]->Route()[1])
                << Text(*link) << "the branches leave it together";
        }
        EXPECT_TRUE(KeepsDirections(*link));
    }
    EXPECT_EQ(links[0]->Route()[0].x, 6750);
}

TEST_F(Nudges, LinksOfOtherLooksHaveTrunksOfTheirOwn) {
    Node &root = Box(6000, 0);
    Link &one = Join(root, Box(0, 4000), kVHV), &other = Join(root, Box(3000, 4000), kVHV);
    {
        const ActionGroup group(surface);
        other.SetLineColor(0xFF);
        root.SetTop(100);
    }
    EXPECT_GE(std::abs(one.Route()[0].x - other.Route()[0].x), kNearly) << Text(one) << Text(other);
    EXPECT_EQ(CountCrossings(one, other), 0);
}

TEST_F(Nudges, AWayAloneStaysAsItIsRouted) {
    for (int style = kVH; style <= kHVH; ++style) {
        Surface plain;
        Node &a = plain.Nodes().Add(0, 0, 1500, 900), &b = plain.Nodes().Add(6000, 4000, 1500, 900);
        Link &link = a.Links().Add(b);
        link.SetStyle(style);
        const Route routed = link.Route();
        plain.Routes().TidyAll();
        EXPECT_EQ(link.Route(), routed) << Text(link);
    }
}

TEST_F(Nudges, ASmallJogIsDrawnStraight) {
    for (const int style : {kVHV, kHVH}) {
        const bool upright = style == kVHV;
        Node &a = Box(0, 0), &b = upright ? Box(200, 4000) : Box(6000, 200);
        Link &link = Join(a, b, style);
        ASSERT_TRUE(KeepsDirections(link)) << Text(link);
        const Route &route = link.Route();
        for (const Point &point : route)
            EXPECT_EQ(upright ? point.x : point.y, upright ? route[0].x : route[0].y);
        EXPECT_EQ(route[1], route[2]) << "the piece across has no length";
        EXPECT_TRUE(a.Bounds().adjusted(-1, -1, 1, 1).contains(ToQPointF(route.front())));
        EXPECT_TRUE(b.Bounds().adjusted(-1, -1, 1, 1).contains(ToQPointF(route.back())));
        surface.Remove(link), surface.Remove(a), surface.Remove(b);
    }
}

TEST_F(Nudges, BendsThatOnlyTheStyleAsksForGo) {
    for (int style = 6; style < 14; ++style) {
        Surface plain;
        Node &a = plain.Nodes().Add(0, 0, 1500, 900), &b = plain.Nodes().Add(6000, 4000, 1500, 900);
        Link &link = a.Links().Add(b);
        link.SetStyle(style);
        plain.Routes().TidyAll();
        ASSERT_TRUE(KeepsDirections(link)) << Text(link);
        const std::string_view directions = FindLinkStyle(style)->directions;
        const std::size_t needed = directions.front() == directions.back() ? 3 : 2;
        std::size_t turns = 0;
        const std::vector<Piece> pieces = PiecesOf(link);
        for (std::size_t i = 1; i < pieces.size(); ++i) turns += pieces[i].Level() != pieces[i - 1].Level();
        EXPECT_EQ(turns + 1, needed) << Text(link);
    }
}

// No route is drawn along the edge of its own node for that.
TEST_F(Nudges, EndsKeepTheirLengthWhenStairsGo) {
    Dice dice(3);
    for (int round = 0; round < 300; ++round) {
        Surface plain;
        Node &a = plain.Nodes().Add(0, 0, dice.Real(600, 1500), dice.Real(600, 1500));
        Node &b = plain.Nodes().Add(dice.Real(-5000, 5000), dice.Real(2500, 5000), 1500, 900);
        Link &link = a.Links().Add(b);
        link.SetStyle(dice.Roll(6, 13));
        const auto ends = [&link] {
            const Route &route = link.Route();
            const QPointF first = ToQPointF(route[1]) - ToQPointF(route[0]);
            const QPointF last = ToQPointF(route.back()) - ToQPointF(route[route.size() - 2]);
            return std::min(first.manhattanLength(), last.manhattanLength());
        };
        const double before = ends();
        plain.Routes().TidyAll();
        EXPECT_GE(ends(), std::min(before, 60.0)) << Text(link);
    }
}

TEST_F(Nudges, StairsThatSomethingStandsInTheWayOfStay) {
    Surface plain;
    Node &a = plain.Nodes().Add(0, 0, 1500, 900), &b = plain.Nodes().Add(9000, 4000, 1500, 900);
    Link &link = a.Links().Add(b);
    link.SetStyle(kHVHVH);
    plain.Nodes().Add(3500, 100, 900, 1200), plain.Nodes().Add(6000, 3200, 900, 1800);
    plain.Routes().TidyAll();
    EXPECT_EQ(PiecesInNodes(link), 0) << Text(link);
    EXPECT_TRUE(KeepsDirections(link)) << Text(link);
}

TEST_F(Nudges, WhereThereIsNoRoomEndsLieEvenly) {
    Node &narrow = Box(6000, 6000, 500, 600);
    std::vector<double> ends;
    for (int i = 0; i < 9; ++i) Join(Box(float(i) * 2500, 1000), narrow, kVHV);
    for (const auto &link : surface.Links()) ends.push_back(link->Route().back().x);
    std::ranges::sort(ends);
    for (std::size_t i = 1; i < ends.size(); ++i) {
        EXPECT_GT(ends[i] - ends[i - 1], 20);
        EXPECT_NEAR(ends[i] - ends[i - 1], ends[1] - ends[0], 1);
    }
}

TEST_F(Nudges, HandMadeBendsStayAndOthersKeepAway) {
    Node &a = Box(0, 0), &b = Box(9000, 3000), &c = Box(0, 1500), &d = Box(9000, 4500);
    Link &own = Join(a, b, kHVH);
    const float lane = own.Route()[1].x + 75;
    own.Points().SetItem(1, {lane, own.Route()[1].y});
    const Route kept = own.Route();
    ASSERT_TRUE(own.OwnBends());
    Link &other = Join(c, d, kHVH);
    EXPECT_EQ(own.Route(), kept);
    EXPECT_EQ(PiecesBeside(own, other, kNearly), 0) << Text(own) << Text(other);
}

TEST_F(Nudges, PointsWithASwitchOnAreNeverTouched) {
    Node &a = Box(0, 0), &b = Box(9000, 3000);
    Link &kept = Join(a, b, kHVH);
    kept.SetAddPointsMode(true);
    const Route route = kept.Route();
    Join(a, Box(9000, 6000), kHVH), Join(b, a, kHVH);
    EXPECT_EQ(kept.Route(), route);
}

TEST_F(Nudges, CrossingsThatNeednTBeAreNone) {
    // Two links from one side to the other through one channel, in the wrong order of their making.
    Node &a = Box(0, 0), &b = Box(0, 3000), &c = Box(9000, 6000), &d = Box(9000, 9000);
    Link &lower = Join(b, d, kHVH), &upper = Join(a, c, kHVH);
    EXPECT_EQ(CountCrossings(lower, upper), 0) << Text(lower) << Text(upper);
    EXPECT_EQ(PiecesTooNear(surface, kNearly), 0);
}

TEST_F(Nudges, NothingHappensBeforeTheGroupCloses) {
    Node &a = Box(0, 0), &b = Box(6000, 200), &c = Box(6000, 3000);
    Join(a, b, kHVH);
    surface.BeginAction(1);
    Link &link = c.Links().Add(a);
    link.SetStyle(kHVH);
    const Route routed = link.Route();
    EXPECT_EQ(routed.back().y, 450) << "the middle of the side";
    surface.EndAction();
    EXPECT_NE(link.Route(), routed);
}

TEST_F(Nudges, AWayDoesntComeBackWhereANodeHasCome) {
    Node &a = Box(0, 0), &b = Box(9000, 3000), &c = Box(0, 1500), &d = Box(9000, 4500);
    Link &one = Join(a, b, kHVH), &other = Join(c, d, kHVH);
    ASSERT_NE(one.Route()[1].x, other.Route()[1].x);
    Link &first = one.Route()[1].x < other.Route()[1].x ? one : other;
    const float lane = first.Route()[1].x;
    {
        const ActionGroup group(surface);
        Box(lane - 20, 1200, 25, 1700);
        first.SetStyle(kVHV), first.SetStyle(kHVH);
    }
    EXPECT_EQ(PiecesInNodes(first), 0) << Text(first);
}

// With room for all of them.
class NudgedMap : public ::testing::TestWithParam<unsigned> {};

TEST_P(NudgedMap, NoPiecesOfDifferentLinksLieOnEachOther) {
    Dice dice(GetParam());
    Surface surface;
    AttachHistory(surface);
    BuildGrid(surface, dice, 5, 4, 3000, 20, 4);
    EXPECT_EQ(PiecesTooNear(surface, 10), 0);
    for (const auto &link : surface.Links()) ASSERT_TRUE(KeepsDirections(*link)) << Text(*link);
}

TEST_P(NudgedMap, NoWayIsNudgedIntoANode) {
    Dice dice(GetParam());
    Surface surface;
    BuildGrid(surface, dice, 6, 5, 700, 40, 4);
    std::map<ItemId, int> before;
    for (const auto &link : surface.Links()) before[link->Id()] = PiecesInNodes(*link);
    surface.Routes().TidyAll();
    for (const auto &link : surface.Links())
        ASSERT_LE(PiecesInNodes(*link), before[link->Id()]) << Text(*link);
}

TEST_P(NudgedMap, MovingANodeChangesOnlyWhatIsNear_AndUndoRestoresAllOfIt) {
    Dice dice(GetParam());
    Surface surface;
    AttachHistory(surface);
    BuildGrid(surface, dice, 6, 5, 1500, 40, 2);
    const RoutesById before = AllRoutes(surface);
    Node &node = AnyNode(surface, dice);
    {
        const ActionGroup group(surface);
        node.SetBounds(node.Left() + dice.Real(-2000, 2000), node.Top() + dice.Real(-2000, 2000),
                       node.Width(), node.Height());
    }
    const RoutesById after = AllRoutes(surface);
    std::set<const Node *> ends;
    std::vector<const Link *> made; // that touch it, or are in its way
    for (const auto &link : surface.Links()) {
        bool blocked = false;
        const Route &old = before.at(link->Id());
        for (std::size_t i = 1; i < old.size(); ++i)
            blocked = blocked || Meets(node.Bounds(), ToQPointF(old[i - 1]), ToQPointF(old[i]), kNearness);
        if (!blocked && &link->Source() != &node && &link->Destination() != &node) continue;
        made.push_back(link.get());
        ends.insert(&link->Source()), ends.insert(&link->Destination());
    }
    for (const auto &link : surface.Links()) {
        if (link->Route() == before.at(link->Id()) || std::ranges::count(made, link.get()) > 0) continue;
        const bool sharesNode = ends.contains(&link->Source()) || ends.contains(&link->Destination());
        const bool sharesChannel = std::ranges::any_of(
            made, [&](const Link *other) { return PiecesBeside(*link, *other, 2 * kApart + 2 * 900) > 0; });
        EXPECT_TRUE(sharesNode || sharesChannel) << Text(*link);
    }
    surface.Undo();
    EXPECT_EQ(AllRoutes(surface), before);
    surface.Redo();
    EXPECT_EQ(AllRoutes(surface), after);
}

TEST_P(NudgedMap, TheSameMapIsRoutedTheSame) {
    RoutesById routes[2];
    for (RoutesById &each : routes) {
        Dice dice(GetParam());
        Surface surface;
        BuildGrid(surface, dice, 6, 5, 1000, 40, 2);
        surface.Routes().TidyAll();
        each = AllRoutes(surface);
    }
    EXPECT_EQ(routes[0], routes[1]);
}

INSTANTIATE_TEST_SUITE_P(Seeds, NudgedMap, ::testing::Range(1U, 41U));
