// A link keeps to the side from which it was pulled, as long as that is free.
#include "diagram/interaction/SideStyle.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/DrawLink.h"
#include "diagram/model/LinkDraft.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "tests/diagram/interaction/StageTest.h"

namespace diagram::testing {

class SideStyle : public ::testing::Test {
protected:
    SideStyle() : a(surface.Nodes().Add(6000, 6000, 1500, 900)) { AttachHistory(surface); }
    Node &Add(float left, float top) { return surface.Nodes().Add(left, top, 1500, 900); }
    static PointerInput At(const QPointF &at) { return {at, {}, {15, 15}, {}}; }
    // Pulls a link from a side of `a` to the node; gives it and what was shown last.
    Link &Pull(int side, Node &to) {
        DrawLink gesture(scene, stage, a, side, At(a.Bounds().center()));
        gesture.Move(At(to.Bounds().center()));
        Overlay overlay;
        gesture.Show(overlay);
        shown = overlay.line;
        gesture.Commit(At(to.Bounds().center()));
        return *surface.Links().back();
    }
    Surface surface;
    Scene scene{surface};
    TestStage stage;
    QPainterPath shown;
    Node &a;
    static constexpr int kTop = 0, kRight = 1, kBottom = 2, kLeft = 3;
};

TEST_F(SideStyle, StraightLinkThatLeavesThereAnyway_StaysStraight) {
    EXPECT_EQ(Pull(kRight, Add(10000, 6000)).Style(), 0);
    EXPECT_EQ(Pull(kTop, Add(6200, 2000)).Style(), 0);
    EXPECT_EQ(Pull(kLeft, Add(1000, 6500)).Style(), 0);
    EXPECT_EQ(Pull(kBottom, Add(6000, 10000)).Style(), 0);
}

TEST_F(SideStyle, LinkThatWouldLeaveElsewhere_KeepsToTheSideWithTheFewestBends) {
    Link &level = Pull(kRight, Add(9000, 12000));
    EXPECT_EQ(level.Style(), 3); // level, upright
    EXPECT_EQ(level.Route()[0].x, 7500);
    EXPECT_EQ(shown, scene.LinkPath(level)) << "what was shown is what comes";
    Link &upright = Pull(kBottom, Add(12000, 8500));
    EXPECT_EQ(upright.Style(), 2);
    EXPECT_EQ(upright.Route()[0].y, 6900);
}

TEST_F(SideStyle, WhereAnotherNodeIsInTheWay_MoreBendsGoRoundIt) {
    Node &target = Add(9000, 12000);
    Add(9000, 9000);
    Link &link = Pull(kRight, target);
    EXPECT_EQ(link.Style(), 5); // level, upright, level
    EXPECT_EQ(link.Route()[0].x, 7500);
}

TEST_F(SideStyle, ASideThatIsntFree_IsGivenUp) {
    Add(7540, 6000);
    EXPECT_EQ(Pull(kRight, Add(9000, 12000)).Style(), 0);
}

TEST_F(SideStyle, Loop_HasTheUsualStyle) {
    LinkDraft draft;
    draft.source = draft.destination = &a;
    EXPECT_EQ(StyleLeavingBy(scene, draft, kRight), 0);
}

TEST_F(SideStyle, LinksThatAreThere_StayAsTheyAre) {
    Link &other = a.Links().Add(Add(9000, 12000));
    const std::vector<Point> route = other.Route();
    Pull(kRight, Add(12000, 12000));
    EXPECT_EQ(other.Style(), 0);
    EXPECT_EQ(other.Route(), route);
}

TEST_F(SideStyle, StyleAndLink_AreOneStep) {
    Pull(kRight, Add(9000, 12000));
    surface.Undo();
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_FALSE(surface.CanUndo());
}

} // namespace diagram::testing
