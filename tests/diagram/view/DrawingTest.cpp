#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

namespace diagram::testing {

class Drawing : public ViewTest {};

TEST_F(Drawing, DragOnEmptySurface_AddsANodeWithTheDefaults) {
    NodeLook look;
    look.shape = 8;
    look.fillColor = support::Rgb(200, 220, 255);
    surface.SetDefaults(look);
    Drag(QPoint(100, 80), QPoint(220, 150));
    ASSERT_EQ(surface.Nodes().Count(), 1);
    Node &node = surface.Nodes().Item(1);
    EXPECT_EQ(node.Bounds(), QRectF(1500, 1200, 1800, 1050));
    EXPECT_EQ(node.Shape(), 8);
    EXPECT_EQ(node.FillColor(), look.fillColor);
    EXPECT_TRUE(node.Selected());
    EXPECT_EQ(events.Count("AfterAddNode"), 1);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
}

TEST_F(Drawing, DragUpwards_GivesTheSameNode) {
    Drag(QPoint(220, 150), QPoint(100, 80));
    ASSERT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(surface.Nodes().Item(1).Bounds(), QRectF(1500, 1200, 1800, 1050));
}

TEST_F(Drawing, Node_IsOneStepWithWhatTheHandlerAdds) {
    events.also = [&](const char *name) {
        if (QLatin1String(name) == QLatin1String("AfterAddNode"))
            surface.Nodes().Item(1).SetFillColor(support::Rgb(1, 2, 3));
    };
    Drag(QPoint(100, 80), QPoint(220, 150));
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 0);
    surface.Redo();
    EXPECT_EQ(surface.Nodes().Item(1).FillColor(), support::Rgb(1, 2, 3));
}

TEST_F(Drawing, TooSmallADrag_AddsNothingAndSelectsNothing) {
    Node &node = AddNode("a", 300, 300);
    node.SetSelected(true);
    Settle();
    Drag(QPoint(100, 80), QPoint(102, 82));
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_FALSE(node.Selected());
    Drag(QPoint(100, 80), QPoint(200, 82));
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Drawing, Escape_LeavesNoTrace) {
    const QImage before = Shown();
    DragAndHold(QPoint(100, 80), QPoint(220, 150));
    EXPECT_GT(DifferingPixels(before, view->viewport()->grab().toImage()), 100) << "no live outline";
    Key(Qt::Key_Escape);
    Release(QPoint(220, 150));
    EXPECT_EQ(surface.Nodes().Count(), 0);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(DifferingPixels(before, Shown()), 0);
}

TEST_F(Drawing, SnapToGrid_DrawsTheCornersToTheGrid) {
    surface.Screen().SetSnapToGrid(true);
    Drag(QPoint(103, 78), QPoint(224, 149));
    EXPECT_EQ(surface.Nodes().Item(1).Bounds(), QRectF(1500, 1200, 1800, 1050));
}

TEST_F(Drawing, AtAnotherZoom_TheNodeStandsUnderThePointer) {
    surface.SetxZoom(150);
    surface.SetyZoom(150);
    Settle();
    Drag(QPoint(150, 150), QPoint(300, 300));
    EXPECT_EQ(surface.Nodes().Item(1).Bounds(), QRectF(1500, 1500, 1500, 1500));
}

TEST_F(Drawing, DrawnNode_IsPainted) {
    Shown();
    Drag(QPoint(100, 80), QPoint(220, 150));
    EXPECT_EQ(StalePixels(), 0);
    surface.Undo();
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(Drawing, Shift_KeepsItAsWideAsHigh) {
    DragAndHold(QPoint(100, 80), QPoint(220, 150));
    hand->KeyPress(Qt::Key_Shift);
    Release(QPoint(220, 150), Qt::ShiftModifier);
    ASSERT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(surface.Nodes().Item(1).Bounds(), QRectF(1500, 1200, 1800, 1800));
    hand->KeyRelease(Qt::Key_Shift);
}

TEST_F(Drawing, Size_StandsBelowTheOutline) {
    DragAndHold(QPoint(100, 80), QPoint(220, 150));
    const QImage before = Seen();
    const QRect below(120, 156, 80, 16);
    int marked = 0;
    for (int x = below.left(); x <= below.right(); ++x)
        for (int y = below.top(); y <= below.bottom(); ++y)
            marked += ColourAt(before, {x, y}) != QColor(Qt::white);
    EXPECT_GT(marked, 300);
    MoveTo(QPoint(240, 190));
    EXPECT_NE(Part(Seen(), below), Part(before, below)) << "the size goes along";
}

TEST_F(Drawing, Pointer_IsACrossWhileDrawing) {
    DragAndHold(QPoint(100, 80), QPoint(220, 150));
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::CrossCursor);
    Release(QPoint(220, 150));
    EXPECT_NE(view->viewport()->cursor().shape(), Qt::CrossCursor);
}
} // namespace diagram::testing
