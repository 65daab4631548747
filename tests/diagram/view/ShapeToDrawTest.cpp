// A shape that was chosen is what drags draw and clicks place.
#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

#include <cmath>
#include <QSignalSpy>

namespace diagram::testing {

namespace {

constexpr int kHexagon = 8, kOctogon = 15;
const QSizeF kUsual(1500, 900);

class ShapeToDraw : public ViewTest {
protected:
    ShapeToDraw() { view->SetShapeToDraw(kHexagon); }
    Node &Last() { return surface.Nodes().Item(surface.Nodes().Count()); }
};

} // namespace

TEST_F(ShapeToDraw, ADragDrawsIt) {
    Drag(QPoint(100, 80), QPoint(220, 150));
    ASSERT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(Last().Shape(), kHexagon);
    EXPECT_EQ(Last().Bounds(), QRectF(1500, 1200, 1800, 1050));
    EXPECT_NE(surface.Defaults().shape, kHexagon) << "what the map keeps stays";
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(ShapeToDraw, AClickPlacesItInItsUsualSizeAroundThePointer) {
    Click(QPoint(300, 200));
    ASSERT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(Last().Shape(), kHexagon);
    EXPECT_EQ(Last().Bounds().size(), kUsual);
    EXPECT_EQ(Last().Bounds().center(), QPointF(4500, 3000));
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&Last()});
    EXPECT_EQ(events.Count("AfterAddNode"), 1);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(ShapeToDraw, GoesOnUntilAnotherOneIsChosen) {
    Click(QPoint(100, 100));
    Click(QPoint(300, 100));
    view->SetShapeToDraw(kOctogon);
    Drag(QPoint(100, 300), QPoint(220, 400));
    ASSERT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(surface.Nodes().Item(2).Shape(), kHexagon);
    EXPECT_EQ(Last().Shape(), kOctogon);
}

TEST_F(ShapeToDraw, EscapeTakesItAway) {
    QSignalSpy dropped(view.get(), &SurfaceView::ShapeDropped);
    Key(Qt::Key_Escape);
    EXPECT_EQ(dropped.count(), 1);
    EXPECT_FALSE(view->ShapeToDraw());
    Click(QPoint(300, 200));
    EXPECT_EQ(surface.Nodes().Count(), 0);
    Key(Qt::Key_Escape);
    EXPECT_EQ(dropped.count(), 1);
}

TEST_F(ShapeToDraw, EscapeGivesADragUpFirst) {
    DragAndHold(QPoint(100, 80), QPoint(220, 150));
    Key(Qt::Key_Escape);
    Release(QPoint(220, 150));
    EXPECT_EQ(surface.Nodes().Count(), 0);
    EXPECT_EQ(view->ShapeToDraw(), kHexagon);
}

TEST_F(ShapeToDraw, APressThatIsGivenUpPlacesNothing) {
    Press(QPoint(300, 200));
    Key(Qt::Key_Escape);
    Release(QPoint(300, 200));
    EXPECT_EQ(view->ShapeToDraw(), kHexagon);
    Press(QPoint(300, 200));
    view->clearFocus();
    Release(QPoint(300, 200));
    EXPECT_EQ(surface.Nodes().Count(), 0);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(ShapeToDraw, AClickOnANodeOrALinkSelectsIt) {
    Node &a = AddNode("a", 50, 100), &b = AddNode("b", 400, 100);
    Link &link = AddLink(a, b);
    Settle();
    Click(Body(a));
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&a});
    Click(At((ToQPointF(link.Route()[0]) * 2 + ToQPointF(link.Route()[1])) / 3));
    EXPECT_TRUE(link.Selected());
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(ShapeToDraw, ModifiersKeepWhatTheyMean) {
    Node &a = AddNode("a", 50, 100);
    a.SetSelected(true);
    Settle();
    Click(QPoint(400, 300), Qt::ControlModifier);
    Click(QPoint(400, 300), Qt::ShiftModifier);
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_TRUE(a.Selected());
    Drag(QPoint(20, 60), QPoint(400, 400), Qt::ShiftModifier);
    EXPECT_EQ(surface.Nodes().Count(), 1);
}

TEST_F(ShapeToDraw, AClickThatEndsATextPlacesNothing) {
    Node &a = AddNode("a", 50, 100);
    a.SetSelected(true);
    Settle();
    Type("Hi");
    Click(QPoint(400, 300));
    EXPECT_EQ(a.Text(), "Hi");
    EXPECT_EQ(surface.Nodes().Count(), 1);
    Click(QPoint(400, 300));
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(ShapeToDraw, WhatWasPlacedTakesWhatIsTyped) {
    Click(QPoint(300, 200));
    Type("Plan");
    view->EndEdit(true);
    EXPECT_EQ(Last().Text(), "Plan");
}

TEST_F(ShapeToDraw, APlacedNodeSnapsToTheGridAndStaysOnThePage) {
    surface.Screen().SetSnapToGrid(true);
    Click(QPoint(203, 151));
    const double grid = surface.Screen().GridSize();
    EXPECT_EQ(std::fmod(Last().Left(), grid), 0);
    EXPECT_EQ(std::fmod(Last().Top(), grid), 0);
    Click(QPoint(600, 4));
    EXPECT_EQ(Last().Top(), 0);
}

TEST_F(ShapeToDraw, APlacedNodeIsDrawnToItsNeighbours) {
    Node &a = AddNode("a", 100, 100, 100, 60);
    Settle();
    Click(QPoint(400, 132)); // the middle of the neighbour is at 130
    EXPECT_NEAR(Last().Bounds().center().y(), a.Bounds().center().y(), 0.01);
}

TEST_F(ShapeToDraw, ShowsWhereAClickWouldPlaceIt) {
    view->SetShapeToDraw(std::nullopt);
    MoveTo(QPoint(300, 200));
    const QImage before = Seen();
    view->SetShapeToDraw(kHexagon);
    MoveTo(QPoint(300, 200));
    EXPECT_GT(DifferingPixels(before, Seen()), 50);
    EXPECT_EQ(StalePixels(), 0);
    Key(Qt::Key_Escape);
    EXPECT_EQ(DifferingPixels(before, Seen()), 0);
}

TEST_F(ShapeToDraw, IsPlacedWhereItIsDropped) {
    view->SetShapeToDraw(std::nullopt);
    view->PlaceShape(kOctogon, QPoint(300, 200));
    ASSERT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(Last().Shape(), kOctogon);
    EXPECT_EQ(Last().Bounds().center(), QPointF(4500, 3000));
    EXPECT_FALSE(view->ShapeToDraw());
    EXPECT_EQ(UndoSteps(), 1);
}

} // namespace diagram::testing
