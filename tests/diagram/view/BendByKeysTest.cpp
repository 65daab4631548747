// Bends made and moved with the keys alone.
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QSignalSpy>

namespace diagram::testing {

class BendByKeys : public ViewTest {
protected:
    BendByKeys() : a(AddNode("a", 50, 100)), b(AddNode("b", 450, 300)), link(AddLink(a, b)) {
        link.SetSelected(true);
        Settle();
    }
    void Begin() { Key(Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier); }
    Node &a, &b;
    Link &link;
};

TEST_F(BendByKeys, Arrow_MakesABendOfAFreeSegmentAndMovesItOn) {
    const QPointF middle = (ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2;
    Begin();
    for (int i = 0; i < 10; ++i) Key(Qt::Key_Up);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Return);
    ASSERT_EQ(link.Route().size(), 3U);
    const QPointF bend = ToQPointF(link.Route()[1]);
    EXPECT_LT((bend - middle - QPointF(surface.Screen().GridSize(), -150)).manhattanLength(), 1);
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterStretch"), 1);
    surface.Undo();
    EXPECT_EQ(link.Route().size(), 2U);
}

TEST_F(BendByKeys, Tab_GoesAlongTheRouteAndRoundAgain) {
    link.Points().Insert(1, {6000, 1500});
    Begin(); // middle of the list: the bend
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    EXPECT_EQ(link.Route()[1], (Point{6000, 1485}));
    Begin();
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    ASSERT_EQ(link.Route().size(), 4U);
    EXPECT_EQ(link.Route()[2], (Point{6000, 1485})) << "the segment in front of it got one";
}

TEST_F(BendByKeys, OrthogonalSegment_IsShiftedAcross) {
    constexpr int kHvh = 5;
    link.SetStyle(kHvh);
    const float x = link.Route()[1].x;
    Begin(); // the middle segment
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    ASSERT_EQ(link.Route().size(), 4U);
    EXPECT_EQ(link.Route()[1].x, x + surface.Screen().GridSize());
    EXPECT_EQ(link.Route()[2].x, x + surface.Screen().GridSize());
    EXPECT_TRUE(link.OwnBends());
    Begin();
    Key(Qt::Key_Delete);
    Key(Qt::Key_Return);
    EXPECT_EQ(link.Route()[1].x, x);
    EXPECT_FALSE(link.OwnBends()) << "the router's again";
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(BendByKeys, Delete_TakesABendAwayAndAsksNothing) {
    link.Points().Insert(1, {6000, 1500});
    events.details.clear();
    Begin();
    Key(Qt::Key_Delete);
    Key(Qt::Key_Delete); // the middle of a segment now: nothing to take away
    Key(Qt::Key_Return);
    EXPECT_EQ(link.Route().size(), 2U);
    EXPECT_EQ(events.details.filter(QStringLiteral("KeyDown 46")), QStringList());
    EXPECT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(BendByKeys, EscapeAndLossOfFocus_LeaveNoTrace) {
    for (const int style : {0, 1, 5, 14}) {
        SCOPED_TRACE(style);
        link.SetStyle(style);
        Settle();
        const QByteArray saved = SaveBytes(surface);
        for (const bool escape : {true, false}) {
            Begin();
            for (const int key : {Qt::Key_Up, Qt::Key_Tab, Qt::Key_Right, Qt::Key_Delete, Qt::Key_Left})
                Key(key);
            if (escape) {
                Key(Qt::Key_Escape);
            } else {
                view->clearFocus();
                view->setFocus();
            }
            EXPECT_FALSE(view->CancelGesture());
            EXPECT_EQ(SaveBytes(surface), saved);
        }
    }
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterStretch"), 0);
}

TEST_F(BendByKeys, EveryStyle_CanBeBentAtEveryPlace) {
    for (int style = 0; style <= 14; ++style) {
        SCOPED_TRACE(style);
        Link &other = AddLink(a, style % 2 ? a : b);
        other.SetStyle(style);
        surface.UnselectAll();
        other.SetSelected(true);
        Begin();
        for (int i = 0; i < 20; ++i) {
            Key(i % 2 ? Qt::Key_Left : Qt::Key_Down, Qt::ShiftModifier);
            Key(Qt::Key_Tab);
        }
        Key(Qt::Key_Return);
        EXPECT_TRUE(other.OwnBends());
        EXPECT_TRUE(surface.CanUndo());
        surface.Undo();
        EXPECT_FALSE(surface.CanUndo()) << "one step";
    }
    EXPECT_EQ(events.Count("Error"), 0);
}

TEST_F(BendByKeys, NothingDone_IsNoStep) {
    Begin();
    Key(Qt::Key_Tab);
    Key(Qt::Key_Return);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterStretch"), 0);
}

TEST_F(BendByKeys, WithoutASelectedLink_SaysWhatIsMissing) {
    surface.UnselectAll();
    a.SetSelected(true);
    QSignalSpy hints(view.get(), &SurfaceView::HintShown);
    Begin();
    EXPECT_FALSE(view->CancelGesture());
    EXPECT_FALSE(view->BeginBend());
    EXPECT_EQ(hints.last()[0].value<Hint>(), Hint::SelectLink);
}

TEST_F(BendByKeys, LinkRemovedMeanwhile_EndsIt) {
    Begin();
    Key(Qt::Key_Up);
    surface.Remove(link);
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    EXPECT_FALSE(view->CancelGesture());
    EXPECT_EQ(events.Count("Error"), 0);
}

TEST_F(BendByKeys, Click_EndsItAndKeepsWhatWasDone) {
    QSignalSpy hints(view.get(), &SurfaceView::HintShown);
    Begin();
    EXPECT_EQ(hints.last()[0].value<Hint>(), Hint::KeysBend);
    Key(Qt::Key_Up);
    Click(QPoint(600, 550));
    EXPECT_EQ(link.Route().size(), 3U);
    EXPECT_EQ(UndoSteps(), 1);
}

} // namespace diagram::testing
