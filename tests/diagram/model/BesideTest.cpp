// How far links between the same two nodes lie from each other.
#include "diagram/geometry/Point.h"
#include "diagram/model/Surface.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace diagram;

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
