// Ends of links with bends of the user go along with their node.
#include "diagram/edit/History.h"
#include "diagram/interaction/HeldItems.h"
#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

using namespace diagram;

namespace {

constexpr int kVHV = 4, kHVHVH = 9;

class EndsFollow : public ::testing::Test {
protected:
    EndsFollow() {
        AttachHistory(surface);
        link.SetStyle(kVHV);
    }
    void DragBend(int position, float dx, float dy) {
        Point at = link.Route()[std::size_t(position)];
        link.Points().SetItem(position, {at.x + dx, at.y + dy});
    }
    Surface surface;
    Node &a = surface.Nodes().Add(3000, 0, 1500, 900);
    Node &b = surface.Nodes().Add(9000, 6000, 1500, 900);
    Link &link = a.Links().Add(b);
};

} // namespace

TEST_F(EndsFollow, AnEndKeepsItsPlaceOnTheSideOfItsNode) {
    DragBend(1, 300, 400);
    ASSERT_TRUE(link.OwnBends());
    const std::vector<Point> before = link.Route();
    const HeldItems held({&a});
    for (const float far : {200.0F, 3000.0F, -2500.0F, 1200.0F}) { // all from where it was taken
        held.MoveBy(surface, {far, 150});
        const std::vector<Point> &route = link.Route();
        EXPECT_EQ(route[0].x, before[0].x + far);
        EXPECT_EQ(route[0].y, before[0].y + 150);
        EXPECT_EQ(route[1], (Point{before[1].x + far, before[1].y})) << "the lane that the hand chose stays";
        EXPECT_EQ(route[2], before[2]);
        EXPECT_EQ(route[3], before[3]);
        EXPECT_TRUE(link.OwnBends());
    }
    held.Restore(surface);
    EXPECT_EQ(link.Route(), before);
}

TEST_F(EndsFollow, BendsBetweenTheEndsStay) {
    link.SetStyle(kHVHVH);
    DragBend(2, 200, 500);
    const std::vector<Point> before = link.Route();
    HeldItems({&b}).MoveBy(surface, {400, -2000});
    const std::vector<Point> &route = link.Route();
    for (int i = 0; i < 4; ++i) EXPECT_EQ(route[std::size_t(i)], before[std::size_t(i)]) << i;
    EXPECT_EQ(route[5].y, before[5].y - 2000);
    EXPECT_EQ(route[4].y, before[4].y - 2000);
}

TEST_F(EndsFollow, TheWholeIsOneStepOfUndo) {
    DragBend(1, 300, 400);
    const std::vector<Point> before = link.Route();
    {
        const ActionGroup group(surface);
        HeldItems({&a}).MoveBy(surface, {2000, 0});
    }
    const std::vector<Point> after = link.Route();
    EXPECT_EQ(after[0].x, before[0].x + 2000);
    surface.Undo();
    EXPECT_EQ(link.Route(), before);
    surface.Redo();
    EXPECT_EQ(link.Route(), after);
}
