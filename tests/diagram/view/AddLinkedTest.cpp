#include "tests/diagram/view/ViewFixture.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/scene/Scene.h"

namespace diagram::testing {

class AddLinked : public ViewTest {
protected:
    AddLinked() : a(AddNode("a", 200, 200)) {
        a.SetSelected(true);
        Settle();
    }
    Node &Child(Node &of, const char *key, int left, int top) {
        Node &node = AddNode(key, left, top);
        AddLink(of, node);
        return node;
    }
    void Select(Node &node) {
        surface.UnselectAll();
        node.SetSelected(true);
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

TEST_F(AddLinked, TheFirstChildIsLinkedAsAUserDrawsALinkAndTheNextOnesAlike) {
    constexpr int kAcrossDownAcross = 5;
    view->TheScene().SetStyleToDraw(kAutomaticStyle);
    Key(Qt::Key_Insert);
    ASSERT_EQ(a.Links().Count(), 1);
    EXPECT_EQ(a.Links().Item(1).Style(), kAcrossDownAcross);
    Select(a);
    Key(Qt::Key_Insert);
    ASSERT_EQ(a.Links().Count(), 2);
    EXPECT_EQ(a.Links().Item(2).Style(), kAcrossDownAcross);
    a.Links().Item(2).SetStyle(0); // what the user chose is what comes next
    Select(a);
    Key(Qt::Key_Insert);
    EXPECT_EQ(a.Links().Item(3).Style(), 0);
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
    EXPECT_EQ(Pixels(Last()), QRectF(350, 420, 100, 60)) << "behind the one that is there";
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

TEST_F(AddLinked, Text_IsEditedAtOnce) {
    Key(Qt::Key_Insert);
    ASSERT_TRUE(view->IsEditing());
    Type("Idea");
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Last().Text(), QStringLiteral("Idea"));
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(AddLinked, InsertWhileTyping_KeepsTheTextAndGoesOn) {
    Key(Qt::Key_Insert);
    Type("One");
    Key(Qt::Key_Insert, Qt::AltModifier);
    Type("Two");
    Key(Qt::Key_Escape);
    ASSERT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(surface.Nodes().Item(2).Text(), QStringLiteral("One"));
    EXPECT_EQ(Last().Text(), QString()) << "a node stays when its text is given up";
    EXPECT_EQ(a.Links().Count(), 2) << "both are children of the same";
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(AddLinked, Child_GoesOnAsTheTreeGrows) {
    Child(a, "b", 200, 400);
    Key(Qt::Key_Right, Qt::ControlModifier); // where nothing is
    Select(a);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(350, 400, 100, 60)) << "beside the child that is there";
    Select(surface.Nodes().Item(2));
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(200, 510, 100, 60)) << "on from the parent";
}

TEST_F(AddLinked, Child_OfATreeThatGrowsToTheLeftStandsThere) {
    a.SetLeft(500 * 15);
    Child(a, "b", 300, 200);
    Select(a);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(300, 310, 100, 60));
}

TEST_F(AddLinked, Sibling_StandsBehindTheSelectedOneAndTheOthersGoAside) {
    Node &b = Child(a, "b", 350, 200), &c = Child(a, "c", 350, 310), &d = Child(c, "d", 500, 310);
    Select(b);
    Key(Qt::Key_Insert, Qt::AltModifier);
    EXPECT_EQ(Pixels(Last()), QRectF(350, 310, 100, 60));
    EXPECT_EQ(Last().Links().Count(), 1);
    EXPECT_EQ(&Last().Links().Item(1).Source(), &a);
    EXPECT_EQ(Pixels(b), QRectF(350, 200, 100, 60));
    EXPECT_EQ(Pixels(c), QRectF(350, 420, 100, 60));
    EXPECT_EQ(Pixels(d), QRectF(500, 420, 100, 60)) << "with all that it leads to";
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&Last()});
    EXPECT_EQ(events.Count("AfterMove"), 1);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(Pixels(c), QRectF(350, 310, 100, 60));
    EXPECT_EQ(surface.Nodes().Count(), 4);
}

TEST_F(AddLinked, Siblings_StandInOneColumnHoweverManyThereAre) {
    Key(Qt::Key_Insert);
    for (int i = 0; i < 6; ++i) {
        const Node &before = *surface.SelectedNode();
        Key(Qt::Key_Insert, Qt::AltModifier);
        EXPECT_EQ(Last().Left(), before.Left()) << i;
        EXPECT_GT(Last().Top(), before.Top()) << i;
    }
    Select(a);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()).left(), 350) << "another child comes behind the last one";
}

