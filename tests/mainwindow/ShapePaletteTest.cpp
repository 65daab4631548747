#include "mainwindow/slices/ShapePalette.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/menus/SmartMenu.h"
#include "mainwindow/slices/RecentShapes.h"
#include "mainwindow/slices/ShapeStrip.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/start/StartOffer.h"
#include "settings/GetSet.h"
#include "tests/mainwindow/WindowTest.h"
#include "widgets/ShapeGrid.h"
#include "widgets/ShapePopup.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>

namespace mainwindow::testing {

namespace {

constexpr int kHexagon = 8, kOctogon = 15;

class Palette : public WindowTest {
protected:
    static QAction &Button(const frmMain &window) {
        return *window.menuBar()->findChild<QAction *>(QStringLiteral("keyShapes"));
    }
    // Chooses a shape by F7, words and Enter.
    void Choose(frmMain &window, const QString &words) {
        Press(window, QStringLiteral("F7"));
        widgets::ShapePopup *popup = window.Shapes().Popup();
        ASSERT_NE(popup, nullptr);
        ASSERT_TRUE(popup->isVisible());
        QTest::keyClicks(&popup->Grid().Words(), words);
        QTest::keyClick(&popup->Grid().Words(), Qt::Key_Return);
        ProcessEvents();
        EXPECT_FALSE(popup->isVisible());
    }
    static diagram::Node &Last(frmMain &window) {
        auto nodes = window.CurrentSurface().Nodes();
        return nodes.Item(nodes.Count());
    }
    void TickStrip(frmMain &window, bool shown) {
        if (window.MenuValue(QStringLiteral("mnuViewShapes")) != shown)
            window.menuBar()->findChild<QAction *>(QStringLiteral("mnuViewShapes"))->trigger();
        ProcessEvents();
    }
    static QStringList Rows(const widgets::ShapeGrid &grid) {
        QStringList rows;
        for (int row = 0; row < grid.List().model()->rowCount(); ++row)
            rows << grid.List().model()->index(row, 0).data().toString();
        return rows;
    }
};

} // namespace

TEST_F(Palette, WhatIsChosenIsDrawnAndPlacedUntilEscape) {
    frmMain &window = NewWindow();
    Choose(window, QStringLiteral("hexa"));
    EXPECT_EQ(Status(window),
              QStringLiteral("Hexagon: drag to draw one, or click to place one. Escape ends this."));
    EXPECT_TRUE(window.CurrentView().hasFocus());
    Drag(window, {1500, 1500}, {4500, 3000});
    EXPECT_EQ(Last(window).Shape(), kHexagon);
    EXPECT_TRUE(window.clsSettings().Dirty);
    const int count = window.CurrentSurface().Nodes().Count();
    Click(window, {6000, 4500});
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), count + 1);
    EXPECT_EQ(Last(window).Shape(), kHexagon);
    Press(window, QStringLiteral("Esc"));
    EXPECT_FALSE(window.Shapes().Chosen());
    EXPECT_EQ(Status(window), QString());
    Click(window, {2000, 6000});
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), count + 1);
}

TEST_F(Palette, TheButtonShowsWhatIsChosen) {
    frmMain &window = NewWindow();
    const QString before = Button(window).toolTip();
    EXPECT_TRUE(before.contains(QStringLiteral("F7")));
    EXPECT_FALSE(Button(window).isChecked());
    Choose(window, QStringLiteral("octo"));
    EXPECT_TRUE(Button(window).isChecked());
    EXPECT_TRUE(Button(window).toolTip().contains(QStringLiteral("Octogon")));
    Press(window, QStringLiteral("Esc"));
    EXPECT_FALSE(Button(window).isChecked());
    EXPECT_EQ(Button(window).toolTip(), before);
}

