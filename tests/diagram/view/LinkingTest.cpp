#include "tests/diagram/view/ViewFixture.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QSignalSpy>

namespace diagram::testing {

class Linking : public ViewTest {
protected:
    Linking() : a(AddNode("a", 50, 100)), b(AddNode("b", 300, 100)), c(AddNode("c", 300, 300)) { Settle(); }
    Node &a, &b, &c;
};

TEST_F(Linking, DragFromTheMiddleToAnotherNode_AddsALink) {
    Drag(Middle(a), Middle(b));
    ASSERT_EQ(a.Links().Count(), 1);
    Link &link = a.Links().Item(1);
    EXPECT_EQ(&link.Source(), &a);
    EXPECT_EQ(&link.Destination(), &b);
    EXPECT_TRUE(link.Selected());
    EXPECT_EQ(surface.SelectedNode(), nullptr);
    EXPECT_EQ(events.Count("AfterAddLink"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(a.Links().Count(), 0);
}

TEST_F(Linking, DropOnEmptySurface_GivesNothingAndSaysWhy) {
    QSignalSpy hints(view.get(), &SurfaceView::HintShown);
    Drag(Middle(a), QPoint(600, 500));
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_FALSE(surface.CanUndo());
    ASSERT_EQ(hints.count(), 1);
    EXPECT_EQ(hints[0][0].value<Hint>(), Hint::LinkNeedsNode);
    EXPECT_EQ(surface.Nodes().Count(), 3);
}

TEST_F(Linking, Escape_LeavesNoTrace) {
    const QImage before = Shown();
    DragAndHold(Middle(a), Middle(b));
    EXPECT_GT(DifferingPixels(before, view->viewport()->grab().toImage()), 100) << "target not highlighted";
    Key(Qt::Key_Escape);
    Release(Middle(b));
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_EQ(events.Count("AfterAddLink"), 0);
    EXPECT_EQ(DifferingPixels(before, Shown()), 0);
}

TEST_F(Linking, Click_InTheMiddleSelectsTheNode) {
    Click(Middle(a));
    EXPECT_TRUE(a.Selected());
    EXPECT_TRUE(surface.Links().empty());
}

TEST_F(Linking, DragOutAndBack_LinksTheNodeToItself) {
    DragAndHold(Middle(a), QPoint(100, 300));
    MoveTo(Middle(a));
    Release(Middle(a));
    ASSERT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(&surface.Links()[0]->Source(), &a);
    EXPECT_EQ(&surface.Links()[0]->Destination(), &a);
}

TEST_F(Linking, UnselectableNode_IsNoTarget) {
    b.SetSelectable(false);
    Drag(Middle(a), Middle(b));
    EXPECT_TRUE(surface.Links().empty());
}

TEST_F(Linking, EndOfALink_IsDraggedToAnotherNode) {
    Link &link = AddLink(a, b);
    link.SetSelected(true);
    Settle();
    Drag(At(ToQPointF(link.Way().back())), Middle(c));
    EXPECT_EQ(&link.Destination(), &c);
    EXPECT_EQ(events.Count("AfterStretch"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(&link.Destination(), &b);
}

TEST_F(Linking, EndOfALinkDroppedOnEmptySurface_Stays) {
    Link &link = AddLink(a, b);
    link.SetSelected(true);
    Settle();
    Drag(At(ToQPointF(link.Way().front())), QPoint(600, 500));
    EXPECT_EQ(&link.Source(), &a);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterStretch"), 0);
}

TEST_F(Linking, DraggedSegment_MakesABend) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    ASSERT_EQ(link.Way().size(), 2U);
    const QPoint half = At((ToQPointF(link.Way()[0]) + ToQPointF(link.Way()[1])) / 2);
    Drag(half, half + QPoint(60, -40));
    ASSERT_EQ(link.Way().size(), 3U);
    EXPECT_EQ(At(ToQPointF(link.Way()[1])), half + QPoint(60, -40));
    EXPECT_TRUE(link.OwnBends());
    EXPECT_EQ(events.Count("AfterStretch"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(link.Way().size(), 2U);
}

TEST_F(Linking, Bend_IsMovedAndTakenAwayByDoubleClick) {
    Link &link = AddLink(a, c);
    link.Points().Insert(1, {200 * 15, 300 * 15});
    link.SetSelected(true);
    Settle();
    Drag(QPoint(200, 300), QPoint(150, 260));
    EXPECT_EQ(link.Way().at(1), (Point{150 * 15, 260 * 15}));
    QMouseEvent twice(QEvent::MouseButtonDblClick, QPoint(150, 260),
                      view->viewport()->mapToGlobal(QPoint(150, 260)), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &twice);
    EXPECT_EQ(link.Way().size(), 2U);
    EXPECT_EQ(events.Count("AfterStretch"), 2);
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(Linking, BendGivenUpWithEscape_LeavesNoTrace) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    const std::vector<Point> way = link.Way();
    const QPoint half = At((ToQPointF(way[0]) + ToQPointF(way[1])) / 2);
    DragAndHold(half, half + QPoint(60, -40));
    EXPECT_EQ(link.Way().size(), 3U);
    Key(Qt::Key_Escape);
    Release(half);
    EXPECT_EQ(link.Way(), way);
    EXPECT_FALSE(link.OwnBends());
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Linking, DraggedSegmentOfAnOrthogonalLink_KeepsTheDirections) {
    Link &link = AddLink(a, c);
    link.SetStyle(5); // H V H
    link.SetSelected(true);
    Settle();
    ASSERT_EQ(link.Way().size(), 4U);
    const std::vector<Point> way = link.Way();
    const QPoint half = At((ToQPointF(way[1]) + ToQPointF(way[2])) / 2);
    Drag(half, half + QPoint(-30, 17));
    ASSERT_EQ(link.Way().size(), 4U);
    EXPECT_EQ(link.Way()[0].y, link.Way()[1].y);
    EXPECT_EQ(link.Way()[1].x, link.Way()[2].x);
    EXPECT_EQ(link.Way()[2].y, link.Way()[3].y);
    EXPECT_NEAR(link.Way()[1].x, way[1].x - 30 * 15, 15);
}

TEST_F(Linking, EverySegmentOfAnOrthogonalLink_KeepsTheDirections) {
    Link &link = AddLink(a, c);
    link.SetStyle(4); // V H V
    link.SetSelected(true);
    Settle();
    ASSERT_EQ(link.Way().size(), 4U);
    for (size_t segment = 0; segment < 3; ++segment) {
        const QPoint half = At((ToQPointF(link.Way()[segment]) + ToQPointF(link.Way()[segment + 1])) / 2);
        Drag(half, half + QPoint(12, -9));
        ASSERT_EQ(link.Way().size(), 4U) << segment;
        EXPECT_EQ(link.Way()[0].x, link.Way()[1].x) << segment;
        EXPECT_EQ(link.Way()[1].y, link.Way()[2].y) << segment;
        EXPECT_EQ(link.Way()[2].x, link.Way()[3].x) << segment;
    }
}

TEST_F(Linking, DoubleClickOnABendOfAnOrthogonalLink_GivesTheBendsBackToTheRouter) {
    Link &link = AddLink(a, c);
    link.SetStyle(5); // H V H
    link.SetSelected(true);
    Settle();
    const std::vector<Point> way = link.Way();
    const QPoint half = At((ToQPointF(way[1]) + ToQPointF(way[2])) / 2);
    Drag(half, half + QPoint(-30, 0));
    ASSERT_NE(link.Way(), way);
    const QPoint bend = At(ToQPointF(link.Way()[1]));
    Click(bend);
    QMouseEvent twice(QEvent::MouseButtonDblClick, bend, view->viewport()->mapToGlobal(bend), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &twice);
    EXPECT_EQ(link.Way(), way);
    EXPECT_FALSE(link.OwnBends());
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(Linking, UndoWhileABendIsDragged_GivesTheDragUpFirst) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    const std::vector<Point> way = link.Way();
    const QPoint half = At((ToQPointF(way[0]) + ToQPointF(way[1])) / 2);
    Drag(half, half + QPoint(60, -40));
    const std::vector<Point> bent = link.Way();
    DragAndHold(half + QPoint(60, -40), half + QPoint(90, 40));
    surface.Undo();
    EXPECT_EQ(link.Way(), way);
    Release(half);
    EXPECT_EQ(link.Way(), way);
    surface.Redo();
    EXPECT_EQ(link.Way(), bent);
}

TEST_F(Linking, StretchedLink_IsPaintedAgain) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    Shown();
    const QPoint half = At((ToQPointF(link.Way()[0]) + ToQPointF(link.Way()[1])) / 2);
    Drag(half, half + QPoint(120, -80));
    EXPECT_EQ(StalePixels(), 0);
}

} // namespace diagram::testing
