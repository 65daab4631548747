#include "tests/diagram/view/ViewFixture.h"

namespace diagram::testing {

class Band : public ViewTest {
protected:
    Band()
        : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 50)), c(AddNode("c", 450, 50)), link(AddLink(a, b)) {
        Settle();
    }
    using Nodes = std::vector<Node *>;
    Node &a, &b, &c;
    Link &link;
};

TEST_F(Band, Selection_FollowsTheBandWhileItGrowsAndShrinks) {
    MoveTo(QPoint(20, 20));
    Press(QPoint(20, 20), Qt::ShiftModifier);
    MoveTo(QPoint(180, 150), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&a});
    MoveTo(QPoint(380, 150), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), (Nodes{&a, &b}));
    EXPECT_TRUE(link.Selected());
    MoveTo(QPoint(600, 150), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes().size(), 3U);
    MoveTo(QPoint(180, 150), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&a});
    EXPECT_FALSE(link.Selected());
    EXPECT_EQ(events.Count("AfterSelect"), 0) << "told at the end";
    Release(QPoint(180, 150), Qt::ShiftModifier);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Band, HandlesOfWhatItHolds_AreSeenBeforeTheRelease) {
    Press(QPoint(20, 20), Qt::ShiftModifier);
    MoveTo(QPoint(180, 150), Qt::ShiftModifier);
    EXPECT_GT(qGray(ColourAt(Seen(), Handle(a, 4)).rgb()), 200)
        << "the border and not the inside of a handle";
    Release(QPoint(180, 150), Qt::ShiftModifier);
}

TEST_F(Band, EachMove_PaintsAllThatItChanges) {
    AddLink(b, AddNode("d", 500, 300)).SetStyle(1);
    AddLink(c, AddNode("e", 80, 330)).SetStyle(6);
    Press(QPoint(150, 150), Qt::ShiftModifier);
    for (const QPoint &to : {QPoint(200, 180), QPoint(700, 420), QPoint(640, 390), QPoint(100, 500),
                             QPoint(20, 20), QPoint(152, 400), QPoint(740, 30), QPoint(150, 150)}) {
        MoveTo(to, Qt::ShiftModifier);
        EXPECT_EQ(DifferingPixels(OnScreen(), Seen()), 0) << to.x() << "," << to.y();
    }
    MoveTo(QPoint(700, 420), Qt::ShiftModifier);
    Release(QPoint(700, 420), Qt::ShiftModifier);
    EXPECT_EQ(DifferingPixels(OnScreen(), Seen()), 0) << "after the release";
}

TEST_F(Band, TheRingOfTheFocus_IsPaintedAnewWhenAnotherNodeGetsIt) {
    Press(QPoint(20, 20), Qt::ShiftModifier);
    for (const int x : {180, 380, 600, 380, 180}) {
        MoveTo(QPoint(x, 150), Qt::ShiftModifier);
        EXPECT_EQ(DifferingPixels(OnScreen(), Seen()), 0) << x;
    }
}

// Of many selected nodes each is shown in another way than of few.
TEST_F(Band, ThatBeganInTheMarginAroundAManifoldMap_LeavesNothingBehind) {
    surface.Nodes().Clear();
    for (int i = 0; i < 10000; ++i)
        surface.Nodes().Add(float(i % 100) * 3000, float(i / 100) * 3000, 2400, 1500);
    surface.SetxZoom(0), surface.SetyZoom(0);
    Settle();
    const QPoint first = At(QPointF(0, 0));
    ASSERT_GT(first.x(), 30);
    Press(QPoint(first.x() - 25, 14), Qt::ShiftModifier);
    for (const int rows : {30, 40, 48, 55, 60, 48, 40, 10, 0}) {
        const QPoint to = At(QPointF(10 * 3000, rows * 3000));
        MoveTo(to, Qt::ShiftModifier);
        EXPECT_EQ(surface.SelectedNodes().size() > 500, rows > 52);
        EXPECT_EQ(DifferingPixels(OnScreen(), Seen()), 0) << rows;
    }
}

TEST_F(Band, DrawnBackOverTheStart_SelectsOnTheOtherSide) {
    Press(QPoint(400, 150), Qt::ShiftModifier);
    MoveTo(QPoint(600, 20), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&c});
    MoveTo(QPoint(200, 20), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&b});
    Release(QPoint(200, 20), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&b});
}

TEST_F(Band, CtrlPressedOnTheWay_BringsBackWhatWasSelected) {
    c.SetSelected(true);
    Press(QPoint(20, 20), Qt::ShiftModifier);
    MoveTo(QPoint(180, 150), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&a});
    MoveTo(QPoint(180, 150), Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_TRUE(a.Selected() && c.Selected());
    MoveTo(QPoint(30, 150), Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&c});
    MoveTo(QPoint(180, 150), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&a});
    Release(QPoint(180, 150), Qt::ShiftModifier);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
}

TEST_F(Band, ThatChangesNothing_RaisesNothing) {
    a.SetSelected(true);
    Drag(QPoint(20, 20), QPoint(180, 150), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&a});
    EXPECT_EQ(events.Count("AfterSelect"), 0);
}

TEST_F(Band, MatchesTheWholeRectangleWhateverTheWayThere) {
    for (int i = 0; i < 60; ++i) AddNode("", 30 + (i * 37) % 700, 150 + (i * 53) % 400, 20 + i % 30, 20);
    Settle();
    Press(QPoint(340, 330), Qt::ShiftModifier);
    const QPoint corners[] = {{500, 400}, {100, 500}, {700, 200}, {200, 160}, {345, 335}, {650, 560}};
    for (const QPoint &corner : corners) {
        MoveTo(corner, Qt::ShiftModifier);
        const QRectF band = QRectF(view->ToSurface(QPoint(340, 330)), view->ToSurface(corner)).normalized();
        for (const Node &node : surface.Nodes())
            EXPECT_EQ(node.Selected(), band.contains(node.Bounds())) << node.Left() << ' ' << node.Top();
    }
    Release(QPoint(650, 560), Qt::ShiftModifier);
}

} // namespace diagram::testing
