#include "tests/diagram/view/ViewFixture.h"

#include <QSignalSpy>

namespace diagram::testing {

class Linking : public ViewTest {
protected:
    Linking() : a(AddNode("a", 50, 100)), b(AddNode("b", 300, 100)), c(AddNode("c", 300, 300)) { Settle(); }
    Node &a, &b, &c;
};

TEST_F(Linking, DragFromBesideANodeToAnother_AddsALink) {
    Drag(LinkStart(a), Middle(b));
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
    Drag(LinkStart(a), QPoint(600, 500));
    Key(Qt::Key_Escape); // to the node that is offered
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_FALSE(surface.CanUndo());
    ASSERT_FALSE(hints.isEmpty());
    EXPECT_EQ(hints.last()[0].value<Hint>(), Hint::LinkNeedsNode);
    EXPECT_EQ(surface.Nodes().Count(), 3);
}

TEST_F(Linking, Escape_LeavesNoTrace) {
    const QImage before = Shown();
    DragAndHold(LinkStart(a), Middle(b));
    EXPECT_GT(DifferingPixels(before, Seen()), 100) << "target not highlighted";
    Key(Qt::Key_Escape);
    Release(Middle(b));
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_EQ(events.Count("AfterAddLink"), 0);
    EXPECT_EQ(DifferingPixels(before, Shown()), 0);
}

TEST_F(Linking, Click_WhereALinkStartsSelectsTheNode) {
    Click(LinkStart(a));
    EXPECT_TRUE(a.Selected());
    EXPECT_TRUE(surface.Links().empty());
}

TEST_F(Linking, Click_WhereALinkRunsThroughSuchAPlaceSelectsTheLink) {
    Link &link = AddLink(a, b);
    Settle();
    Click(LinkStart(a));
    EXPECT_TRUE(link.Selected());
    EXPECT_FALSE(a.Selected());
}

TEST_F(Linking, MiddleOfANode_MovesIt) {
    const float left = a.Left();
    Drag(Middle(a), Middle(a) + QPoint(0, 200));
    EXPECT_EQ(a.Left(), left);
    EXPECT_EQ(a.Top(), 4500);
    EXPECT_TRUE(surface.Links().empty());
}

TEST_F(Linking, Hover_ShowsWhereLinksStartAndTheyStayOnTheWayThere) {
    const QImage before = Shown();
    MoveTo(Middle(a));
    const QImage shown = Seen();
    for (int side = 0; side < 4; ++side) {
        const QPoint place = LinkStart(a, side);
        EXPECT_NE(Part(shown, QRect(place - QPoint(5, 5), QSize(10, 10))),
                  Part(before, QRect(place - QPoint(5, 5), QSize(10, 10))))
            << side;
    }
    const QPoint place = LinkStart(a, 1), onTheWay = place - QPoint(10, 0);
    MoveTo(onTheWay);
    EXPECT_EQ(Part(Seen(), QRect(place, QSize(5, 5))), Part(shown, QRect(place, QSize(5, 5))));
    MoveTo(place);
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::CrossCursor);
    EXPECT_NE(Part(Seen(), QRect(place, QSize(5, 5))), Part(shown, QRect(place, QSize(5, 5)))) << "not lit";
    MoveTo(QPoint(600, 500));
    EXPECT_EQ(DifferingPixels(before, Shown()), 0);
}

TEST_F(Linking, Hover_SaysWhatADragWouldDo) {
    QSignalSpy hints(view.get(), &SurfaceView::HintShown);
    const auto last = [&] { return hints.isEmpty() ? Hint::Nothing : hints.last()[0].value<Hint>(); };
    Link &link = AddLink(a, b);
    link.SetSelected(true);
    c.SetSelected(true);
    Settle();
    MoveTo(LinkStart(a, 0));
    EXPECT_EQ(last(), Hint::DragDrawsLink);
    MoveTo(At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2));
    EXPECT_EQ(last(), Hint::DragMakesBend);
    MoveTo(At(ToQPointF(link.Route().back())));
    EXPECT_EQ(last(), Hint::DragMovesEnd);
    MoveTo(Handle(c, 4));
    EXPECT_EQ(last(), Hint::DragResizes);
    MoveTo(QPoint(600, 500));
    EXPECT_EQ(last(), Hint::DragDrawsNode);
    EXPECT_EQ(hints.count(), 5) << "told once each";
}