TEST_F(AddLinked, Sibling_CloseBehindGoesAsideToo) {
    Node &b = Child(a, "b", 350, 200), &c = Child(a, "c", 350, 270);
    Select(b);
    Key(Qt::Key_Insert, Qt::AltModifier);
    EXPECT_EQ(Pixels(Last()), QRectF(350, 310, 100, 60));
    EXPECT_EQ(Pixels(c), QRectF(350, 420, 100, 60));
}

TEST_F(AddLinked, Sibling_WithRoomBehindItMovesNobody) {
    Node &b = Child(a, "b", 350, 200), &c = Child(a, "c", 350, 500);
    Select(b);
    Key(Qt::Key_Insert, Qt::AltModifier);
    EXPECT_EQ(Pixels(Last()), QRectF(350, 310, 100, 60));
    EXPECT_EQ(Pixels(c), QRectF(350, 500, 100, 60));
    EXPECT_EQ(events.Count("AfterMove"), 0);
}

TEST_F(AddLinked, Child_LetsWhatBelongsToTheParentsSiblingsGoAside) {
    Node &b = Child(a, "b", 350, 200), &c = Child(a, "c", 350, 310);
    Child(b, "b1", 500, 200);
    Node &c1 = Child(c, "c1", 500, 310);
    Select(b);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(500, 310, 100, 60));
    EXPECT_EQ(Pixels(c), QRectF(350, 420, 100, 60));
    EXPECT_EQ(Pixels(c1), QRectF(500, 420, 100, 60));
}

TEST_F(AddLinked, Child_GoesBehindTheChildrenOfThoseBeforeItsParentAndTheParentWithIt) {
    Node &b = Child(a, "b", 350, 200), &c = Child(a, "c", 350, 310), &d = Child(a, "d", 350, 420);
    Child(b, "b1", 500, 200), Child(b, "b2", 500, 310), Child(b, "b3", 500, 420);
    Select(c);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(c), QRectF(350, 530, 100, 60));
    EXPECT_EQ(Pixels(Last()), QRectF(500, 530, 100, 60));
    EXPECT_EQ(Pixels(d), QRectF(350, 640, 100, 60));
    EXPECT_EQ(Pixels(b), QRectF(350, 200, 100, 60));
    EXPECT_EQ(Pixels(a), QRectF(200, 200, 100, 60));
    Key(Qt::Key_Insert, Qt::AltModifier);
    EXPECT_EQ(Pixels(Last()), QRectF(500, 640, 100, 60));
    EXPECT_EQ(Pixels(c), QRectF(350, 530, 100, 60));
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(AddLinked, Sibling_GoesRoundWhatIsNoneOfTheFamily) {
    Node &b = Child(a, "b", 350, 200), &stranger = AddNode("x", 360, 320);
    Select(b);
    Key(Qt::Key_Insert, Qt::AltModifier);
    EXPECT_EQ(Pixels(stranger), QRectF(360, 320, 100, 60));
    EXPECT_EQ(Pixels(Last()), QRectF(350, 420, 100, 60));
}

TEST_F(AddLinked, SiblingsThatWouldMeetAStranger_StayWhereTheyAre) {
    Node &b = Child(a, "b", 350, 200), &c = Child(a, "c", 350, 310);
    AddNode("x", 360, 440);
    Select(b);
    Key(Qt::Key_Insert, Qt::AltModifier);
    EXPECT_EQ(Pixels(c), QRectF(350, 310, 100, 60));
    EXPECT_EQ(Pixels(Last()), QRectF(350, 530, 100, 60)) << "the nearest free place";
}

TEST_F(AddLinked, Sibling_WithoutAParentHasNoLink) {
    Key(Qt::Key_Insert, Qt::AltModifier);
    EXPECT_EQ(Pixels(Last()), QRectF(200, 310, 100, 60));
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_TRUE(view->IsEditing());
}

TEST_F(AddLinked, Link_HasTheStyleOfItsSiblings) {
    Child(a, "b", 350, 200);
    a.Links().Item(1).SetStyle(5);
    Select(a);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Last().Links().Item(1).Style(), 5);
}

TEST_F(AddLinked, LinksInACircle_EndTheSearch) {
    Node &b = Child(a, "b", 350, 200);
    AddLink(b, a);
    AddLink(b, b);
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::AltModifier)}) {
        Select(b);
        const int before = surface.Nodes().Count();
        Key(Qt::Key_Insert, modifiers);
        EXPECT_EQ(surface.Nodes().Count(), before + 1);
    }
    EXPECT_EQ(events.Count("Error"), 0);
}

TEST_F(AddLinked, WhatCantBeSelected_IsNoKin) {
    Node &month = Child(a, "month", 200, 400);
    month.SetSelectable(false);
    Select(a);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Pixels(Last()), QRectF(350, 200, 100, 60)) << "not where the strip is";
    EXPECT_EQ(Pixels(month), QRectF(200, 400, 100, 60));
}

} // namespace diagram::testing
