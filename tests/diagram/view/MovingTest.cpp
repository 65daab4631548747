#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QScrollBar>
#include <QTest>

namespace diagram::testing {

class Moving : public ViewTest {
protected:
    Moving() : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 150)), link(AddLink(a, b)) { Settle(); }
    Node &a, &b;
    Link &link;
};

TEST_F(Moving, Drag_MovesTheNodeByTheWholeDistance) {
    Drag(Body(a), Body(a) + QPoint(120, 33));
    EXPECT_EQ(a.Bounds(), QRectF(170 * 15, 83 * 15, 100 * 15, 60 * 15));
    EXPECT_EQ(b.Bounds(), QRectF(250 * 15, 150 * 15, 100 * 15, 60 * 15));
    EXPECT_TRUE(a.Selected());
    EXPECT_EQ(events.Count("AfterMove"), 1);
    EXPECT_EQ(events.Count("Click"), 0);
}

TEST_F(Moving, Drag_IsOneStepOfUndoWithTheRouteOfTheLink) {
    const QRectF before = a.Bounds();
    const std::vector<Point> route = link.Route();
    Drag(Body(a), Body(a) + QPoint(120, 33));
    const QRectF after = a.Bounds();
    const std::vector<Point> newRoute = link.Route();
    EXPECT_NE(newRoute, route);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(a.Bounds(), before);
    EXPECT_EQ(link.Route(), route);
    surface.Redo();
    EXPECT_EQ(a.Bounds(), after);
    EXPECT_EQ(link.Route(), newRoute);
}

TEST_F(Moving, WhatAHandlerOfAfterMoveChanges_BelongsToTheSameStep) {
    events.also = [&](const char *name) {
        if (QLatin1String(name) == QLatin1String("AfterMove")) b.SetText(QStringLiteral("moved"));
    };
    Drag(Body(a), Body(a) + QPoint(50, 50));
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(b.Text(), QString());
}

TEST_F(Moving, Escape_LeavesNoTrace) {
    const QRectF before = a.Bounds();
    const std::vector<Point> route = link.Route();
    DragAndHold(Body(a), Body(a) + QPoint(120, 33));
    EXPECT_NE(a.Bounds(), before);
    Key(Qt::Key_Escape);
    EXPECT_EQ(a.Bounds(), before);
    EXPECT_EQ(link.Route(), route);
    MoveTo(QPoint(300, 300));
    Release(QPoint(300, 300));
    EXPECT_EQ(a.Bounds(), before);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterMove"), 0);
    EXPECT_EQ(events.Count("Click"), 0);
}

TEST_F(Moving, UndoWhileTheButtonIsHeld_GivesTheDragUpFirst) {
    Drag(Body(a), Body(a) + QPoint(120, 33));
    const QRectF moved = a.Bounds();
    const QPoint from = Body(a);
    DragAndHold(from, from + QPoint(60, 60));
    surface.Undo();
    Settle();
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(50 * 15, 50 * 15));
    MoveTo(QPoint(400, 400));
    Release(QPoint(400, 400));
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(50 * 15, 50 * 15));
    EXPECT_FALSE(surface.CanUndo());
    surface.Redo();
    EXPECT_EQ(a.Bounds(), moved);
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(Moving, RedoWhileTheButtonIsHeld_GivesTheDragUpFirst) {
    Drag(Body(a), Body(a) + QPoint(120, 33));
    const QRectF moved = a.Bounds();
    surface.Undo();
    Settle();
    DragAndHold(Body(a), Body(a) + QPoint(60, 60));
    surface.Redo();
    Release(QPoint(400, 400));
    EXPECT_EQ(a.Bounds(), moved);
    EXPECT_FALSE(surface.CanRedo());
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Moving, UndoOfTheNodeThatIsDragged_EndsTheDrag) {
    Key(Qt::Key_Escape);
    Drag(QPoint(500, 400), QPoint(600, 480)); // draws one
    ASSERT_EQ(surface.Nodes().Count(), 3);
    const QPoint from = Body(surface.Nodes().Item(3));
    DragAndHold(from, from + QPoint(20, 20));
    surface.Undo();
    MoveTo(QPoint(300, 300));
    Release(QPoint(300, 300));
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("Error"), 0);
}

TEST_F(Moving, DragBackToTheStart_IsNoStep) {
    const QPoint start = Body(a);
    DragAndHold(start, start + QPoint(60, 60));
    MoveTo(start);
    Release(start);
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(50 * 15, 50 * 15));
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterMove"), 0);
}

