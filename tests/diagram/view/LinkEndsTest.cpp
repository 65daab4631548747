// The ends of a link that is there already, and links from a node to itself.
#include "diagram/scene/Scene.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QSignalSpy>

namespace diagram::testing {

class LinkEnds : public ViewTest {
protected:
    LinkEnds()
        : a(AddNode("a", 50, 100)),
          b(AddNode("b", 350, 100)),
          c(AddNode("c", 350, 300)),
          link(AddLink(a, b)) {
        link.SetSelected(true);
        Settle();
    }
    QPoint Start() const { return At(ToQPointF(link.Route().front())); }
    QPoint End() const { return At(ToQPointF(link.Route().back())); }
    int Darkness(const QRect &area) {
        const QImage shown = Part(Seen(), area);
        int sum = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x) sum += 255 - qGray(shown.pixel(x, y));
        return sum;
    }
    int Accented(const QRect &area) {
        const QImage shown = Part(Seen(), area);
        int count = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x) {
                const QColor colour = shown.pixelColor(x, y);
                count += colour.blue() > 150 && colour.red() < 60;
            }
        return int(count / (shown.devicePixelRatio() * shown.devicePixelRatio()));
    }
    Node &a, &b, &c;
    Link &link;
};

TEST_F(LinkEnds, Source_IsDraggedToAnotherNode) {
    Drag(Start(), Middle(c));
    EXPECT_EQ(&link.Source(), &c);
    EXPECT_EQ(&link.Destination(), &b);
    EXPECT_EQ(c.Links().Count(), 1);
    EXPECT_EQ(a.Links().Count(), 0);
    EXPECT_EQ(events.Count("AfterStretch"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(&link.Source(), &a);
}

TEST_F(LinkEnds, EndDraggedToTheOtherEndsNode_MakesALoop) {
    const std::vector<Point> route = link.Route();
    Drag(End(), Middle(a));
    EXPECT_EQ(&link.Source(), &a);
    EXPECT_EQ(&link.Destination(), &a);
    EXPECT_GE(link.Route().size(), 4U);
    surface.Undo();
    EXPECT_EQ(link.Route(), route);
}

TEST_F(LinkEnds, DroppedOnItsOwnNode_ChangesNothing) {
    Drag(End(), Middle(b));
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterStretch"), 0);
}

TEST_F(LinkEnds, DroppedOnEmptySurface_SaysWhy) {
    QSignalSpy hints(view.get(), &SurfaceView::HintShown);
    Drag(End(), QPoint(600, 450));
    ASSERT_FALSE(hints.isEmpty());
    EXPECT_EQ(hints.last()[0].value<Hint>(), Hint::LinkNeedsNode);
    EXPECT_EQ(&link.Destination(), &b);
}

TEST_F(LinkEnds, SelectedLink_LeavesItsLabelReadable) {
    link.SetText(QStringLiteral("a label of some words"));
    link.SetSelected(false);
    MoveTo(QPoint(600, 480));
    const QRectF label = view->TheScene().LabelBounds(link);
    const QRect inside = QRect(At(label.topLeft()), At(label.bottomRight())).adjusted(2, 2, -2, -2);
    const QImage before = Part(Seen(), inside);
    link.SetSelected(true);
    Settle();
    EXPECT_EQ(DifferingPixels(Part(Seen(), inside), before), 0);
}

TEST_F(LinkEnds, WhileDragged_TheOldLineAndItsHeadStandBackAndTheNodesDoNot) {
    const QRect head(End() - QPoint(11, 4), QSize(9, 8));
    const QRect line(QPoint(200, End().y() - 2), QSize(60, 4));
    const QRect border(QPoint(End().x() - 2, End().y() - 30), QSize(4, 60)); // at the outline of the node
    link.SetSelected(false);
    MoveTo(QPoint(600, 480));
    const int headBefore = Darkness(head), lineBefore = Darkness(line), borderBefore = Darkness(border);
    link.SetSelected(true);
    DragAndHold(End(), QPoint(450, 480));
    EXPECT_LT(Darkness(head), headBefore / 3);
    EXPECT_LT(Darkness(line), lineBefore / 3);
    EXPECT_GT(Darkness(border), borderBefore * 9 / 10) << "the outline has a hole";
}

TEST_F(LinkEnds, WhileDragged_TheHeadIsWhereTheLinkWillHaveIt) {
    DragAndHold(End(), QPoint(150, 450));
    EXPECT_GT(Accented(QRect(145, 438, 10, 12)), 40) << "at the loose end";
    Key(Qt::Key_Escape);
    Release(hand->At());
    DragAndHold(Start(), QPoint(600, 450)); // from where no node is in the way
    EXPECT_LT(Accented(QRect(592, 438, 10, 12)), 40) << "not at the loose end";
    EXPECT_GT(Accented(QRect(413, 160, 16, 14)), 40) << "at the other";
    Key(Qt::Key_Escape);
    Release(hand->At());
    link.SetArrowDest(0);
    DragAndHold(End(), QPoint(150, 450));
    EXPECT_LT(Accented(QRect(145, 438, 10, 12)), 40) << "it has none";
}

TEST_F(LinkEnds, LinkDrawnBackToItsNode_ShowsTheLoopThatComes) {
    const QRect corner(Middle(c).x() + 50 + 10, Middle(c).y() - 30 - 25, 20, 20); // right above the node
    MoveTo(QPoint(600, 480));
    EXPECT_EQ(Accented(corner), 0);
    DragAndHold(LinkStart(c), QPoint(600, 480));
    EXPECT_EQ(Accented(corner), 0);
    MoveTo(Middle(c));
    EXPECT_GT(Accented(corner), 20);
    Release(Middle(c));
    ASSERT_EQ(c.Links().Count(), 1);
    const Link &loop = c.Links().Item(1);
    EXPECT_EQ(loop.Route().size(), 5U);
    for (const Point &point : loop.Route())
        EXPECT_FALSE(c.Bounds().adjusted(1, 1, -1, -1).contains(ToQPointF(point)));
}

} // namespace diagram::testing
