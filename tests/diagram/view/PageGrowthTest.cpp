// The page grows to the left and upwards.
#include "tests/diagram/view/ViewFixture.h"

#include "diagram/interaction/CopiedDates.h"
#include "diagram/interaction/GrowPage.h"
#include "diagram/model/Actions.h"
#include "diagram/model/DayStrip.h"
#include "diagram/model/Revision.h"
#include "diagram/model/ScreenValues.h"

#include <QScrollBar>
#include <QTest>

namespace diagram::testing {

namespace {

class ToldStrip : public DayStrip {
public:
    void Arrange(Surface &surface) override {
        ++arranged;
        surface.SetTag(surface.Tag() + u'!');
    }
    void SetDates(Surface &, const std::vector<Dated> &dates, const std::vector<Node *> &) override {
        dated += int(dates.size());
    }
    int arranged = 0, dated = 0;
};

} // namespace

class PageGrowth : public ViewTest {
protected:
    PageGrowth()
        : a(AddNode("a", 40, 60)),
          b(AddNode("b", 300, 200)),
          hidden(AddNode("hidden", 500, 0)),
          link(AddLink(a, b)) {
        hidden.SetHidden(true);
        hidden.SetSelectable(false);
        link.Points().Assign({{1350, 1350}, {3000, 1500}, {4500, 3000}});
        view->SetDays(strip);
        Settle();
        route = link.Route();
    }
    QPoint OnScreenAt(const Node &node) const { return At(node.Bounds().topLeft()); }
    static std::vector<Point> Moved(std::vector<Point> route, float dx, float dy) {
        for (Point &point : route) point = {point.x + dx, point.y + dy};
        return route;
    }
    void Everything(const std::function<void(Node &)> &see) {
        for (Node &node : surface.Nodes()) see(node);
    }

    ToldStrip strip;
    Node &a, &b, &hidden;
    Link &link;
    std::vector<Point> route;
};

TEST_F(PageGrowth, NodeDroppedBeyondTheLeftAndTheTop_MovesEverythingAndNothingOnTheScreen) {
    const QPoint other = OnScreenAt(b);
    const QPoint from = Body(a);
    Drag(from, from - QPoint(60, 65), Qt::AltModifier); // to -20, -5
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(-300 + 300, -75 + 150));
    EXPECT_EQ(b.Bounds().topLeft(), QPointF(4500 + 300, 3000 + 150));
    EXPECT_EQ(hidden.Bounds().topLeft(), QPointF(7500 + 300, 150));
    Settle();
    EXPECT_EQ(OnScreenAt(b), other);
    EXPECT_EQ(OnScreenAt(a), QPoint(-20, -5));
    EXPECT_EQ(strip.arranged, 1);
    EXPECT_EQ(events.Count("AfterMove"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(PageGrowth, Undo_RestoresAllAndTheViewAgain) {
    const QPoint other = OnScreenAt(b);
    const QPoint from = Body(a);
    Drag(from, from - QPoint(60, 0), Qt::AltModifier);
    const std::vector<Point> moved = link.Route();
    EXPECT_EQ(moved[1], (Point{3000 + 300, 1500}));
    surface.Undo();
    Settle();
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(600, 900));
    EXPECT_EQ(b.Bounds().topLeft(), QPointF(4500, 3000));
    EXPECT_EQ(link.Route(), route);
    EXPECT_EQ(surface.Tag(), QString());
    EXPECT_EQ(OnScreenAt(b), other);
    surface.Redo();
    Settle();
    EXPECT_EQ(b.Left(), 4800);
    EXPECT_EQ(link.Route(), moved);
    EXPECT_EQ(surface.Tag(), QStringLiteral("!"));
    EXPECT_EQ(OnScreenAt(b), other);
}

TEST_F(PageGrowth, DropOnThePage_MovesNothingElse) {
    const QPoint from = Body(a);
    Drag(from, from - QPoint(40, 60), Qt::AltModifier);
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(0, 0));
    EXPECT_EQ(b.Left(), 4500);
    EXPECT_EQ(strip.arranged, 0);
}

TEST_F(PageGrowth, Escape_LeavesNoTrace) {
    const Revision before = surface.Actions().Revision();
    const QPoint from = Body(a);
    DragAndHold(from, from - QPoint(60, 65), Qt::AltModifier);
    EXPECT_EQ(b.Left(), 4500);
    Key(Qt::Key_Escape);
    Release(from);
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(600, 900));
    EXPECT_EQ(surface.Actions().Revision(), before);
    EXPECT_EQ(strip.arranged, 0);
}

TEST_F(PageGrowth, ArrowKeys_GrowItInOneStep) {
    a.SetSelected(true);
    for (int i = 0; i < 45; ++i) Key(Qt::Key_Left);
    EXPECT_EQ(a.Left(), 600 - 45 * 15 + 150);
    EXPECT_EQ(b.Left(), 4500 + 150);
    EXPECT_TRUE(view->viewport()->rect().contains(OnScreenAt(a)));
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(b.Left(), 4500);
    EXPECT_EQ(a.Left(), 600);
}

