#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QScrollBar>

namespace diagram::testing {

class Selecting : public ViewTest {
protected:
    Selecting() : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 50)), c(AddNode("c", 50, 250)) { Settle(); }
    Node &a, &b, &c;
};

TEST_F(Selecting, Click_SelectsTheNodeAlone) {
    b.SetSelected(true);
    Click(Body(a));
    EXPECT_TRUE(a.Selected());
    EXPECT_FALSE(b.Selected());
    EXPECT_EQ(events.Count("Click"), 1);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Selecting, Click_OnTheSelectedNodeRaisesNoSecondAfterSelect) {
    Click(Body(a));
    Click(Body(a));
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    EXPECT_EQ(events.Count("Click"), 2);
}

TEST_F(Selecting, CtrlClick_Toggles) {
    Click(Body(a));
    Click(Body(b), Qt::ControlModifier);
    EXPECT_TRUE(a.Selected());
    EXPECT_TRUE(b.Selected());
    Click(Body(a), Qt::ControlModifier);
    EXPECT_FALSE(a.Selected());
    EXPECT_TRUE(b.Selected());
}

TEST_F(Selecting, Click_OnOneOfSeveralSelectedLeavesThatOne) {
    a.SetSelected(true);
    b.SetSelected(true);
    Click(Body(a));
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&a});
}

TEST_F(Selecting, Click_OnEmptySurfaceSelectsNothing) {
    a.SetSelected(true);
    Click(QPoint(500, 400));
    EXPECT_FALSE(a.Selected());
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
}

TEST_F(Selecting, Click_OnALinkSelectsIt) {
    Link &link = AddLink(a, b);
    Settle();
    Click(At((a.Bounds().center() + b.Bounds().center()) / 2));
    EXPECT_TRUE(link.Selected());
    EXPECT_EQ(surface.SelectedLink(), &link);
}

TEST_F(Selecting, UnselectableNode_IsNotSelectedAndTheSurfaceBelowItIsDrawnOn) {
    a.SetSelectable(false);
    Click(Body(a));
    EXPECT_FALSE(a.Selected());
    Drag(Body(a), Body(a) + QPoint(40, 30));
    EXPECT_EQ(surface.Nodes().Count(), 4);
}

TEST_F(Selecting, HiddenNode_IsNeverHit) {
    a.SetHidden(true);
    Settle();
    Click(Body(a));
    EXPECT_FALSE(a.Selected());
}

TEST_F(Selecting, ShiftDrag_SelectsWhatTheBandEncloses) {
    c.SetSelected(true);
    Drag(QPoint(20, 20), QPoint(400, 160), Qt::ShiftModifier);
    EXPECT_TRUE(a.Selected());
    EXPECT_TRUE(b.Selected());
    EXPECT_FALSE(c.Selected());
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Selecting, ShiftMode_MakesAPlainDragARubberBand) {
    surface.Screen().SetShiftMode(true);
    Drag(QPoint(20, 20), QPoint(200, 160));
    EXPECT_TRUE(a.Selected());
    EXPECT_EQ(surface.Nodes().Count(), 3);
}

TEST_F(Selecting, BandWithCtrl_AddsToTheSelection) {
    c.SetSelected(true);
    Drag(QPoint(20, 20), QPoint(200, 160), Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_TRUE(a.Selected());
    EXPECT_TRUE(c.Selected());
}

TEST_F(Selecting, BandGivenUpWithEscape_LeavesTheSelection) {
    c.SetSelected(true);
    DragAndHold(QPoint(20, 20), QPoint(400, 160), Qt::ShiftModifier);
    Key(Qt::Key_Escape);
    Release(QPoint(400, 160));
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&c});
    EXPECT_EQ(events.Count("AfterSelect"), 0);
}

TEST_F(Selecting, BandPassesOverUnselectableAndHiddenNodes) {
    a.SetSelectable(false);
    b.SetHidden(true);
    Drag(QPoint(20, 20), QPoint(400, 400), Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&c});
}

