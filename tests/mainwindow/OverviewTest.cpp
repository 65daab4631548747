#include "mainwindow/slices/Overview.h"

#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/slices/OverviewMap.h"
#include "mainwindow/slices/OverviewPicture.h"
#include "tests/document/Slices.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QScrollBar>
#include <QTest>

namespace mainwindow::testing {

namespace {

// A window whose slice reaches far beyond what is seen.
class Overviews : public WindowTest {
protected:
    Overviews() {
        window.resize(1000, 700);
        first.SetFillColor(0x0000FF); // red
        ProcessEvents();
    }
    OverviewMap *Map() { return window.TheOverview().Map(); }
    OverviewMap &Await() {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Map() != nullptr; }));
        return *Map();
    }
    QRectF Seen() {
        const QRect seen = View().viewport()->rect();
        return {View().ToSurface(QPointF()), View().ToSurface(QPointF(seen.width(), seen.height()))};
    }
    diagram::SurfaceView &View() { return window.CurrentView(); }
    // The pixel of the picture at that place of the surface.
    QColor At(const QPointF &twips) {
        return Map()->grab().toImage().pixelColor(
            Map()->FromSurface(QRectF(twips, QSizeF())).topLeft().toPoint());
    }
    QPoint OnView(const QPoint &inMap) {
        return View().viewport()->mapFrom(&window, Map()->mapTo(&window, inMap));
    }

    frmMain &window = NewWindow();
    diagram::Node &first = AddNode(window, 900, 900);
    diagram::Node &far = AddNode(window, 60000, 40000);
};

} // namespace

TEST_F(Overviews, ShowsTheWholeSliceWhenPartOfItIsOutOfSight) {
    const OverviewMap &map = Await();
    EXPECT_TRUE(map.isVisible());
    EXPECT_EQ(map.parentWidget(), View().parentWidget());
    EXPECT_TRUE(View().geometry().contains(map.geometry()));
    EXPECT_GT(map.geometry().center().x(), View().geometry().center().x());
    EXPECT_GT(map.geometry().center().y(), View().geometry().center().y());
    EXPECT_EQ(map.accessibleName(), QStringLiteral("Overview"));
    first.SetBounds(0, 0, 9000, 9000);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return At({4500, 4500}).red() > 180 && At({4500, 4500}).blue() < 90;
    })) << "the node is painted where it lies, and follows its changes";
}

TEST_F(Overviews, IsNotThereWhenAllIsInSight) {
    Await();
    far.SetBounds(3000, 3000, 900, 900);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Map() == nullptr; }));
    far.SetBounds(60000, 3000, 900, 900);
    Await();
    far.SetHidden(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Map() == nullptr; })) << "what the filter hides counts nothing";
}

TEST_F(Overviews, FollowsWhatIsInSight) {
    const OverviewMap &map = Await();
    const QPointF before = map.Seen().topLeft();
    View().horizontalScrollBar()->setValue(View().horizontalScrollBar()->value() + 400);
    EXPECT_NEAR(map.Seen().left() - before.x(), 400 * 15, 15);
    EXPECT_NEAR(map.Seen().width(), Seen().width(), 1);
}

TEST_F(Overviews, ADragOfItsFrameMovesThePartInSight) {
    OverviewMap &map = Await();
    document::MarkSaved(window);
    const QPoint from = map.FromSurface(Seen()).center().toPoint();
    const QPointF before = Seen().center();
    QTest::mousePress(&map, Qt::LeftButton, {}, from);
    EXPECT_EQ(Seen().center(), before) << "the press alone moves nothing";
    const QPoint to = from + QPoint(40, 30);
    MoveHeld(map, to);
    const QPointF expected = before + map.ToSurface(to) - map.ToSurface(from);
    EXPECT_NEAR(Seen().center().x(), expected.x(), 30);
    EXPECT_NEAR(Seen().center().y(), expected.y(), 30);
    QTest::mouseRelease(&map, Qt::LeftButton, {}, to);
    EXPECT_TRUE(View().hasFocus());
    EXPECT_FALSE(window.HasUnsavedWork());
}

TEST_F(Overviews, APressBesideItsFrameShowsThatPart) {
    OverviewMap &map = Await();
    QTest::mouseClick(&map, Qt::LeftButton, {}, map.FromSurface(far.Bounds()).center().toPoint());
    EXPECT_TRUE(Seen().contains(far.Bounds()));
}

TEST_F(Overviews, ItsKeysMoveThePartInSightAndEscapeGoesBack) {
    OverviewMap &map = Await();
    window.findChild<QAction *>(QStringLiteral("keyOverview"))->trigger();
    ASSERT_TRUE(map.hasFocus());
    const QRectF before = Seen();
    QTest::keyClick(&map, Qt::Key_Right);
    EXPECT_NEAR(Seen().left() - before.left(), before.width() / 4, 30);
    QTest::keyClick(&map, Qt::Key_PageDown);
    EXPECT_NEAR(Seen().top() - before.top(), before.height() * 0.9, 30);
    QTest::keyClick(&map, Qt::Key_PageUp);
    QTest::keyClick(&map, Qt::Key_Left);
    EXPECT_NEAR(Seen().left(), before.left(), 30);
    EXPECT_NEAR(Seen().top(), before.top(), 30);
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Left(), first.Left()) << "nothing else moves";
    QTest::keyClick(&map, Qt::Key_Escape);
    EXPECT_TRUE(View().hasFocus());
}