TEST_F(Palette, ANodeOfItGetsLevelAndColourLikeAnyOther) {
    frmMain &window = NewWindow();
    Drag(window, {1500, 1500}, {3000, 3000});
    const support::Colour fill = Last(window).FillColor();
    const QString tag = Last(window).Tag();
    Choose(window, QStringLiteral("octo"));
    Click(window, {6000, 4500});
    EXPECT_EQ(Last(window).FillColor(), fill);
    EXPECT_EQ(Last(window).Tag(), tag);
}

TEST_F(Palette, CountsForAllSlicesOfItsWindowAndForNoOther) {
    frmMain &window = NewWindow(), &other = NewWindow();
    window.ShowWindow();
    Choose(window, QStringLiteral("hexa"));
    window.AddFlow1().Load(1);
    EXPECT_EQ(window.Views().At(1).ShapeToDraw(), kHexagon);
    EXPECT_FALSE(other.CurrentView().ShapeToDraw());
    EXPECT_FALSE(other.Shapes().Chosen());
}

TEST_F(Palette, TakesTheStartPageAway) {
    settings::SaveStartPageEnabled(true);
    frmMain &window = NewWindow();
    window.Start().Offer();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.Start().Page() != nullptr; }));
    window.Shapes().Choose(kHexagon);
    EXPECT_EQ(window.Start().Page(), nullptr);
}

TEST_F(Palette, ListsWhatWasChosenLastFirst) {
    frmMain &window = NewWindow();
    Choose(window, QStringLiteral("hexa"));
    Choose(window, QStringLiteral("octo"));
    Choose(window, QStringLiteral("hexa"));
    frmMain &other = NewWindow();
    other.Shapes().PopUp();
    EXPECT_EQ(Rows(other.Shapes().Popup()->Grid()).mid(0, 4),
              QStringList({"Recently used", "Hexagon", "Octogon", "All shapes"}));
    other.Shapes().Popup()->hide();
}

TEST_F(Palette, EscapeInThePopUpChoosesNothing) {
    frmMain &window = NewWindow();
    Press(window, QStringLiteral("F7"));
    QTest::keyClick(&window.Shapes().Popup()->Grid().Words(), Qt::Key_Escape);
    EXPECT_FALSE(window.Shapes().Popup()->isVisible());
    EXPECT_FALSE(window.Shapes().Chosen());
}

TEST_F(Palette, RemembersSixShapesAtMostAndPassesOverWhatIsNoNumber) {
    settings::SaveSet(QStringLiteral("RecentShapes"), QStringLiteral("8,x,,15"));
    EXPECT_EQ(RecentShapes(), std::vector<int>({8, 15}));
    for (const int shape : {1, 2, 3, 4, 5, 2}) RememberShape(shape);
    EXPECT_EQ(RecentShapes(), std::vector<int>({2, 5, 4, 3, 1, 8}));
}

TEST_F(Palette, TheStripIsOffUntilItIsTickedAndIsRemembered) {
    frmMain &first = NewWindow();
    EXPECT_FALSE(first.Shapes().IsStripShown());
    EXPECT_EQ(first.Shapes().Strip(), nullptr) << "not even made";
    EXPECT_FALSE(first.MenuValue(QStringLiteral("mnuViewShapes")));
    TickStrip(first, true);
    EXPECT_TRUE(first.Shapes().Strip()->isVisible());
    frmMain &second = NewWindow();
    EXPECT_TRUE(second.Shapes().Strip()->isVisible());
    EXPECT_TRUE(second.MenuValue(QStringLiteral("mnuViewShapes")));
    TickStrip(second, false);
    EXPECT_FALSE(second.Shapes().Strip()->isVisible());
    EXPECT_FALSE(NewWindow().Shapes().IsStripShown());
}

TEST_F(Palette, TheStripsOwnButtonUnticksTheEntry) {
    frmMain &window = NewWindow();
    TickStrip(window, true);
    window.Shapes().Strip()->Grid().Words().setFocus();
    window.Shapes().Strip()->close();
    ProcessEvents();
    EXPECT_FALSE(window.Shapes().IsStripShown());
    EXPECT_FALSE(window.MenuValue(QStringLiteral("mnuViewShapes")));
    EXPECT_TRUE(window.CurrentView().hasFocus());
    TickStrip(window, true);
    EXPECT_TRUE(window.Shapes().IsStripShown());
}

