#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/TaggedDays.h"
#include "tests/diagram/view/ViewFixture.h"

namespace diagram::testing {

class Resizing : public ViewTest {
protected:
    Resizing() : a(AddNode("a", 100, 100)), b(AddNode("b", 300, 300, 50, 40)) {
        a.SetSelected(true);
        Settle();
    }
    QRectF Pixels(const Node &node) const {
        return {node.Left() / 15, node.Top() / 15, node.Width() / 15, node.Height() / 15};
    }
    Node &a, &b;
};

TEST_F(Resizing, EachHandle_MovesItsSides) {
    const QRectF expected[] = {{110, 120, 90, 40},  {100, 120, 100, 40}, {100, 120, 110, 40},
                               {100, 100, 110, 60}, {100, 100, 110, 80}, {100, 100, 100, 80},
                               {110, 100, 90, 80},  {110, 100, 90, 60}};
    for (int handle = 0; handle < 8; ++handle) {
        Drag(Handle(a, handle), Handle(a, handle) + QPoint(10, 20));
        EXPECT_EQ(Pixels(a), expected[handle]) << handle;
        surface.Undo();
        EXPECT_EQ(Pixels(a), QRectF(100, 100, 100, 60)) << handle;
        EXPECT_FALSE(surface.CanUndo());
        Settle();
    }
    EXPECT_EQ(events.Count("AfterResize"), 8);
    EXPECT_EQ(events.Count("AfterMove"), 0);
}

TEST_F(Resizing, Escape_LeavesNoTrace) {
    DragAndHold(Handle(a, 4), Handle(a, 4) + QPoint(50, 50));
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 150, 110));
    Key(Qt::Key_Escape);
    Release(QPoint(250, 210));
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 100, 60));
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterResize"), 0);
}

TEST_F(Resizing, SeveralNodes_ChangeInProportion) {
    b.SetSelected(true);
    Settle();
    Drag(Handle(a, 4), Handle(a, 4) + QPoint(100, 30));
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 200, 90));
    EXPECT_EQ(Pixels(b), QRectF(300, 300, 100, 60));
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterResize"), 1);
}

TEST_F(Resizing, Shift_KeepsTheAspect) {
    Drag(Handle(a, 4), Handle(a, 4) + QPoint(50, 0), Qt::ShiftModifier);
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 150, 90));
}

TEST_F(Resizing, Node_DoesNotTurnOver) {
    Drag(Handle(a, 3), Handle(a, 3) - QPoint(180, 0));
    EXPECT_EQ(a.Left(), 100 * 15);
    EXPECT_EQ(a.Width(), 15);
}

TEST_F(Resizing, SnapToGrid_DrawsTheSideToTheGrid) {
    surface.Screen().SetSnapToGrid(true);
    Drag(Handle(a, 3), Handle(a, 3) + QPoint(13, 0));
    EXPECT_EQ(a.Width(), 110 * 15);
}

TEST_F(Resizing, OldPlace_IsPaintedAgain) {
    Shown();
    Drag(Handle(a, 4), Handle(a, 4) + QPoint(80, 80));
    Drag(Handle(a, 4), Handle(a, 4) - QPoint(140, 100));
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(Resizing, AltArrow_MovesTheRightAndTheBottomSideByAPixel) {
    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 101, 60));
    Key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 101, 61));
    Key(Qt::Key_Left, Qt::AltModifier);
    Key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 100, 60));
    EXPECT_EQ(events.Count("AfterResize"), 4);
    EXPECT_EQ(events.Count("AfterMove"), 0);
    EXPECT_EQ(UndoSteps(), 0) << "back where it was";
}

TEST_F(Resizing, AltShiftArrow_GoesByAStepOfTheGrid) {
    surface.Screen().SetGridSize(300);
    Key(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 120, 60));
    surface.Undo();
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 100, 60));
}

TEST_F(Resizing, AltArrow_ResizesSeveralInProportionToTheOneWithTheFocus) {
    b.SetSelected(true); // 50 wide
    surface.Screen().SetGridSize(750);
    Key(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(Pixels(b), QRectF(300, 300, 100, 40));
    EXPECT_EQ(Pixels(a), QRectF(100, 100, 200, 60));
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterResize"), 1);
}

TEST_F(Resizing, AltArrow_StopsAtTheSmallestSideWithoutAStep) {
    a.SetBounds(a.Left(), a.Top(), 30, 30);
    for (int i = 0; i < 5; ++i) Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(a.Width(), 15);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Resizing, AltArrow_WithoutASelectedNodeDoesNothing) {
    Link &link = AddLink(a, b);
    surface.UnselectAll();
    link.SetSelected(true);
    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterResize"), 0);
}

TEST_F(Resizing, AltArrow_ShowsTheSizeWhileAltIsHeld) {
    MoveTo(QPoint(700, 550));
    const QRect below(QPoint(130, 170), QSize(40, 12));
    const auto blank = [&] {
        const QImage seen = Part(Seen(), below);
        QImage white = seen;
        white.fill(Qt::white);
        return DifferingPixels(seen, white) == 0;
    };
    EXPECT_TRUE(blank());
    hand->KeyPress(Qt::Key_Right, Qt::AltModifier);
    EXPECT_FALSE(blank());
    hand->KeyRelease(Qt::Key_Alt);
    EXPECT_TRUE(blank());
}

TEST_F(Resizing, AltArrow_EndsABarADayLaterAndWithShiftAWeekHoweverFineTheGridIs) {
    TaggedDays days;
    TaggedDays::Date(a, QDate(2027, 1, 4), QDate(2027, 1, 8));
    view->SetDays(days);
    surface.Screen().SetGridSize(15);
    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(days.EndOf(a), QDate(2027, 1, 9));
    Key(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(days.EndOf(a), QDate(2027, 1, 16));
    EXPECT_EQ(days.DateOf(a), QDate(2027, 1, 4));
    view->SetDays(DayStrip::None());
}

TEST_F(Resizing, AltArrow_TakesLinksAlong) {
    Link &link = AddLink(a, b);
    Settle();
    const std::vector<Point> before = link.Route();
    Key(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_NE(link.Route(), before);
    surface.Undo();
    EXPECT_EQ(link.Route(), before);
}

} // namespace diagram::testing