TEST_F(Overviews, TheEntryOfViewTurnsItOffInAllWindowsAndIsRemembered) {
    Await();
    frmMain &other = NewWindow();
    other.findChild<QAction *>(QStringLiteral("mnuViewOverview"))->trigger();
    EXPECT_EQ(Map(), nullptr);
    EXPECT_FALSE(window.MenuValue(QStringLiteral("mnuViewOverview")));
    EXPECT_FALSE(NewWindow().MenuValue(QStringLiteral("mnuViewOverview")));
    window.findChild<QAction *>(QStringLiteral("mnuViewOverview"))->trigger();
    EXPECT_TRUE(other.MenuValue(QStringLiteral("mnuViewOverview")));
    Await();
}

TEST_F(Overviews, TheCommandTurnsItOnAndSaysWhereItIsNotNeeded) {
    Overview::SetEnabled(false);
    window.SmartMenuXP1_Click(QStringLiteral("keyOverview"));
    EXPECT_TRUE(Overview::IsEnabled());
    frmMain &other = NewWindow();
    AddNode(other, 900, 900);
    other.SmartMenuXP1_Click(QStringLiteral("keyOverview"));
    EXPECT_EQ(Status(other), QStringLiteral("All of the Slice is in sight: it needs no overview."));
}

TEST_F(Overviews, LeavesItsCornerToADragThatComesNearAndReturns) {
    const OverviewMap &map = Await();
    const QRect corner = map.geometry();
    const QPoint there = OnView(map.rect().center()) - QPoint(map.width() / 2 + 20, 0);
    QTest::mousePress(View().viewport(), Qt::LeftButton, {}, there - QPoint(300, 200));
    MoveHeld(*View().viewport(), there - QPoint(200, 100));
    EXPECT_EQ(map.geometry(), corner);
    MoveHeld(*View().viewport(), there);
    EXPECT_FALSE(map.geometry().intersects(corner));
    QTest::keyClick(&View(), Qt::Key_Escape);
    QTest::mouseRelease(View().viewport(), Qt::LeftButton, {}, there);
    ProcessEvents();
    EXPECT_EQ(map.geometry(), corner);
}

TEST_F(Overviews, LeavesItsCornerToWhatIsSelectedThere) {
    const OverviewMap &map = Await();
    const QRect corner = map.geometry();
    const QPointF below = View().ToSurface(OnView(map.rect().center()));
    diagram::Node &node = AddNode(window, float(below.x()), float(below.y()));
    node.SetSelected(true);
    ProcessEvents();
    EXPECT_FALSE(map.geometry().intersects(corner));
    window.CurrentSurface().UnselectAll();
    ProcessEvents();
    EXPECT_EQ(map.geometry(), corner);
}

TEST_F(Overviews, ShowsTheSliceOnTopAndOutlivesNone) {
    Await();
    document::testing::AddSlice(window);
    window.TabStrip().SetTheTab(1);
    ProcessEvents();
    EXPECT_EQ(Map(), nullptr) << "this one is empty";
    window.TabStrip().SetTheTab(0);
    Await();
    window.Load(SavedMap(QStringLiteral("small.map"), 1));
    ProcessEvents();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Map() == nullptr; }));
}

TEST_F(Overviews, IsInNoPictureAndMakesNoWork) {
    OverviewMap &map = Await();
    window.clsSettings().Dirty = false;
    const QImage view = View().viewport()->grab().toImage();
    const QPoint at = OnView(map.rect().topLeft());
    EXPECT_NE(view.pixelColor(at), map.grab().toImage().pixelColor(0, 0));
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

TEST_F(Overviews, ANarrowWindowHasNone) {
    Await();
    window.resize(300, 300);
    ProcessEvents();
    if (View().width() < 320 && View().height() < 320) {
        EXPECT_EQ(Map(), nullptr);
    } else {
        const OverviewMap *map = Map();
        EXPECT_TRUE(!map || map->width() <= 0.3 * View().width() + 1);
    }
}

// Between the steps events run, so that the window stays usable.
TEST_F(Overviews, PaintsALargeSliceBitByBit) {
    for (int i = 0; i < 3000; ++i) AddNode(window, float(i % 60) * 2000, float(i / 60) * 1500);
    OverviewPicture picture(nullptr);
    const diagram::SurfaceView &view = View();
    picture.Begin(view.TheScene(), view.TheScene().Extent(), QSize(200, 150));
    EXPECT_TRUE(picture.IsPainting());
    EXPECT_TRUE(picture.Image().isNull());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !picture.IsPainting(); }));
    EXPECT_EQ(picture.Image().size(), QSize(200, 150));
    picture.Begin(view.TheScene(), view.TheScene().Extent(), QSize(100, 75));
    EXPECT_EQ(picture.Image().size(), QSize(200, 150)) << "until the new one is whole";
    picture.Forget();
    EXPECT_TRUE(picture.Image().isNull());
    EXPECT_FALSE(picture.IsPainting());
}

} // namespace mainwindow::testing
