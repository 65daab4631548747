#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QTest>

namespace diagram::testing {

namespace {

// Pixels in the colour of the guides.
int GuidePixels(const QImage &image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            count += colour.red() > 190 && colour.green() < 120 && colour.blue() > 90 && colour.blue() < 190;
        }
    }
    return count;
}

} // namespace

class SnappingToGuides : public ViewTest {
protected:
    SnappingToGuides() : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 300)) { Settle(); }
    QPointF Corner(const Node &node) const { return node.Bounds().topLeft() / 15; }
    int ShownGuides() { return GuidePixels(view->viewport()->grab().toImage()); }
    Node &a, &b;
};

TEST_F(SnappingToGuides, Move_StopsInLineAndShowsIt) {
    DragAndHold(Body(a), Body(a) + QPoint(197, 20));
    EXPECT_EQ(Corner(a), QPointF(250, 70));
    EXPECT_GT(ShownGuides(), 200); // from the top of one to the bottom of the other
    Release(Body(a));
    EXPECT_EQ(ShownGuides(), 0);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(SnappingToGuides, Move_FartherAwayIsLeftAlone) {
    DragAndHold(Body(a), Body(a) + QPoint(193, 20));
    EXPECT_EQ(Corner(a), QPointF(243, 70));
    EXPECT_EQ(ShownGuides(), 0);
}

TEST_F(SnappingToGuides, Alt_TurnsItOff) {
    DragAndHold(Body(a), Body(a) + QPoint(197, 20), Qt::AltModifier);
    EXPECT_EQ(Corner(a), QPointF(247, 70));
    EXPECT_EQ(ShownGuides(), 0);
}

TEST_F(SnappingToGuides, AltPressedDuringTheDrag_CountsAtOnce) {
    DragAndHold(Body(a), Body(a) + QPoint(197, 20));
    QTest::keyPress(view.get(), Qt::Key_Alt);
    EXPECT_EQ(Corner(a), QPointF(247, 70));
    QTest::keyRelease(view.get(), Qt::Key_Alt);
    EXPECT_EQ(Corner(a), QPointF(250, 70));
}

TEST_F(SnappingToGuides, Zoom_KeepsTheReachInPixels) {
    b.SetTop(200 * 15); // in sight
    view->ZoomAt(200, QPointF());
    Settle();
    const QPoint from = Body(a);
    DragAndHold(from, from + QPoint(394, 40)); // 197 pixels at zoom 100
    EXPECT_EQ(Corner(a), QPointF(247, 70));
    MoveTo(from + QPoint(398, 40));
    EXPECT_EQ(Corner(a).x(), 250);
}

TEST_F(SnappingToGuides, HiddenNodes_DrawNothing) {
    b.SetHidden(true);
    Settle();
    Drag(Body(a), Body(a) + QPoint(197, 20));
    EXPECT_EQ(Corner(a), QPointF(247, 70));
}

TEST_F(SnappingToGuides, NodesOutOfSight_DrawNothing) {
    b.SetTop(3000 * 15);
    Settle();
    Drag(Body(a), Body(a) + QPoint(197, 20));
    EXPECT_EQ(Corner(a), QPointF(247, 70));
}

TEST_F(SnappingToGuides, SelectedNodes_AreDrawnAsOne) {
    Node &c = AddNode("c", 50, 150);
    a.SetSelected(true);
    c.SetSelected(true);
    Settle();
    Drag(Body(a), Body(a) + QPoint(0, 93)); // the bottom of c comes close to 300
    EXPECT_EQ(Corner(a), QPointF(50, 140));
    EXPECT_EQ(Corner(c), QPointF(50, 240));
}

TEST_F(SnappingToGuides, EqualDistance_IsFoundAndShown) {
    AddNode("c", 450, 320);
    Settle();
    DragAndHold(Body(a), Body(a) + QPoint(2, 263)); // 98 pixels to the left of b, which is 100 from c
    EXPECT_EQ(Corner(a).x(), 50);
    EXPECT_GT(ShownGuides(), 150);
}

TEST_F(SnappingToGuides, Guide_ComesBeforeTheGrid) {
    surface.Screen().SetSnapToGrid(true);
    b.SetLeft(253 * 15);
    Settle();
    Drag(Body(a), Body(a) + QPoint(201, 23));
    EXPECT_EQ(Corner(a), QPointF(253, 70));
}

TEST_F(SnappingToGuides, Resize_StopsInLine) {
    a.SetSelected(true);
    Settle();
    DragAndHold(Handle(a, 4), Handle(a, 4) + QPoint(98, 30));
    EXPECT_EQ(a.Bounds(), QRectF(50 * 15, 50 * 15, 200 * 15, 90 * 15));
    EXPECT_GT(ShownGuides(), 100);
    Release(Handle(a, 4) - QPoint(2, 0));
    EXPECT_EQ(a.Width(), 200 * 15);
    Drag(Handle(a, 3), Handle(a, 3) + QPoint(-4, 0), Qt::AltModifier);
    EXPECT_EQ(a.Width(), 196 * 15);
}

TEST_F(SnappingToGuides, Shift_KeepsTheAxis) {
    Drag(Body(a), Body(a) + QPoint(120, 33), Qt::ShiftModifier);
    EXPECT_EQ(Corner(a), QPointF(170, 50));
    Drag(Body(a), Body(a) + QPoint(20, 133), Qt::ShiftModifier);
    EXPECT_EQ(Corner(a), QPointF(170, 183));
}

TEST_F(SnappingToGuides, GuidesThatGoAway_LeaveNothingBehind) {
    Shown();
    DragAndHold(Body(a), Body(a) + QPoint(197, 20));
    MoveTo(Body(a) + QPoint(60, 40));
    Release(Body(a) + QPoint(60, 40));
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(SnappingToGuides, NewNode_IsDrawnToItsNeighbours) {
    DragAndHold(QPoint(252, 423), QPoint(349, 485));
    EXPECT_GT(ShownGuides(), 50);
    Release(QPoint(349, 485));
    const Node &drawn = surface.Nodes().Item(surface.Nodes().Count());
    EXPECT_EQ(drawn.Left(), b.Left());
    EXPECT_EQ(drawn.Bounds().right(), b.Bounds().right());
}

TEST_F(SnappingToGuides, NewNode_BecomesAsLargeAsANeighbour) {
    // Out of line with all: only the size is left.
    Drag(QPoint(457, 423), QPoint(554, 485));
    const Node &drawn = surface.Nodes().Item(surface.Nodes().Count());
    EXPECT_EQ(drawn.Bounds(), QRectF(457 * 15, 423 * 15, a.Width(), a.Height()));
}

TEST_F(SnappingToGuides, NewNode_WithAltStandsWhereItWasDrawn) {
    Drag(QPoint(252, 423), QPoint(349, 485), Qt::AltModifier);
    EXPECT_EQ(surface.Nodes().Item(surface.Nodes().Count()).Bounds(),
              QRectF(252 * 15, 423 * 15, 97 * 15, 62 * 15));
}

TEST_F(SnappingToGuides, NewNode_DrawnUpwardsAndToTheLeftSnapsTheSame) {
    Drag(QPoint(554, 485), QPoint(457, 423));
    const Node &drawn = surface.Nodes().Item(surface.Nodes().Count());
    EXPECT_EQ(drawn.Bounds(), QRectF(454 * 15, 425 * 15, a.Width(), a.Height()));
}

TEST_F(SnappingToGuides, Resize_StopsAtTheSizeOfANeighbour) {
    Node &odd = AddNode("odd", 430, 333, 63, 37);
    odd.SetSelected(true);
    Settle();
    DragAndHold(Handle(odd, 4), Handle(odd, 4) + QPoint(35, 25));
    EXPECT_EQ(odd.Bounds().size(), a.Bounds().size());
    EXPECT_GT(ShownGuides(), 150) << "no measures beside the two";
    Release(hand->At());
    EXPECT_EQ(odd.Bounds().size(), a.Bounds().size());
}
} // namespace diagram::testing