TEST_F(PageGrowth, ResizingBeyondTheEdge_GrowsIt) {
    Click(Body(a));
    const QPoint handle = Handle(a, 0);
    Drag(handle, handle - QPoint(50, 70), Qt::AltModifier);
    EXPECT_EQ(a.Bounds().size(), QSizeF(2250, 1950));
    EXPECT_EQ(a.Bounds().topLeft(), QPointF(-150 + 150, -150 + 150));
    EXPECT_EQ(b.Bounds().topLeft(), QPointF(4650, 3150));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(PageGrowth, DrawingFromBeyondTheEdge_GrowsIt) {
    for (int i = 0; i < 3; ++i) Wheel(QPoint(400, 300), -120, Qt::ControlModifier);
    const QPoint origin = At(QPointF(0, 0));
    ASSERT_GT(origin.x(), 40);
    const QPoint from = origin - QPoint(30, 20), to = origin + QPoint(15, 15);
    Drag(from, to, Qt::AltModifier);
    ASSERT_EQ(surface.Nodes().Count(), 4);
    const Node &drawn = surface.Nodes().Item(4);
    EXPECT_GE(drawn.Left(), 0);
    EXPECT_GE(drawn.Top(), 0);
    EXPECT_GT(b.Left(), 4500);
    EXPECT_LE((OnScreenAt(drawn) - from).manhattanLength(), 2);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(b.Left(), 4500);
}

TEST_F(PageGrowth, CopyDroppedBeyondTheEdge_GrowsIt) {
    const QPoint from = Body(a);
    Drag(from, from + QPoint(-60, 200), Qt::ControlModifier);
    ASSERT_EQ(surface.Nodes().Count(), 4);
    EXPECT_EQ(a.Left(), 600 + 300);
    EXPECT_GE(surface.Nodes().Item(4).Left(), 0);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(PageGrowth, CopiesWithDates_LayTheStripOutOnce) {
    a.SetSelected(true);
    SettleCopies(surface, strip, {QDate(2027, 3, 14)}, QRectF(-600, 0, 300, 300));
    EXPECT_EQ(a.Left(), 600 + 600);
    EXPECT_EQ(strip.dated, 1);
    EXPECT_EQ(strip.arranged, 0) << "dates do it";
    SettleCopies(surface, strip, {QDate()}, QRectF(-600, 0, 300, 300));
    EXPECT_EQ(strip.arranged, 1) << "no date that would";
    SettleCopies(surface, strip, {QDate(2027, 3, 14), QDate()}, QRectF(-600, 0, 300, 300));
    EXPECT_EQ(strip.arranged, 2) << "not those of the nodes";
    EXPECT_EQ(strip.dated, 1);
    SettleCopies(surface, strip, {}, QRectF(0, 0, 300, 300));
    EXPECT_EQ(strip.arranged, 2) << "on the page";
}

TEST_F(PageGrowth, PasteAtAPointerBeyondTheEdge_GrowsIt) {
    a.SetSelected(true);
    view->Copy();
    for (int i = 0; i < 3; ++i) Wheel(QPoint(400, 300), -120, Qt::ControlModifier);
    const QPoint beyond = At(QPointF(0, 0)) + QPoint(-20, 100);
    ASSERT_GT(beyond.x(), 0);
    MoveTo(beyond);
    view->Paste();
    EXPECT_GE(surface.SelectedNode()->Left(), 0);
    EXPECT_GT(a.Left(), 600);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(PageGrowth, SnapToGrid_KeepsEverythingOnIt) {
    surface.Screen().SetSnapToGrid(true);
    surface.Screen().SetGridSize(400);
    a.SetBounds(400, 800, 1600, 800);
    const QPoint from = Body(a);
    Drag(from, from - QPoint(50, 0));
    EXPECT_EQ(a.Left(), 0);
    EXPECT_EQ(b.Left(), 4500 + 400);
}

TEST_F(PageGrowth, NodesOutsideAlready_MoveWithoutMakingItGrow) {
    a.SetBounds(-600, 900, 1500, 900);
    Settle();
    const QPoint from = Body(a) + QPoint(30, 0);
    Drag(from, from + QPoint(20, 0), Qt::AltModifier);
    EXPECT_EQ(a.Left(), -300);
    EXPECT_EQ(b.Left(), 4500);
}

TEST_F(PageGrowth, DragAtTheLeftEdge_ScrollsOnBeyondIt) {
    const QPoint from = Body(b);
    DragAndHold(from, QPoint(2, 300), Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return b.Left() < -1500; }));
    MoveTo(QPoint(60, 300), Qt::AltModifier);
    const QPoint shown = OnScreenAt(b);
    Release(QPoint(60, 300), Qt::AltModifier);
    Settle();
    EXPECT_GE(b.Left(), 0);
    EXPECT_LE((OnScreenAt(b) - shown).manhattanLength(), 2);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(PageGrowth, AtTheZoomThatFits_NothingIsScrolled) {
    surface.SetxZoom(0);
    Settle();
    const QPoint from = Body(a);
    Drag(from, from - QPoint(200, 0), Qt::AltModifier);
    EXPECT_GE(a.Left(), 0);
    EXPECT_GT(b.Left(), 4500);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(PageGrowth, RoutedLinks_KeepTheirRoutes) {
    Node &c = AddNode("c", 300, 400);
    Link &routed = AddLink(b, c);
    routed.SetStyle(5);
    const std::vector<Point> before = routed.Route();
    ShiftAll(surface, 300, 450);
    EXPECT_EQ(routed.Route(), Moved(before, 300, 450));
    EXPECT_FALSE(routed.OwnBends());
    EXPECT_EQ(link.Route(), Moved(route, 300, 450));
}

} // namespace diagram::testing