TEST_F(Linking, DraggedLink_EndsOnTheOutlineOfTheNodeItWouldJoin) {
    b.SetShape(0);
    Settle();
    DragAndHold(LinkStart(a), Middle(b));
    const QImage shown = Seen();
    const auto isLine = [&](const QPoint &at) {
        const QColor colour = ColourAt(shown, at);
        return colour.blue() > colour.green() + 40 && colour.blue() > colour.red() + 60;
    };
    const int y = Middle(a).y();
    EXPECT_TRUE(isLine(QPoint(280, y)) || isLine(QPoint(280, y - 1)));
    EXPECT_FALSE(isLine(QPoint(310, y)) || isLine(QPoint(310, y - 1))) << "runs on inside";
    const QColor inside = ColourAt(shown, Middle(b) + QPoint(0, 15));
    EXPECT_GT(inside.green(), inside.red() + 20) << "not highlighted";
}

TEST_F(Linking, DragOutAndBack_LinksTheNodeToItself) {
    DragAndHold(LinkStart(a), QPoint(100, 300));
    MoveTo(Middle(a));
    Release(Middle(a));
    ASSERT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(&surface.Links()[0]->Source(), &a);
    EXPECT_EQ(&surface.Links()[0]->Destination(), &a);
}

TEST_F(Linking, UnselectableNode_IsNoTarget) {
    b.SetSelectable(false);
    Drag(LinkStart(a), Middle(b));
    EXPECT_TRUE(surface.Links().empty());
}

TEST_F(Linking, EndOfALink_IsDraggedToAnotherNode) {
    Link &link = AddLink(a, b);
    link.SetSelected(true);
    Settle();
    Drag(At(ToQPointF(link.Route().back())), Middle(c));
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
    Drag(At(ToQPointF(link.Route().front())), QPoint(600, 500));
    EXPECT_EQ(&link.Source(), &a);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterStretch"), 0);
}