TEST_F(Moving, TooShortADrag_IsAClick) {
    Drag(Body(a), Body(a) + QPoint(3, 3));
    EXPECT_EQ(a.Left(), 50 * 15);
    EXPECT_EQ(events.Count("Click"), 1);
}

TEST_F(Moving, SelectedNodes_MoveTogetherAndLinksBetweenThemKeepTheirShape) {
    a.SetSelected(true);
    b.SetSelected(true);
    const std::vector<Point> route = link.Route();
    Drag(Body(a), Body(a) + QPoint(40, 20));
    EXPECT_EQ(b.Left(), 290 * 15);
    ASSERT_EQ(link.Route().size(), route.size());
    for (size_t i = 0; i < route.size(); ++i) {
        EXPECT_EQ(link.Route()[i].x, route[i].x + 600);
        EXPECT_EQ(link.Route()[i].y, route[i].y + 300);
    }
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterMove"), 1);
}

TEST_F(Moving, BendsOfTheUser_StayWhereTheyAreWhileAnEndMoves) {
    link.Points().Insert(1, {200 * 15, 300 * 15});
    Settle();
    Drag(Body(a), Body(a) + QPoint(40, 20));
    EXPECT_EQ(link.Route().at(1), (Point{200 * 15, 300 * 15}));
}

TEST_F(Moving, SnapToGrid_DrawsThePressedNodeToTheGrid) {
    surface.Screen().SetSnapToGrid(true);
    Drag(Body(a), Body(a) + QPoint(23, 18));
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(1050, 1050));
    Drag(Body(a), Body(a) + QPoint(23, 18), Qt::AltModifier);
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(1050 + 23 * 15, 1050 + 18 * 15));
}

TEST_F(Moving, Node_EndsOnThePageWhereverItIsDropped) {
    Drag(Body(a), Body(a) - QPoint(95, 56), Qt::AltModifier);
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(-45 * 15 + 750, -6 * 15 + 150));
}

TEST_F(Moving, OldPlace_IsPaintedAgain) {
    AddNode("under", 60, 60, 200, 120).SetFillColor(support::Rgb(255, 230, 180));
    a.BringToFront();
    Settle();
    Shown();
    Drag(Body(a), Body(a) + QPoint(180, 90));
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(Moving, MiddleOfADrag_ShowsWhatANewViewShows) {
    Shown();
    DragAndHold(Body(a), Body(a) + QPoint(180, 90));
    EXPECT_EQ(StalePixels(), 0);
    Release(Body(a));
}

TEST_F(Moving, RemovalOfTheNodeDuringTheDrag_EndsIt) {
    DragAndHold(Body(a), Body(a) + QPoint(30, 30));
    surface.Remove(a);
    MoveTo(QPoint(400, 300));
    Release(QPoint(400, 300));
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(events.Count("AfterMove"), 0);
    EXPECT_EQ(events.Count("Error"), 0);
}

TEST_F(Moving, LoadDuringTheDrag_EndsIt) {
    DragAndHold(Body(a), Body(a) + QPoint(30, 30));
    surface.Reset();
    MoveTo(QPoint(400, 300));
    Release(QPoint(400, 300));
    EXPECT_EQ(surface.Nodes().Count(), 0);
    EXPECT_EQ(events.Count("Error"), 0);
}

TEST_F(Moving, ArrowKeys_MoveByAPixelAndWithShiftByAGridStep) {
    Click(Body(a));
    Key(Qt::Key_Right);
    EXPECT_EQ(a.Left(), 51 * 15);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(a.Top(), 50 * 15 + surface.Screen().GridSize());
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterMove"), 2);
}

TEST_F(Moving, ArrowKeys_ScrollWhenNothingIsSelected) {
    AddNode("far", 3000, 3000);
    Settle();
    Key(Qt::Key_Down);
    EXPECT_GT(view->verticalScrollBar()->value(), 0);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Moving, DragBeyondTheEdge_ScrollsAndTheNodeStaysUnderThePointer) {
    DragAndHold(Body(a), QPoint(795, 300));
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->horizontalScrollBar()->value() > 50; }));
    const int scrolled = view->horizontalScrollBar()->value();
    EXPECT_NEAR(a.Left(), (795 - 50 + scrolled) * 15, 60 * 15);
    MoveTo(QPoint(400, 300));
    const int stopped = view->horizontalScrollBar()->value();
    Release(QPoint(400, 300));
    EXPECT_EQ(view->horizontalScrollBar()->value(), stopped);
    EXPECT_EQ(a.Left(), (400 - 50 + stopped) * 15);
    EXPECT_EQ(UndoSteps(), 1);
}

} // namespace diagram::testing
