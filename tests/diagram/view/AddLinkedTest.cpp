#include "tests/diagram/view/ViewFixture.h"

namespace diagram::testing {

class AddLinked : public ViewTest {
protected:
    AddLinked() : a(AddNode("a", 200, 200)) {
        a.SetSelected(true);
        Settle();
    }
    Node &Last() const { return surface.Nodes().Item(surface.Nodes().Count()); }
    QRectF Pixels(const Node &node) const {
        return {node.Left() / 15, node.Top() / 15, node.Width() / 15, node.Height() / 15};
    }
    Node &a;
};

TEST_F(AddLinked, Insert_AddsALinkedNodeToTheRight) {
    Key(Qt::Key_Insert);
    ASSERT_EQ(surface.Nodes().Count(), 2);
    EXPECT_EQ(Pixels(Last()), QRectF(350, 200, 100, 60));
    ASSERT_EQ(a.Links().Count(), 1);
    EXPECT_EQ(&a.Links().Item(1).Source(), &a);
    EXPECT_EQ(&a.Links().Item(1).Destination(), &Last());
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&Last()});
}

TEST_F(AddLinked, Insert_IsOneStepAndRaisesTheEvents) {
    Key(Qt::Key_Insert);
    EXPECT_EQ(events.Count("AfterAddNode"), 1);
    EXPECT_EQ(events.Count("AfterAddLink"), 1);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_TRUE(surface.Links().empty());
}

TEST_F(AddLinked, DirectionLastUsed_IsKept) {
    Key(Qt::Key_Down, Qt::ControlModifier); // there is no node, but that is where the user wants to go
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(200, 310, 100, 60));
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(200, 420, 100, 60));
}

TEST_F(AddLinked, TakenPlace_IsPassedOver) {
    AddNode("b", 360, 190);
    Settle();
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(350, 310, 100, 60));
    surface.UnselectAll();
    a.SetSelected(true);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(350, 90, 100, 60));
}

TEST_F(AddLinked, WhereTheSurfaceEnds_TheOtherSideIsTaken) {
    a.SetLeft(30 * 15);
    Key(Qt::Key_Left, Qt::ControlModifier);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(180, 200, 100, 60));
}

TEST_F(AddLinked, NewNode_ComesIntoSight) {
    a.SetLeft(690 * 15);
    Settle();
    Key(Qt::Key_Insert);
    EXPECT_TRUE(view->viewport()->rect().contains(Middle(Last())));
}

TEST_F(AddLinked, HandlerThatRemovesTheNode_DoesNoHarm) {
    events.also = [&](const char *name) {
        if (QLatin1String(name) == QLatin1String("AfterAddNode")) surface.Remove(Last());
    };
    Key(Qt::Key_Insert);
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_EQ(events.Count("Error"), 0);
}

TEST_F(AddLinked, WithoutASelectedNode_InsertAddsOneInTheMiddleOfWhatIsSeen) {
    surface.UnselectAll();
    Key(Qt::Key_Insert);
    ASSERT_EQ(surface.Nodes().Count(), 2);
    const QPointF middle = view->ToSurface(QRectF(view->viewport()->rect()).center());
    EXPECT_LT((Last().Bounds().center() - middle).manhattanLength(), 30);
    EXPECT_TRUE(Last().Selected());
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_EQ(UndoSteps(), 1);
    surface.UnselectAll();
    Key(Qt::Key_Insert);
    ASSERT_EQ(surface.Nodes().Count(), 3);
    EXPECT_FALSE(Last().Bounds().intersects(surface.Nodes().Item(2).Bounds()));
    EXPECT_EQ(events.Count("AfterAddNode"), 2);
    EXPECT_EQ(events.Count("AfterAddLink"), 0);
    EXPECT_EQ(events.Count("AfterSelect"), 2);
}

TEST_F(AddLinked, InsertWithShift_IsNotMeant) {
    Key(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(surface.Nodes().Count(), 1);
}

} // namespace diagram::testing
