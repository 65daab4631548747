// What each gesture does from press to release, and that none leaves a trace when it is given up.
#include "diagram/interaction/BendByKeys.h"
#include "diagram/interaction/LinkByKeys.h"
#include "diagram/shapes/LinkStyles.h"
#include "tests/diagram/interaction/StageTest.h"
#include "tests/diagram/view/TaggedDays.h"

#include <gmock/gmock.h>

namespace diagram::testing {

using Nodes = std::vector<Node *>;

class Gestures : public StageTest {
protected:
    Gestures() { Mark(); }
    Node &a = AddNode(50, 100);
    Node &b = AddNode(350, 100);
    Node &c = AddNode(350, 300);
};

// A click.

TEST_F(Gestures, AClick_SelectsCtrlTogglesAndShiftAdds) {
    Press(Body(a)).Release();
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&a});
    Press(Body(b), Qt::ShiftModifier).Release();
    EXPECT_EQ(surface.SelectedNodes(), (Nodes{&a, &b}));
    Press(Body(a), Qt::ControlModifier).Release();
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&b});
    Press({600, 500}).Release();
    EXPECT_TRUE(surface.SelectedNodes().empty());
    EXPECT_EQ(Count("Click"), 4);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Gestures, AClickWithAChosenShape_PlacesANode) {
    stage.shape = 8;
    Press({600, 500}).Release();
    ASSERT_EQ(surface.Nodes().Count(), 4);
    EXPECT_EQ(surface.Nodes().Item(4).Shape(), 8);
    EXPECT_EQ(Middle(surface.Nodes().Item(4)), QPointF(600, 500));
    EXPECT_EQ(UndoSteps(), 1);
}

// On the empty page.

TEST_F(Gestures, ADragOnThePage_DrawsANode) {
    Press({600, 400}).Move({700, 460});
    EXPECT_FALSE(interaction.Show().ghost.isEmpty());
    EXPECT_EQ(surface.Nodes().Count(), 3);
    Release();
    ASSERT_EQ(surface.Nodes().Count(), 4);
    EXPECT_EQ(Box(surface.Nodes().Item(4)), QRectF(600, 400, 100, 60));
    EXPECT_EQ(Count("AfterAddNode"), 1);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Gestures, DrawingGivenUp_LeavesNoTrace) {
    Mark();
    Press({600, 400}).Move({700, 460}).Escape();
    ExpectNoTrace();
}

TEST_F(Gestures, AShiftDragOnThePage_SelectsWhatTheBandHolds) {
    Press({20, 60}, Qt::ShiftModifier).Move({470, 180}, Qt::ShiftModifier);
    EXPECT_THAT(surface.SelectedNodes(), ::testing::UnorderedElementsAre(&a, &b)) << "while it lasts";
    EXPECT_FALSE(interaction.Show().band.isEmpty());
    Release();
    EXPECT_EQ(Count("AfterSelect"), 1);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Gestures, ABandGivenUp_BringsTheSelectionBack) {
    c.SetSelected(true);
    Mark();
    Press({20, 60}, Qt::ShiftModifier).Move({470, 180}, Qt::ShiftModifier).Escape();
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&c});
    EXPECT_EQ(Count("AfterSelect"), 0);
    ExpectNoTrace();
}

TEST_F(Gestures, Panning_MovesTheViewAgainstThePointer) {
    Mark();
    stage.scroll = {300, 300};
    interaction.PressToPan({{6000, 6000}, {100, 100}, {15, 15}, {}});
    EXPECT_TRUE(interaction.IsPanning());
    interaction.Move({{6000, 6000}, {140, 70}, {15, 15}, {}});
    EXPECT_EQ(stage.scroll, QPointF(260, 330));
    interaction.Release({{6000, 6000}, {140, 70}, {15, 15}, {}});
    ExpectNoTrace();
}

// Nodes.