TEST_F(Palette, TheStripKeepsItsSideAndItsWidth) {
    {
        frmMain &window = NewWindow();
        TickStrip(window, true);
        ShapeStrip &strip = *window.Shapes().Strip();
        EXPECT_EQ(window.dockWidgetArea(&strip), Qt::RightDockWidgetArea);
        window.addDockWidget(Qt::LeftDockWidgetArea, &strip);
        window.resizeDocks({&strip}, {260}, Qt::Horizontal);
        EXPECT_TRUE(QTest::qWaitFor(
            [] { return settings::GetSet(QStringLiteral("ShapesWidth")) == QStringLiteral("260"); }));
    }
    frmMain &later = NewWindow();
    ShapeStrip &strip = *later.Shapes().Strip();
    EXPECT_EQ(later.dockWidgetArea(&strip), Qt::LeftDockWidgetArea);
    EXPECT_EQ(strip.width(), 260);
}

TEST_F(Palette, AClickInTheStripChooses) {
    frmMain &window = NewWindow();
    TickStrip(window, true);
    const widgets::ShapeList &list = window.Shapes().Strip()->Grid().List();
    const QModelIndex second = list.model()->index(1, 0);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(second).center());
    EXPECT_EQ(window.Shapes().Chosen(), 1);
    EXPECT_EQ(list.Chosen(), 1);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    Press(window, QStringLiteral("Esc"));
    EXPECT_FALSE(list.Chosen());
}

TEST_F(Palette, EscapeInTheStripGoesBackToThePage) {
    frmMain &window = NewWindow();
    TickStrip(window, true);
    window.Shapes().Choose(kHexagon);
    widgets::ShapeGrid &grid = window.Shapes().Strip()->Grid();
    grid.Begin();
    ASSERT_TRUE(grid.Words().hasFocus());
    QTest::keyClick(&grid.Words(), Qt::Key_Escape);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    EXPECT_EQ(window.Shapes().Chosen(), kHexagon);
}

TEST_F(Palette, AShapeThatIsDraggedOntoThePageIsPlacedThere) {
    frmMain &window = NewWindow();
    const auto data = widgets::DragDataOf(kOctogon);
    const QPoint at = window.CurrentView().viewport()->mapTo(&window, PixelOf(window, {4500, 3000}));
    const DropOutcome outcome = DropOn(window, *data, at);
    EXPECT_TRUE(outcome.entered);
    EXPECT_TRUE(outcome.dropped);
    ProcessEvents();
    EXPECT_EQ(Last(window).Shape(), kOctogon);
    EXPECT_NEAR(Last(window).Bounds().center().x(), 4500, 8);
    EXPECT_NEAR(Last(window).Bounds().center().y(), 3000, 8);
    EXPECT_FALSE(window.Shapes().Chosen());
}

TEST_F(Palette, AShapeThatIsDroppedBesideThePageIsNotTaken) {
    frmMain &window = NewWindow();
    const int count = window.CurrentSurface().Nodes().Count();
    const auto data = widgets::DragDataOf(kOctogon);
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QCoreApplication::sendEvent(&window, &drop);
    ProcessEvents();
    EXPECT_FALSE(drop.isAccepted());
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), count);
}

TEST(DraggedShape, IsNoneWhereTheDataIsAnothersOrNoShape) {
    EXPECT_EQ(widgets::DraggedShape(*widgets::DragDataOf(kHexagon)), kHexagon);
    EXPECT_FALSE(widgets::DraggedShape(*widgets::DragDataOf(20)));
    EXPECT_FALSE(widgets::DraggedShape(QMimeData()));
}

} // namespace mainwindow::testing