TEST_F(Selecting, RightButton_RaisesMouseDownOnlyAndSelectsNothing) {
    Press(Body(a), Qt::ControlModifier, Qt::RightButton);
    Release(Body(a), {}, Qt::RightButton);
    EXPECT_FALSE(a.Selected());
    const QPoint at = Body(a);
    EXPECT_EQ(events.details.join(QLatin1Char(';')),
              QStringLiteral("MouseDown 2 2 %1 %2").arg(at.x() * 15).arg(at.y() * 15));
    EXPECT_EQ(events.Count("Click"), 0);
}

TEST_F(Selecting, DoubleClickThatMeansSomethingElse_RaisesNoDblClick) {
    Link &link = AddLink(a, b);
    a.SetSelected(true), link.SetSelected(true);
    Settle();
    const auto raised = [&](const QPoint &at, Qt::KeyboardModifiers modifiers = {}) {
        a.SetSelected(true), link.SetSelected(true);
        Settle();
        events.names.clear();
        hand->DoubleClick(at, modifiers);
        return events.Count("DblClick");
    };
    EXPECT_EQ(raised(Body(a)), 1);
    for (int handle = 0; handle < 8; ++handle) EXPECT_EQ(raised(Handle(a, handle)), 0) << handle;
    EXPECT_EQ(raised(Body(a), Qt::ShiftModifier), 0);
    EXPECT_EQ(raised(Body(a), Qt::ControlModifier), 0);
    EXPECT_EQ(raised(At(ToQPointF(link.Route().back()))), 0);
    EXPECT_EQ(raised(At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2)), 0) << "makes a bend";
}

TEST_F(Selecting, UnselectableItems_LetClicksAndDragsThrough) {
    a.SetSelectable(false);
    Node &below = AddNode("below", 60, 60);
    below.SendToBack();
    Link &link = AddLink(b, c);
    link.SetSelectable(false);
    Node &crossed = AddNode("crossed", 330, 40, 60, 100);
    crossed.SendToBack();
    Settle();
    Click(Body(below));
    EXPECT_EQ(surface.SelectedNode(), &below);
    Drag(Body(below), Body(below) + QPoint(0, 200));
    EXPECT_FLOAT_EQ(below.Top(), (60 + 200) * 15);
    const QPointF from = ToQPointF(link.Route()[0]), to = ToQPointF(link.Route()[1]);
    const double share = (crossed.Bounds().center().x() - from.x()) / (to.x() - from.x());
    Click(At(from + (to - from) * share));
    EXPECT_EQ(surface.SelectedNode(), &crossed);
    EXPECT_EQ(surface.Nodes().Count(), 5);
}

TEST_F(Selecting, DoubleClick_RaisesDblClickOnce) {
    hand->DoubleClick(Body(a));
    EXPECT_EQ(events.Count("DblClick"), 1);
    EXPECT_EQ(events.Count("Click"), 1);
    EXPECT_TRUE(view->IsEditing());
}

TEST_F(Selecting, SelectedNode_ShowsHandlesThatGoWithTheSelection) {
    const QImage before = Shown();
    Click(Body(a));
    const QImage selected = Shown();
    EXPECT_GT(DifferingPixels(before, selected), 100);
    Click(QPoint(500, 400));
    EXPECT_EQ(DifferingPixels(before, Shown()), 0);
}

TEST_F(Selecting, HandlesInSightOfASmallNodeBesideTheView_GoWithIt) {
    Node &small = AddNode("small", 100, 300, 4, 4);
    AddNode("far", 3000, 60);
    small.SetSelected(true);
    Settle();
    view->horizontalScrollBar()->setValue(117); // its right side lies 13 pixels to the left of the view
    const QImage before = OnScreen();
    small.SetTop(2500 * 15);
    const QImage after = OnScreen();
    EXPECT_GT(DifferingPixels(before, after), 0);
    EXPECT_EQ(DifferingPixels(after, Seen()), 0);
}

} // namespace diagram::testing