TEST_F(Gestures, ADragOfANode_MovesItByTheWholeDistance) {
    Link &link = AddLink(a, b);
    const std::vector<Point> route = link.Route();
    Press(Body(a)).Move(Body(a) + QPointF(120, 33)).Release();
    EXPECT_EQ(Box(a), QRectF(170, 133, 100, 60));
    EXPECT_EQ(Box(b), QRectF(350, 100, 100, 60));
    EXPECT_NE(link.Route(), route);
    EXPECT_EQ(Count("AfterMove"), 1);
    surface.Undo();
    EXPECT_EQ(Box(a), QRectF(50, 100, 100, 60));
    EXPECT_EQ(link.Route(), route);
}

TEST_F(Gestures, ADragOfASelectedNode_TakesTheOthersAlong) {
    a.SetSelected(true);
    c.SetSelected(true);
    Press(Body(a)).Move(Body(a) + QPointF(30, 210)).Release();
    EXPECT_EQ(Box(a), QRectF(80, 310, 100, 60));
    EXPECT_EQ(Box(c), QRectF(380, 510, 100, 60));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Gestures, AMoveGivenUp_LeavesNoTrace) {
    AddLink(a, b);
    Mark();
    Press(Body(a)).Move(Body(a) + QPointF(120, 33));
    EXPECT_NE(Box(a), QRectF(50, 100, 100, 60));
    Escape();
    ExpectNoTrace();
}

TEST_F(Gestures, ACtrlDragOfANode_CopiesIt) {
    Press(Body(a), Qt::ControlModifier).Move(Body(a) + QPointF(0, 200), Qt::ControlModifier);
    EXPECT_EQ(surface.Nodes().Count(), 3) << "an outline until the release";
    EXPECT_FALSE(interaction.Show().ghost.isEmpty());
    Release();
    ASSERT_EQ(surface.Nodes().Count(), 4);
    EXPECT_EQ(Box(surface.Nodes().Item(4)), QRectF(50, 300, 100, 60));
    EXPECT_EQ(Box(a), QRectF(50, 100, 100, 60));
    EXPECT_EQ(surface.SelectedNodes(), Nodes{&surface.Nodes().Item(4)});
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Gestures, CtrlLetGoOnTheWay_MakesTheCopyAMove) {
    Press(Body(a), Qt::ControlModifier).Move(Body(a) + QPointF(0, 100), Qt::ControlModifier);
    Move(Body(a) + QPointF(0, 200)).Release();
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(Box(a), QRectF(50, 300, 100, 60));
}

TEST_F(Gestures, ACopyGivenUp_LeavesNoTrace) {
    Mark();
    Press(Body(a), Qt::ControlModifier).Move(Body(a) + QPointF(0, 200), Qt::ControlModifier).Escape();
    ExpectNoTrace();
}

TEST_F(Gestures, EachHandle_MovesItsSides) {
    const QRectF sizes[] = {{70, 120, 80, 40},  {50, 120, 100, 40}, {50, 120, 120, 40}, {50, 100, 120, 60},
                            {50, 100, 120, 80}, {50, 100, 100, 80}, {70, 100, 80, 80},  {70, 100, 80, 60}};
    for (int handle = 0; handle < 8; ++handle) {
        a.SetSelected(true);
        Press(Handle(a, handle)).Move(Handle(a, handle) + QPointF(20, 20)).Release();
        EXPECT_EQ(Box(a), sizes[handle]) << handle;
        EXPECT_EQ(Count("AfterResize"), handle + 1);
        surface.Undo();
        EXPECT_FALSE(surface.CanUndo()) << handle;
    }
}

TEST_F(Gestures, ResizingGivenUp_LeavesNoTrace) {
    a.SetSelected(true);
    Mark();
    Press(Handle(a, 4)).Move({300, 300});
    EXPECT_NE(Box(a), QRectF(50, 100, 100, 60));
    EXPECT_FALSE(interaction.Show().size.isEmpty());
    Escape();
    ExpectNoTrace();
}

// Links.

