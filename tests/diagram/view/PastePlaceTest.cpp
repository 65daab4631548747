// Where pasted and duplicated nodes come to stand.
#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

#include <algorithm>
#include <QApplication>
#include <QClipboard>
#include <QImage>

namespace diagram::testing {

class PastePlace : public ViewTest {
protected:
    PastePlace() : a(AddNode("a", 100, 100)) {
        a.SetSelected(true);
        Settle();
    }

    void Leave() {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(view->viewport(), &leave);
    }
    QRectF Pasted() {
        EXPECT_TRUE(view->Paste());
        Settle();
        EXPECT_FALSE(surface.SelectedNodes().empty());
        QRectF extent;
        for (const Node *node : surface.SelectedNodes()) extent |= node->Bounds();
        return extent;
    }
    bool NothingOverlaps() {
        for (const Node &one : surface.Nodes())
            for (const Node &other : surface.Nodes())
                if (&one != &other && one.Bounds().intersects(other.Bounds())) return false;
        return true;
    }
    bool IsSeen(const QRectF &box) const {
        return view->viewport()->rect().contains(QRect(At(box.topLeft()), At(box.bottomRight())));
    }

    Node &a;
    const QRectF place{1500, 1500, 1500, 900};
};

TEST_F(PastePlace, WithoutThePointer_PastesGoOnBesideEachOther) {
    view->Copy();
    const QRectF first = Pasted();
    EXPECT_EQ(first.size(), place.size());
    EXPECT_EQ(first.top(), place.top());
    EXPECT_GT(first.left(), place.right());
    const QRectF second = Pasted();
    EXPECT_GT(second.left(), first.right());
    for (int more = 0; more < 20; ++more) EXPECT_TRUE(IsSeen(Pasted())) << more;
    EXPECT_TRUE(NothingOverlaps());
    EXPECT_EQ(UndoSteps(), 22);
}

TEST_F(PastePlace, PointerThatMovedSinceTheCopy_SaysWhere) {
    MoveTo(Middle(a));
    view->Copy();
    MoveTo(QPoint(500, 400));
    const QRectF pasted = Pasted();
    EXPECT_EQ(pasted.center(), view->ToSurface(QPoint(500, 400)));
    EXPECT_EQ(UndoSteps(), 1);
    const QRectF next = Pasted();
    EXPECT_GT(next.left(), pasted.right()) << "not on top of what was just pasted";
    EXPECT_EQ(next.top(), pasted.top());
    surface.Undo();
    surface.Undo();
    EXPECT_EQ(Pasted(), pasted);
}

TEST_F(PastePlace, PointerThatStayedOrLeft_SaysNothing) {
    MoveTo(QPoint(500, 400));
    view->Copy();
    MoveTo(QPoint(501, 401));
    EXPECT_EQ(Pasted().top(), place.top());
    MoveTo(QPoint(300, 500));
    Leave();
    EXPECT_EQ(Pasted().top(), place.top());
    EXPECT_TRUE(NothingOverlaps());
}

TEST_F(PastePlace, PointerOverWhatWasCopied_GivesThePlaceBesideIt) {
    MoveTo(Middle(a));
    view->Copy();
    MoveTo(Middle(a) + QPoint(15, 8));
    const QRectF pasted = Pasted();
    EXPECT_EQ(pasted.top(), place.top());
    EXPECT_GT(pasted.left(), place.right());
}

TEST_F(PastePlace, PointerOverALargeNode_PastesIntoIt) {
    Node &zone = AddNode("zone", 250, 250, 500, 300);
    MoveTo(Middle(a));
    view->Copy();
    MoveTo(Middle(zone));
    EXPECT_EQ(Pasted().center(), zone.Bounds().center());
}

TEST_F(PastePlace, NodesInsideALargeOne_FindRoomThere) {
    Node &zone = AddNode("zone", 50, 50, 700, 500);
    zone.SetZOrder(1);
    view->Copy();
    const QRectF pasted = Pasted();
    EXPECT_EQ(pasted.top(), place.top());
    EXPECT_TRUE(zone.Bounds().contains(pasted));
    EXPECT_FALSE(pasted.intersects(place));
}

TEST_F(PastePlace, WideSelection_GoesBelowWhereThatIsInSight) {
    a.SetBounds(1500, 1500, 9000, 900);
    view->Copy();
    const QRectF pasted = Pasted();
    EXPECT_EQ(pasted.left(), 1500);
    EXPECT_GT(pasted.top(), 2400);
}

TEST_F(PastePlace, AfterACut_ThePlaceIsFree) {
    view->Cut();
    EXPECT_EQ(Pasted(), place);
}

TEST_F(PastePlace, AnotherSurface_GivesTheSamePlaceIfItIsFreeElseOneBeside) {
    view->Copy();
    Surface other;
    SurfaceView otherView(other);
    otherView.resize(800, 600);
    otherView.show();
    otherView.Paste();
    EXPECT_EQ(other.SelectedNode()->Bounds(), place);
    otherView.Paste();
    EXPECT_EQ(other.SelectedNode()->Top(), 1500);
    EXPECT_GT(other.SelectedNode()->Left(), 3000);
}

TEST_F(PastePlace, SeveralNodes_KeepTheirPlacesToEachOther) {
    AddNode("b", 100, 200).SetSelected(true);
    view->Copy();
    view->Paste();
    ASSERT_EQ(surface.SelectedNodes().size(), 2U);
    EXPECT_EQ(surface.SelectedNodes()[1]->Bounds().topLeft() - surface.SelectedNodes()[0]->Bounds().topLeft(),
              QPointF(0, 1500));
    EXPECT_TRUE(NothingOverlaps());
}

TEST_F(PastePlace, SnapToGrid_KeepsEverythingOnIt) {
    surface.Screen().SetSnapToGrid(true);
    view->Copy();
    MoveTo(QPoint(503, 407));
    const QRectF pasted = Pasted();
    EXPECT_EQ(std::fmod(pasted.left(), 150), 0);
    EXPECT_EQ(std::fmod(pasted.top(), 150), 0);
}

TEST_F(PastePlace, NearTheEdge_StaysOnThePage) {
    view->Copy();
    MoveTo(QPoint(10, 300));
    EXPECT_EQ(Pasted().left(), 0);
    EXPECT_EQ(a.Left(), 1500);
}

TEST_F(PastePlace, TextAndPictures_GoToThePointerToo) {
    QApplication::clipboard()->setText(QStringLiteral("one\ntwo"));
    MoveTo(QPoint(400, 420));
    EXPECT_EQ(Pasted().center(), view->ToSurface(QPoint(400, 420)));
    QImage image(64, 32, QImage::Format_RGB32);
    image.fill(Qt::green);
    QApplication::clipboard()->setImage(image);
    MoveTo(QPoint(100, 300));
    EXPECT_EQ(Pasted().center(), view->ToSurface(QPoint(100, 300)));
    Leave();
    QApplication::clipboard()->setText(QStringLiteral("three"));
    const QRectF middle = Pasted();
    EXPECT_NE(Pasted(), middle);
    EXPECT_TRUE(NothingOverlaps());
}

TEST_F(PastePlace, Duplicate_StandsBesideAndTheNextOneFurtherOn) {
    ASSERT_TRUE(view->Duplicate());
    const QRectF first = surface.SelectedNode()->Bounds();
    EXPECT_EQ(first.top(), place.top());
    EXPECT_GT(first.left(), place.right());
    ASSERT_TRUE(view->Duplicate());
    EXPECT_GT(surface.SelectedNode()->Left(), first.right());
    EXPECT_EQ(UndoSteps(), 2);
    EXPECT_EQ(events.Count("AfterSelect"), 2);
    EXPECT_FALSE(view->CanPaste());
}

TEST_F(PastePlace, Duplicate_OfNothingAndOfLinksAlone) {
    Node &b = AddNode("b", 300, 100);
    Link &link = AddLink(a, b);
    surface.UnselectAll();
    EXPECT_FALSE(view->Duplicate());
    link.SetSelected(true);
    EXPECT_FALSE(view->Duplicate());
    EXPECT_FALSE(surface.CanUndo());
    a.SetSelected(true);
    b.SetSelected(true);
    EXPECT_TRUE(view->Duplicate());
    EXPECT_EQ(surface.Links().size(), 2U);
}

TEST_F(PastePlace, FullPage_StillGivesAPlaceOfItsOwn) {
    a.SetBounds(0, 0, 1e6F, 1e6F);
    Settle();
    view->Copy();
    for (int i = 0; i < 3; ++i) {
        view->Paste();
        Settle();
    }
    std::vector<QRectF> boxes;
    for (const Node &node : surface.Nodes()) {
        EXPECT_FALSE(std::ranges::count(boxes, node.Bounds()));
        boxes.push_back(node.Bounds());
    }
}

} // namespace diagram::testing
