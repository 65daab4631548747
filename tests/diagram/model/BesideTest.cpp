// How links between the same two nodes lie beside each other.
#include "diagram/edit/History.h"
#include "tests/diagram/model/RouteChecks.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

constexpr double kLeast = 10 * 15, kMost = 12 * 15; // twips

// From the line of one link to the end of the other.
double Apart(const Link &one, const Link &other) {
    const QPointF from = ToQPointF(one.Route().front()), to = ToQPointF(one.Route().back());
    const QPointF way = to - from, off = ToQPointF(other.Route().front()) - from;
    return std::abs(way.x() * off.y() - way.y() * off.x()) / std::hypot(way.x(), way.y());
}

struct Bundle {
    Surface surface;
    std::vector<Link *> links;
    Bundle(const QPointF &way, int count, int style) {
        Node &a = surface.Nodes().Add(9000, 9000, 1020, 540);
        Node &b = surface.Nodes().Add(float(9000 + way.x()), float(9000 + way.y()), 1020, 540);
        for (int i = 0; i < count; ++i) {
            links.push_back(&(i % 2 ? b : a).Links().Add(i % 2 ? a : b));
            links.back()->SetStyle(style);
        }
    }
};

// Level or upright pieces of two links that lie on one line and overlap, nearer to each other than 10 twips.
bool LieOnEachOther(const Point &a, const Point &b, const Point &c, const Point &d) {
    const auto along = [](float p, float q, float r, float s) {
        return std::min(std::max(p, q), std::max(r, s)) - std::max(std::min(p, q), std::min(r, s)) > 30;
    };
    const bool level = a.y == b.y && c.y == d.y && std::abs(a.y - c.y) < 10 && along(a.x, b.x, c.x, d.x);
    const bool upright = a.x == b.x && c.x == d.x && std::abs(a.x - c.x) < 10 && along(a.y, b.y, c.y, d.y);
    return level || upright;
}

int PiecesOnTopOfEachOther(const Surface &surface) {
    int count = 0;
    const auto &links = surface.Links();
    for (std::size_t i = 0; i < links.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            const auto &one = links[i]->Route(), &other = links[j]->Route();
            for (std::size_t k = 1; k < one.size(); ++k)
                for (std::size_t l = 1; l < other.size(); ++l)
                    count += LieOnEachOther(one[k - 1], one[k], other[l - 1], other[l]);
        }
    return count;
}

} // namespace

TEST(Beside, StraightLinksAreTenToTwelvePixelsApart) {
    constexpr int kPolyline = 0, kSpline = 14;
    for (const int style : {kPolyline, kSpline})
        for (const QPointF &way :
             {QPointF(5000, 0), QPointF(0, 4000), QPointF(5000, 4000), QPointF(-3000, 700)})
            for (const std::size_t count : {2, 3}) {
                const Bundle bundle(way, int(count), style);
                for (std::size_t i = 1; i < count; ++i) {
                    ASSERT_EQ(bundle.links[i]->Route().size(), 2U);
                    const double apart = Apart(*bundle.links[i - 1], *bundle.links[i]);
                    EXPECT_GE(apart, kLeast) << style << " " << way.x() << " " << count;
                    EXPECT_LE(apart, kMost + 1) << style << " " << way.x() << " " << count;
                }
            }
}

// Too many for their node come nearer, all evenly.
TEST(Beside, StraightLinksShareWhatRoomTheirNodesHave) {
    const Bundle bundle({5000, 4000}, 6, 0);
    const double first = Apart(*bundle.links[0], *bundle.links[1]);
    EXPECT_LT(first, kLeast);
    for (std::size_t i = 2; i < bundle.links.size(); ++i)
        EXPECT_NEAR(Apart(*bundle.links[i - 1], *bundle.links[i]), first, 1);
}

// The middle of three links lies between the others, not on one of them, where the room is to one side only.
TEST(Beside, LinksShareRoomThatIsToOneSideOnly) {
    for (int style = 4; style < 14; ++style) {
        for (int count = 2; count <= 4; ++count) {
            Surface surface;
            Node &a = surface.Nodes().Add(300, 600, 1200, 900),
                 &b = surface.Nodes().Add(3600, 1900, 1200, 900);
            for (int i = 0; i < count; ++i) (i % 2 ? b : a).Links().Add(i % 2 ? a : b).SetStyle(style);
            EXPECT_EQ(PiecesOnTopOfEachOther(surface), 0) << style << " " << count;
        }
    }
}

class BesideInAnyStyle : public ::testing::TestWithParam<int> {};

TEST_P(BesideInAnyStyle, LinksBetweenTheSameNodesLieApart) {
    Surface surface;
    Node &a = surface.Nodes().Add(1000, 1000, 1200, 1200), &b = surface.Nodes().Add(6000, 4000, 1200, 1200);
    for (int i = 0; i < 4; ++i) {
        Link &link = i % 2 ? b.Links().Add(a) : a.Links().Add(b);
        link.SetStyle(GetParam());
    }
    const auto distance = [](const Point &p, const Point &q) { return std::hypot(p.x - q.x, p.y - q.y); };
    for (const auto &one : surface.Links())
        for (const auto &other : surface.Links()) {
            if (one == other) continue;
            const bool same = &one->Source() == &other->Source();
            const Point start = same ? other->Route().front() : other->Route().back();
            const Point end = same ? other->Route().back() : other->Route().front();
            EXPECT_GT(distance(one->Route().front(), start), 80) << Text(*one) << Text(*other);
            EXPECT_GT(distance(one->Route().back(), end), 80) << Text(*one) << Text(*other);
        }
}

TEST_P(BesideInAnyStyle, AddingAndUndoingAnotherBringsTheWayBack) {
    Surface surface;
    AttachHistory(surface);
    Node &a = surface.Nodes().Add(1000, 3000, 1000, 600), &b = surface.Nodes().Add(8000, 3000, 1000, 600);
    Link &link = a.Links().Add(b);
    link.SetStyle(GetParam());
    const auto before = link.Route();
    {
        const ActionGroup group(surface);
        b.Links().Add(a).SetStyle(GetParam());
    }
    const auto after = AllRoutes(surface);
    EXPECT_NE(link.Route(), before);
    surface.Undo();
    EXPECT_EQ(link.Route(), before);
    surface.Redo();
    EXPECT_EQ(AllRoutes(surface), after);
}

TEST_P(BesideInAnyStyle, LoopsOnOneNodeNest) {
    Surface surface;
    Node &a = surface.Nodes().Add(3000, 3000, 1600, 1600);
    for (int i = 0; i < 3; ++i) a.Links().Add(a).SetStyle(GetParam());
    std::vector<double> reach;
    for (const auto &link : surface.Links()) {
        QRectF box;
        for (const Point &p : link->Route()) box |= QRectF(p.x, p.y, 1, 1);
        reach.push_back(box.width() + box.height());
    }
    EXPECT_LT(reach[0] + 50, reach[1]);
    EXPECT_LT(reach[1] + 50, reach[2]);
}

INSTANTIATE_TEST_SUITE_P(Styles, BesideInAnyStyle, ::testing::Range(0, 15));