TEST_F(Gestures, ADragFromBesideANodeToAnother_AddsALink) {
    Press(LinkStart(a, 1)).Move(Middle(b));
    EXPECT_FALSE(interaction.Show().line.isEmpty());
    EXPECT_TRUE(surface.Links().empty());
    Release();
    ASSERT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(&surface.Links()[0]->Source(), &a);
    EXPECT_EQ(&surface.Links()[0]->Destination(), &b);
    EXPECT_EQ(Count("AfterAddLink"), 1);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Gestures, DrawingALinkGivenUp_LeavesNoTrace) {
    Mark();
    Press(LinkStart(a, 1)).Move(Middle(b)).Escape();
    ExpectNoTrace();
}

TEST_F(Gestures, ALinkDroppedOnThePage_OffersANodeThatEnterTakes) {
    Press(LinkStart(a, 1)).Move({600, 450}).Release();
    EXPECT_TRUE(interaction.IsOffer());
    EXPECT_EQ(surface.Nodes().Count(), 3);
    Key(Qt::Key_Return);
    ASSERT_EQ(surface.Nodes().Count(), 4);
    ASSERT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(&surface.Links()[0]->Destination(), &surface.Nodes().Item(4));
    EXPECT_EQ(stage.edited, 1);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Gestures, AnOfferThatIsLeft_LeavesNoTraceAndSaysWhy) {
    Mark();
    Press(LinkStart(a, 1)).Move({600, 450}).Release();
    Escape();
    EXPECT_EQ(LastTold(), Hint::LinkNeedsNode);
    ExpectNoTrace();
}

