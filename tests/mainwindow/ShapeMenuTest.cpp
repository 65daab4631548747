// The menu of shapes for a new element.
#include "mainwindow/controls/ShapeMenu.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/MenuColumns.h"
#include "mainwindow/menus/Toolbar.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <set>

namespace mainwindow::testing {

namespace {

class ShapeMenus : public WindowTest {
protected:
    static Toolbar &Bar(const frmMain &window) {
        return *window.findChild<Toolbar *>(QStringLiteral("tlbFormat"));
    }
    // Opens it below its button.
    ShapeMenu &Open(const frmMain &window) {
        QAction *button = Bar(window).Button(QStringLiteral("NEW"));
        const QWidget *tool = Bar(window).widgetForAction(button);
        button->menu()->popup(tool->mapToGlobal(tool->rect().bottomLeft()));
        ProcessEvents();
        return *qobject_cast<ShapeMenu *>(button->menu());
    }
    static std::vector<QRect> Places(const QMenu &menu) {
        std::vector<QRect> places;
        for (QAction *action : menu.actions()) places.push_back(menu.actionGeometry(action));
        return places;
    }
};

} // namespace

TEST(MenuColumns, AreAsFewAsTakeUpAGoodHalfOfTheScreen) {
    const ColumnPlan large = PlanColumns(44, {190, 25}, 18, {1920, 1080});
    EXPECT_EQ(large.rows, 22);
    EXPECT_EQ(large.height, 25);
    EXPECT_EQ(PlanColumns(44, {190, 25}, 18, {1366, 768}).rows, 15);
}

TEST(MenuColumns, FitASmallScreenAcrossAndDown) {
    for (const QSize &screen : {QSize(683, 384), QSize(640, 360), QSize(800, 600)}) {
        const ColumnPlan plan = PlanColumns(44, {190, 26}, 16, screen);
        const int columns = (44 + plan.rows - 1) / plan.rows;
        EXPECT_LE(columns * 190, screen.width());
        EXPECT_LE(plan.rows * plan.height, screen.height());
    }
}

TEST(MenuColumns, AFewEntriesStandBelowEachOther) {
    EXPECT_EQ(PlanColumns(5, {190, 25}, 18, {1366, 768}).rows, 5);
    EXPECT_EQ(PlanColumns(0, {190, 25}, 18, {1366, 768}).rows, 1);
}

TEST_F(ShapeMenus, StandsOnTheScreenWithEveryEntryInSight) {
    const ShapeMenu &menu = Open(NewWindow());
    EXPECT_TRUE(menu.screen()->availableGeometry().contains(menu.geometry()));
    std::set<int> columns;
    const std::vector<QRect> places = Places(menu);
    ASSERT_EQ(places.size(), 44U);
    for (const QRect &place : places) {
        EXPECT_TRUE(menu.rect().contains(place));
        columns.insert(place.left());
    }
    EXPECT_GT(columns.size(), 1U);
}

TEST_F(ShapeMenus, StandsBelowItsButtonOrAbove) {
    frmMain &window = NewWindow();
    const QWidget *tool = Bar(window).widgetForAction(Bar(window).Button(QStringLiteral("NEW")));
    const ShapeMenu &menu = Open(window);
    const QRect button(tool->mapToGlobal(QPoint(0, 0)), tool->size());
    EXPECT_EQ(menu.y(), button.bottom() + 1);
}

TEST_F(ShapeMenus, TheKeysReachEveryEntryAndGoAcross) {
    ShapeMenu &menu = Open(NewWindow());
    QTest::keyClick(&menu, Qt::Key_Down);
    EXPECT_EQ(menu.activeAction(), menu.actions().first());
    QTest::keyClick(&menu, Qt::Key_Right);
    EXPECT_GT(menu.actionGeometry(menu.activeAction()).left(),
              menu.actionGeometry(menu.actions().first()).right());
    QTest::keyClick(&menu, Qt::Key_Left);
    EXPECT_EQ(menu.activeAction(), menu.actions().first());
    for (qsizetype i = 1; i < menu.actions().size(); ++i) {
        QTest::keyClick(&menu, Qt::Key_Down);
        EXPECT_EQ(menu.activeAction(), menu.actions()[i]);
    }
    int chosen = -1;
    QObject::connect(&menu, &ShapeMenu::Chosen, &menu, [&](int tag) { chosen = tag; });
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(chosen, 77);
}

TEST_F(ShapeMenus, TheViewGoesToTheNewNode) {
    frmMain &window = NewWindow();
    AddNode(window, 30000, 30000);
    ProcessEvents();
    diagram::SurfaceView &view = window.CurrentView();
    view.EnsureVisible(QRectF(30000, 30000, 1500, 900));
    ASSERT_GT(view.verticalScrollBar()->value(), 0);
    window.tlbFormat_ButtonMenuClick(8);
    ProcessEvents();
    EXPECT_TRUE(
        QRectF(view.viewport()->rect())
            .contains(QRectF(view.FromSurface(QPointF(0, 0)), view.FromSurface(QPointF(1300, 1300)))));
}

} // namespace mainwindow::testing