TEST_F(Linking, DraggedSegment_MakesABend) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    ASSERT_EQ(link.Route().size(), 2U);
    const QPoint half = At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2);
    Drag(half, half + QPoint(60, -40));
    ASSERT_EQ(link.Route().size(), 3U);
    EXPECT_EQ(At(ToQPointF(link.Route()[1])), half + QPoint(60, -40));
    EXPECT_TRUE(link.OwnBends());
    EXPECT_EQ(events.Count("AfterStretch"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(link.Route().size(), 2U);
}

TEST_F(Linking, Bend_IsMovedAndTakenAwayByDoubleClick) {
    Link &link = AddLink(a, c);
    link.Points().Insert(1, {200 * 15, 300 * 15});
    link.SetSelected(true);
    Settle();
    Drag(QPoint(200, 300), QPoint(150, 260));
    EXPECT_EQ(link.Route().at(1), (Point{150 * 15, 260 * 15}));
    hand->DoubleClick(QPoint(150, 260));
    EXPECT_EQ(link.Route().size(), 2U);
    EXPECT_EQ(events.Count("AfterStretch"), 2);
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(Linking, BendGivenUpWithEscape_LeavesNoTrace) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    const std::vector<Point> route = link.Route();
    const QPoint half = At((ToQPointF(route[0]) + ToQPointF(route[1])) / 2);
    DragAndHold(half, half + QPoint(60, -40));
    EXPECT_EQ(link.Route().size(), 3U);
    Key(Qt::Key_Escape);
    Release(half);
    EXPECT_EQ(link.Route(), route);
    EXPECT_FALSE(link.OwnBends());
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Linking, DraggedSegmentOfAnOrthogonalLink_KeepsTheDirections) {
    Link &link = AddLink(a, c);
    link.SetStyle(5); // H V H
    link.SetSelected(true);
    Settle();
    ASSERT_EQ(link.Route().size(), 4U);
    const std::vector<Point> route = link.Route();
    const QPoint half = At((ToQPointF(route[1]) + ToQPointF(route[2])) / 2);
    Drag(half, half + QPoint(-30, 17));
    ASSERT_EQ(link.Route().size(), 4U);
    EXPECT_EQ(link.Route()[0].y, link.Route()[1].y);
    EXPECT_EQ(link.Route()[1].x, link.Route()[2].x);
    EXPECT_EQ(link.Route()[2].y, link.Route()[3].y);
    EXPECT_NEAR(link.Route()[1].x, route[1].x - 30 * 15, 15);
}

TEST_F(Linking, EverySegmentOfAnOrthogonalLink_KeepsTheDirections) {
    Link &link = AddLink(a, c);
    link.SetStyle(4); // V H V
    link.SetSelected(true);
    Settle();
    ASSERT_EQ(link.Route().size(), 4U);
    for (size_t segment = 0; segment < 3; ++segment) {
        const QPoint half = At((ToQPointF(link.Route()[segment]) + ToQPointF(link.Route()[segment + 1])) / 2);
        Drag(half, half + QPoint(12, -9));
        ASSERT_EQ(link.Route().size(), 4U) << segment;
        EXPECT_EQ(link.Route()[0].x, link.Route()[1].x) << segment;
        EXPECT_EQ(link.Route()[1].y, link.Route()[2].y) << segment;
        EXPECT_EQ(link.Route()[2].x, link.Route()[3].x) << segment;
    }
}

TEST_F(Linking, DoubleClickOnABendOfAnOrthogonalLink_GivesTheBendsBackToTheRouter) {
    Link &link = AddLink(a, c);
    link.SetStyle(5); // H V H
    link.SetSelected(true);
    Settle();
    const std::vector<Point> route = link.Route();
    const QPoint half = At((ToQPointF(route[1]) + ToQPointF(route[2])) / 2);
    Drag(half, half + QPoint(-30, 0));
    ASSERT_NE(link.Route(), route);
    const QPoint bend = At(ToQPointF(link.Route()[1]));
    hand->DoubleClick(bend);
    EXPECT_EQ(link.Route(), route);
    EXPECT_FALSE(link.OwnBends());
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(Linking, UndoWhileABendIsDragged_GivesTheDragUpFirst) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    const std::vector<Point> route = link.Route();
    const QPoint half = At((ToQPointF(route[0]) + ToQPointF(route[1])) / 2);
    Drag(half, half + QPoint(60, -40));
    const std::vector<Point> bent = link.Route();
    DragAndHold(half + QPoint(60, -40), half + QPoint(90, 40));
    surface.Undo();
    EXPECT_EQ(link.Route(), route);
    Release(half);
    EXPECT_EQ(link.Route(), route);
    surface.Redo();
    EXPECT_EQ(link.Route(), bent);
}

TEST_F(Linking, StretchedLink_IsPaintedAgain) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    Shown();
    const QPoint half = At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2);
    Drag(half, half + QPoint(120, -80));
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(Linking, BendDroppedInLineWithItsNeighbours_GoesAway) {
    Link &link = AddLink(a, c);
    link.SetSelected(true);
    Settle();
    const QPointF from = ToQPointF(link.Route().front()), to = ToQPointF(link.Route().back());
    Drag(At((from + to) / 2), At((from + to) / 2) + QPoint(60, -40));
    ASSERT_EQ(link.Route().size(), 3U);
    const QPoint bend = At(ToQPointF(link.Route()[1]));
    const QPointF straight = (ToQPointF(link.Route().front()) + ToQPointF(link.Route().back())) / 2;
    Drag(bend, At(straight), Qt::AltModifier);
    ASSERT_EQ(link.Route().size(), 3U) << "Alt keeps it";
    surface.Undo();
    Settle();
    Drag(bend, At(straight) + QPoint(1, 1));
    EXPECT_EQ(link.Route().size(), 2U);
    EXPECT_EQ(UndoSteps(), 2);
    surface.Undo();
    EXPECT_EQ(link.Route().size(), 3U);
}

TEST_F(Linking, DraggedEnd_LetsTheOldLinkStandBack) {
    Link &link = AddLink(a, b);
    link.SetSelected(true);
    Settle();
    const QPoint onLine = At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2) + QPoint(12, 0);
    const QPoint end = At(ToQPointF(link.Route().back()));
    const auto darkness = [&] {
        const QImage shown = Part(Seen(), QRect(onLine - QPoint(0, 2), QSize(1, 4)));
        int sum = 0;
        for (int y = 0; y < shown.height(); ++y) sum += 255 - qGray(shown.pixel(0, y));
        return sum;
    };
    const int before = darkness();
    DragAndHold(end, QPoint(500, 450));
    EXPECT_LT(darkness(), before / 2);
    Key(Qt::Key_Escape);
    EXPECT_EQ(darkness(), before);
}

TEST_F(Linking, LoopAndEscape_LeaveNoTrace) {
    DragAndHold(LinkStart(a), QPoint(100, 300));
    MoveTo(Middle(a));
    Key(Qt::Key_Escape);
    Release(Middle(a));
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_FALSE(surface.CanUndo());
}
} // namespace diagram::testing