TEST_F(Gestures, ADragOfALinksEnd_JoinsAnotherNode) {
    Link &link = AddLink(a, b);
    link.SetSelected(true);
    Press(ToQPointF(link.Route().back()) / 15).Move(Middle(c)).Release();
    EXPECT_EQ(&link.Destination(), &c);
    EXPECT_EQ(Count("AfterStretch"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(&link.Destination(), &b);
}

TEST_F(Gestures, ALinksEndGivenUp_LeavesNoTrace) {
    Link &link = AddLink(a, b);
    link.SetSelected(true);
    Mark();
    Press(ToQPointF(link.Route().back()) / 15).Move(Middle(c)).Escape();
    ExpectNoTrace();
}

TEST_F(Gestures, ADragOfALink_BendsItAndADragOfTheBendMovesIt) {
    Link &link = AddLink(a, b);
    link.SetStyle(0);
    const QPointF middle(250, 130);
    Press(middle).Move({250, 230}).Release();
    ASSERT_EQ(link.Route().size(), 3U);
    EXPECT_EQ(link.Route()[1], (Point{250 * 15, 230 * 15}));
    EXPECT_EQ(Count("AfterStretch"), 1);
    Press({250, 230}).Move({250, 400}).Release();
    EXPECT_EQ(link.Route()[1], (Point{250 * 15, 400 * 15}));
    EXPECT_EQ(Count("AfterStretch"), 2);
}

TEST_F(Gestures, BendingGivenUp_LeavesNoTrace) {
    Link &link = AddLink(a, b);
    link.SetStyle(0);
    Mark();
    Press({250, 130}).Move({250, 230});
    EXPECT_EQ(link.Route().size(), 3U);
    Escape();
    ExpectNoTrace();
}

// Led by keys.

TEST_F(Gestures, KeysLead_ALinkToTheNodeThatTheyChoose) {
    a.SetSelected(true);
    ASSERT_TRUE(interaction.Begin(BeginLinkByKeys(scene, stage, LinkSide::Destination, {})));
    EXPECT_EQ(interaction.WhatNow(), Hint::KeysChooseNode);
    EXPECT_EQ(interaction.LooksAt().item, b.Id());
    Key(Qt::Key_Down);
    EXPECT_EQ(interaction.LooksAt().item, c.Id());
    Key(Qt::Key_Return);
    ASSERT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(&surface.Links()[0]->Destination(), &c);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Gestures, ALinkByKeysGivenUp_LeavesNoTraceAndScrollsBack) {
    a.SetSelected(true);
    stage.scroll = {10, 20};
    Mark();
    ASSERT_TRUE(interaction.Begin(BeginLinkByKeys(scene, stage, LinkSide::Destination, {})));
    stage.scroll = {500, 20};
    Escape();
    EXPECT_EQ(stage.scroll, QPointF(10, 20));
    ExpectNoTrace();
}

TEST_F(Gestures, KeysBendALink) {
    Link &link = AddLink(a, b);
    link.SetStyle(0);
    ASSERT_TRUE(interaction.Begin(std::make_unique<BendByKeys>(surface, stage, link)));
    EXPECT_FALSE(stage.shown.empty());
    for (int i = 0; i < 4; ++i) Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    ASSERT_EQ(link.Route().size(), 3U);
    EXPECT_EQ(link.Route()[1].y, 134 * 15);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Gestures, BendingByKeysGivenUp_LeavesNoTrace) {
    Link &link = AddLink(a, b);
    link.SetStyle(0);
    Mark();
    ASSERT_TRUE(interaction.Begin(std::make_unique<BendByKeys>(surface, stage, link)));
    Key(Qt::Key_Down).Escape();
    ExpectNoTrace();
}

// Along the strip of days, 20 pixels a day.

class DatedGestures : public Gestures {
protected:
    DatedGestures() {
        TaggedDays::Date(a, Day(3), Day(7));
        stage.days = &days;
        a.SetSelected(true);
    }
    static QDate Day(int days) { return TaggedDays::kFirst.addDays(days); }
    TaggedDays days;
};

TEST_F(DatedGestures, ADragAlongTheStrip_GivesTheNodeAnotherDate) {
    Press(Body(a)).Move(Body(a) + QPointF(60, 0)).Release();
    EXPECT_EQ(days.DateOf(a), Day(6));
    EXPECT_EQ(days.EndOf(a), Day(10));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(DatedGestures, ADragOfItsEnd_MovesTheEndAlone) {
    Press(Handle(a, 3)).Move(Handle(a, 3) + QPointF(40, 0)).Release();
    EXPECT_EQ(days.DateOf(a), Day(3));
    EXPECT_EQ(days.EndOf(a), Day(9));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(DatedGestures, GivenUp_TheyLeaveNoTrace) {
    Mark();
    Press(Body(a)).Move(Body(a) + QPointF(60, 0)).Escape();
    ExpectNoTrace();
    Press(Handle(a, 3)).Move(Handle(a, 3) + QPointF(40, 0)).Escape();
    ExpectNoTrace();
}

// Whatever goes on.

TEST_F(Gestures, ASecondPress_IsPassedOver) {
    Press(Body(a)).Move(Body(a) + QPointF(50, 0));
    Press(Body(b));
    Move(Body(b) + QPointF(0, 0)).Release();
    EXPECT_EQ(Box(b), QRectF(350, 100, 100, 60));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Gestures, ANodeThatIsGoneMeanwhile_IsPassedOver) {
    Press(Body(a)).Move(Body(a) + QPointF(50, 0));
    surface.Remove(a);
    Move({300, 300}).Release();
    EXPECT_FALSE(interaction.IsActive());
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(Gestures, Idle_TellsWhatADragWouldDo) {
    interaction.Move({Body(a) * 15, {}, {15, 15}, {}});
    EXPECT_EQ(LastTold(), Hint::DragMovesNode);
    EXPECT_EQ(interaction.Pointer(), Qt::SizeAllCursor);
    interaction.Move({LinkStart(a, 1) * 15, {}, {15, 15}, {}});
    EXPECT_EQ(LastTold(), Hint::DragDrawsLink);
    interaction.Leave();
    EXPECT_EQ(LastTold(), Hint::Nothing);
    EXPECT_FALSE(interaction.Cancel());
}

} // namespace diagram::testing
