#include "tests/diagram/view/ViewFixture.h"

namespace diagram::testing {

class Copying : public ViewTest {
protected:
    Copying() : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 150)), link(AddLink(a, b)) {
        a.SetText(QStringLiteral("first"));
        a.SetTag(QStringLiteral("tag"));
        a.SetFillColor(support::Rgb(1, 2, 3));
        Settle();
    }
    Node &a, &b;
    Link &link;
};

TEST_F(Copying, CtrlDrag_CopiesTheNodeToTheOtherPlace) {
    Drag(Body(a), Body(a) + QPoint(120, 333), Qt::ControlModifier);
    ASSERT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(a.Bounds(), QRectF(50 * 15, 50 * 15, 100 * 15, 60 * 15));
    const Node &copy = surface.Nodes().Item(3);
    EXPECT_EQ(copy.Bounds(), QRectF(170 * 15, 383 * 15, 100 * 15, 60 * 15));
    EXPECT_EQ(copy.Key(), QString());
    EXPECT_EQ(copy.Text(), a.Text());
    EXPECT_EQ(copy.Tag(), a.Tag());
    EXPECT_EQ(copy.FillColor(), a.FillColor());
    EXPECT_EQ(copy.Links().Count(), 0);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&surface.Nodes().Item(3)});
    EXPECT_EQ(a.Key(), QStringLiteral("a"));
}

TEST_F(Copying, CtrlDrag_IsOneStepWithAfterMove) {
    Drag(Body(a), Body(a) + QPoint(120, 333), Qt::ControlModifier);
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterMove"), 1);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    EXPECT_EQ(events.Count("AfterAddNode"), 0);
    EXPECT_EQ(events.Count("Click"), 0);
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 2);
    surface.Redo();
    EXPECT_EQ(surface.Nodes().Count(), 3);
}

TEST_F(Copying, LinksBetweenCopiedNodes_AreCopied) {
    AddLink(b, AddNode("c", 450, 50));
    a.SetSelected(true);
    b.SetSelected(true);
    Settle();
    Drag(Body(a), Body(a) + QPoint(40, 300), Qt::ControlModifier);
    ASSERT_EQ(surface.Nodes().Count(), 5);
    ASSERT_EQ(surface.Links().size(), 3U);
    const Link &copy = *surface.Links()[2];
    EXPECT_EQ(&copy.Source(), &surface.Nodes().Item(4));
    EXPECT_EQ(&copy.Destination(), &surface.Nodes().Item(5));
    ASSERT_EQ(copy.Route().size(), link.Route().size());
    EXPECT_EQ(copy.Route().front().y, link.Route().front().y + 300 * 15);
    EXPECT_EQ(surface.SelectedNodes().size(), 2U);
    EXPECT_TRUE(surface.SelectedLinks().empty());
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Copying, NodeThatIsNotSelected_IsCopiedAlone) {
    b.SetSelected(true);
    Settle();
    Drag(Body(a), Body(a) + QPoint(120, 333), Qt::ControlModifier);
    EXPECT_EQ(surface.Nodes().Count(), 3);
}

TEST_F(Copying, CtrlPressedDuringAMove_MakesItACopyAndBack) {
    const QPointF start(a.Left(), a.Top());
    DragAndHold(Body(a), Body(a) + QPoint(120, 333));
    EXPECT_NE(QPointF(a.Left(), a.Top()), start);
    hand->KeyPress(Qt::Key_Control);
    EXPECT_EQ(QPointF(a.Left(), a.Top()), start) << "the node stays, its copy goes";
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::DragCopyCursor);
    hand->KeyRelease(Qt::Key_Control);
    EXPECT_NE(QPointF(a.Left(), a.Top()), start);
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::SizeAllCursor);
    Release(hand->At());
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Copying, CtrlHeldAtTheRelease_Decides) {
    const QPointF start(a.Left(), a.Top());
    DragAndHold(Body(a), Body(a) + QPoint(120, 333));
    hand->KeyPress(Qt::Key_Control);
    Release(hand->At(), Qt::ControlModifier);
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(QPointF(a.Left(), a.Top()), start);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(Copying, Drag_ShowsWhereTheCopyWillStand) {
    const QImage before = Shown();
    DragAndHold(Body(a), Body(a) + QPoint(120, 333), Qt::ControlModifier);
    EXPECT_GT(DifferingPixels(before, view->viewport()->grab().toImage()), 200);
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::DragCopyCursor);
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(Copying, Escape_LeavesNoTrace) {
    b.SetSelected(true);
    Settle();
    const QImage before = Shown();
    events.names.clear();
    DragAndHold(Body(a), Body(a) + QPoint(120, 333), Qt::ControlModifier);
    Key(Qt::Key_Escape);
    Release(Body(a) + QPoint(120, 333), Qt::ControlModifier);
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&b});
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterSelect") + events.Count("AfterMove"), 0);
    EXPECT_EQ(DifferingPixels(before, Shown()), 0);
}

TEST_F(Copying, CtrlClick_StillToggles) {
    Click(Body(a), Qt::ControlModifier);
    EXPECT_TRUE(a.Selected());
    Click(Body(a), Qt::ControlModifier);
    EXPECT_FALSE(a.Selected());
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

} // namespace diagram::testing
