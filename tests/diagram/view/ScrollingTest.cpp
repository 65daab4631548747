#include "diagram/model/ScreenValues.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTest>

namespace diagram::testing {

class Scrolling : public ViewTest {
protected:
    Scrolling() {
        for (int row = 0; row < 12; ++row) {
            for (int column = 0; column < 12; ++column) {
                Node &node = AddNode(qPrintable(QStringLiteral("%1,%2").arg(row).arg(column)),
                                     40 + column * 170, 30 + row * 110, 110, 60);
                node.SetShape((row * 12 + column) % 9);
                node.SetShapeOrientation(column % 4);
                node.SetText(QStringLiteral("node %1").arg(row * column));
                if (row > 0) AddLink(surface.Nodes().Item((row - 1) * 12 + column + 1), node);
            }
        }
        Settle();
    }
    int X() const { return view->horizontalScrollBar()->value(); }
    int Y() const { return view->verticalScrollBar()->value(); }
};

TEST_F(Scrolling, Scrolled_ShowsWhatANewViewShows) {
    Shown();
    for (const QPoint &to :
         {QPoint(37, 0), QPoint(37, 211), QPoint(300, 400), QPoint(299, 401), QPoint(0, 0)}) {
        view->horizontalScrollBar()->setValue(to.x());
        view->verticalScrollBar()->setValue(to.y());
        Settle();
        ASSERT_EQ(QPoint(X(), Y()), to);
        EXPECT_EQ(StalePixels(), 0) << to.x() << "," << to.y();
    }
}

TEST_F(Scrolling, StripsOfManySmallScrolls_FitTogether) {
    for (int percent : {75, 100, 130, 150}) {
        view->ZoomAt(percent, QPointF(0, 0));
        view->horizontalScrollBar()->setValue(0);
        view->verticalScrollBar()->setValue(0);
        Shown();
        for (int step = 1; step <= 60; ++step) {
            view->horizontalScrollBar()->setValue(step * 7);
            view->verticalScrollBar()->setValue(step * 5);
            view->viewport()->grab(); // paints the strips
        }
        EXPECT_EQ(StalePixels(), 0) << percent;
    }
}

TEST_F(Scrolling, ChangeWhileScrolledAway_IsSeenAfterScrollingBack) {
    Shown();
    view->verticalScrollBar()->setValue(500);
    Settle();
    surface.Nodes().Item(1).SetFillColor(support::Rgb(255, 0, 0));
    surface.Nodes().Item(1).SetText(QStringLiteral("changed"));
    Settle();
    view->verticalScrollBar()->setValue(0);
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(Scrolling, ChangePaintedBeforeItsTurn_IsSeen) {
    Shown();
    surface.Nodes().Item(1).SetFillColor(support::Rgb(255, 0, 0));
    const QImage image = view->viewport()->grab().toImage();
    EXPECT_EQ(ColourAt(image, Body(surface.Nodes().Item(1)) + QPoint(0, 10)), QColor(255, 0, 0));
}

TEST_F(Scrolling, Surface_KnowsItsSizeAndScroll) {
    EXPECT_EQ(surface.Screen().Width(), float(view->viewport()->width() * 15));
    EXPECT_EQ(surface.Screen().Height(), float(view->viewport()->height() * 15));
    view->horizontalScrollBar()->setValue(40);
    view->verticalScrollBar()->setValue(30);
    EXPECT_EQ(surface.Screen().xScroll(), 600);
    EXPECT_EQ(surface.Screen().yScroll(), 450);
    surface.SetxZoom(150);
    surface.SetyZoom(150);
    Settle();
    EXPECT_EQ(surface.Screen().Width(), float(view->viewport()->width() * 15));
    EXPECT_NEAR(surface.Screen().xScroll(), X() * 10, 0.01);
    view->resize(500, 400);
    Settle();
    EXPECT_EQ(surface.Screen().Width(), float(view->viewport()->width() * 15));
}

TEST_F(Scrolling, Bars_ReachTheContentAndMore) {
    const double right = 40 + 11 * 170 + 110;
    EXPECT_EQ(view->horizontalScrollBar()->minimum(), 0);
    EXPECT_GE(view->horizontalScrollBar()->maximum() + view->viewport()->width(), right);
    AddNode("far", 5000, 100);
    Settle();
    EXPECT_GE(view->horizontalScrollBar()->maximum() + view->viewport()->width(), 5100);
}

TEST_F(Scrolling, MiddleButton_Pans) {
    Press(QPoint(400, 300), {}, Qt::MiddleButton);
    MoveTo(QPoint(350, 280));
    MoveTo(QPoint(300, 200));
    EXPECT_EQ(QPoint(X(), Y()), QPoint(100, 100));
    Release(QPoint(300, 200), {}, Qt::MiddleButton);
    EXPECT_EQ(QPoint(X(), Y()), QPoint(100, 100));
    EXPECT_TRUE(surface.SelectedNodes().empty());
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Scrolling, SpaceDrag_Pans) {
    view->setFocus();
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QCoreApplication::sendEvent(view.get(), &down);
    Drag(QPoint(400, 300), QPoint(300, 250));
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QCoreApplication::sendEvent(view.get(), &up);
    EXPECT_EQ(QPoint(X(), Y()), QPoint(100, 50));
    EXPECT_EQ(surface.Nodes().Count(), 144);
}

TEST_F(Scrolling, PanGivenUpWithEscape_GoesBack) {
    view->horizontalScrollBar()->setValue(50);
    Press(QPoint(400, 300), {}, Qt::MiddleButton);
    MoveTo(QPoint(300, 200));
    Key(Qt::Key_Escape);
    Release(QPoint(300, 200), {}, Qt::MiddleButton);
    EXPECT_EQ(QPoint(X(), Y()), QPoint(50, 0));
}

TEST_F(Scrolling, Wheel_Scrolls) {
    Wheel(QPoint(400, 300), -120);
    EXPECT_GT(Y(), 0);
    EXPECT_EQ(X(), 0);
    Wheel(QPoint(400, 300), -120, Qt::ShiftModifier);
    EXPECT_GT(X(), 0);
}

TEST_F(Scrolling, CtrlWheel_ZoomsAtThePointerAndLeavesTheStoredZoom) {
    view->horizontalScrollBar()->setValue(200);
    view->verticalScrollBar()->setValue(100);
    const QPoint at(500, 350);
    const QPointF under = view->ToSurface(at);
    Wheel(at, 240, Qt::ControlModifier);
    EXPECT_GT(view->ShownZoom(), 120);
    EXPECT_NEAR(view->ToSurface(at).x(), under.x(), 15);
    EXPECT_NEAR(view->ToSurface(at).y(), under.y(), 15);
    EXPECT_EQ(surface.xZoom(), 100);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(StalePixels(), 0);
    for (int notch = 0; notch < 60; ++notch) Wheel(at, 120, Qt::ControlModifier);
    EXPECT_NEAR(view->ShownZoom(), 800, 1e-9);
    for (int notch = 0; notch < 60; ++notch) Wheel(at, -120, Qt::ControlModifier);
    EXPECT_NEAR(view->ShownZoom(), 10, 1e-9);
    view->FollowStoredZoom();
    EXPECT_NEAR(view->ShownZoom(), 100, 1e-9);
}

TEST_F(Scrolling, CtrlWheel_KeepsWhatIsUnderThePointerToThePixel) {
    for (const QPoint at : {QPoint(3, 4), QPoint(400, 300), QPoint(700, 20), QPoint(60, 560)}) {
        view->FollowStoredZoom();
        view->horizontalScrollBar()->setValue(0);
        view->verticalScrollBar()->setValue(0);
        Settle();
        const QPointF under = view->ToSurface(at);
        for (const int angle : {-120, -120, -120, -360, 120, 480, 960, -120, -600, -2400}) {
            Wheel(at, angle, Qt::ControlModifier);
            const QPointF shown = view->FromSurface(under);
            EXPECT_NEAR(shown.x(), at.x(), 0.51 + view->ShownZoom() / 100) << view->ShownZoom();
            EXPECT_NEAR(shown.y(), at.y(), 0.51 + view->ShownZoom() / 100) << view->ShownZoom();
        }
    }
}

TEST_F(Scrolling, CtrlWheel_OutAndInAgainComesBack) {
    const QPoint at(400, 300);
    const QPointF under = view->ToSurface(at);
    for (int i = 0; i < 6; ++i) Wheel(at, -120, Qt::ControlModifier);
    for (int i = 0; i < 6; ++i) Wheel(at, 120, Qt::ControlModifier);
    EXPECT_NEAR(view->ShownZoom(), 100, 1e-6);
    EXPECT_LE((view->ToSurface(at) - under).manhattanLength(), 10 * 15);
}

TEST_F(Scrolling, BeyondTheOrigin_IsShadedUntilANodeIsDrawnThere) {
    for (int i = 0; i < 8; ++i) Wheel(QPoint(400, 300), -120, Qt::ControlModifier);
    const QPoint origin = At(QPointF(0, 0));
    ASSERT_GT(origin.x(), 50);
    const QImage shown = Seen();
    EXPECT_LT(qGray(ColourAt(shown, origin - QPoint(20, 20)).rgb()), 250);
    EXPECT_LT(qGray(ColourAt(shown, origin + QPoint(20, -20)).rgb()), 250);
    const int nodes = surface.Nodes().Count();
    Drag(origin - QPoint(60, 60), origin - QPoint(10, 10), Qt::AltModifier);
    ASSERT_EQ(surface.Nodes().Count(), nodes + 1);
    EXPECT_TRUE(QRectF(0, 0, 1e6, 1e6).contains(surface.SelectedNode()->Bounds()));
}

TEST_F(Scrolling, StoredZoom_IsShown) {
    for (int percent : {75, 150, 100}) {
        surface.SetxZoom(percent);
        surface.SetyZoom(percent);
        Settle();
        EXPECT_NEAR(view->ShownZoom(), percent, 1e-9);
        EXPECT_EQ(StalePixels(), 0) << percent;
    }
}

TEST_F(Scrolling, ZoomZero_FitsTheContentIntoTheWindow) {
    surface.SetxZoom(0);
    surface.SetyZoom(0);
    Settle();
    const QRectF extent = surface.Extent();
    const QRectF seen(view->ToSurface(QPointF(0, 0)),
                      view->ToSurface(QPointF(view->viewport()->width(), view->viewport()->height())));
    EXPECT_TRUE(seen.contains(extent));
    EXPECT_FALSE(view->horizontalScrollBar()->isVisible());
    EXPECT_LT(view->ShownZoom(), 60);
    const double zoom = view->ShownZoom();
    AddNode("far", 6000, 3000);
    Settle();
    EXPECT_LT(view->ShownZoom(), zoom);
    surface.SetxZoom(100);
    surface.SetyZoom(100);
    Settle();
    EXPECT_NEAR(view->ShownZoom(), 100, 1e-9);
    EXPECT_GE(X(), 0);
}

TEST_F(Scrolling, Resized_ShowsWhatANewViewShows) {
    Shown();
    view->resize(640, 700);
    Settle();
    EXPECT_EQ(StalePixels(), 0);
}

TEST_F(Scrolling, EnsureVisible_ScrollsOnlyAsFarAsNeeded) {
    view->EnsureVisible(QRectF(600, 600, 300, 300));
    EXPECT_EQ(QPoint(X(), Y()), QPoint(0, 0));
    view->EnsureVisible(QRectF(1200 * 15, 600, 300, 300));
    EXPECT_GT(X(), 400);
    EXPECT_EQ(Y(), 0);
}

TEST_F(Scrolling, ArrowKeys_DoNotScrollAwayFromANodeThatFillsTheWindow) {
    Node &large = AddNode("large", 100, 100, 3000, 2000);
    large.SetSelected(true);
    Settle();
    view->horizontalScrollBar()->setValue(900);
    view->verticalScrollBar()->setValue(700);
    Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    EXPECT_EQ(large.Left(), 101 * 15);
    EXPECT_EQ(QPoint(X(), Y()), QPoint(900, 700));
    view->horizontalScrollBar()->setValue(0);
    Key(Qt::Key_Right);
    EXPECT_EQ(QPoint(X(), Y()), QPoint(102 - 24, 700)) << "its left side is in sight already";
}

TEST_F(Scrolling, BackColour_FillsTheWholeViewport) {
    surface.SetBackColor(support::Rgb(10, 20, 30));
    Settle();
    view->horizontalScrollBar()->setValue(view->horizontalScrollBar()->maximum());
    const QImage image = Shown();
    EXPECT_EQ(image.pixelColor(image.width() - 2, 2), QColor(10, 20, 30));
    EXPECT_EQ(image.pixelColor(image.width() - 2, image.height() - 2), QColor(10, 20, 30));
}

// The edge pulls the surface along in every gesture that goes somewhere.
TEST_F(Scrolling, DragAtTheEdge_ScrollsWhateverIsDragged) {
    Node &node = AddNode("dragged", 60, 400);
    Settle();
    struct Row {
        const char *what;
        QPoint from;
        Qt::KeyboardModifiers modifiers;
    };
    const Row rows[] = {{"new node", QPoint(600, 520), {}},
                        {"band", QPoint(600, 520), Qt::ShiftModifier},
                        {"link", LinkStart(node), {}},
                        {"copy", Body(node), Qt::ControlModifier}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        view->verticalScrollBar()->setValue(0);
        view->horizontalScrollBar()->setValue(0);
        Settle();
        DragAndHold(row.from, QPoint(500, view->viewport()->height() - 2), row.modifiers);
        EXPECT_TRUE(QTest::qWaitFor([&] { return view->verticalScrollBar()->value() > 30; }));
        Key(Qt::Key_Escape);
        const int stopped = view->verticalScrollBar()->value();
        Release(hand->At(), row.modifiers);
        EXPECT_EQ(view->verticalScrollBar()->value(), stopped);
    }
    EXPECT_FALSE(surface.CanUndo());
}

} // namespace diagram::testing
