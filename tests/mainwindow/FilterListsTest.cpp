// What the lists of levels and groups offer beside their rows: all and none, the tip, the preview.
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "diagram/view/SurfaceView.h"
#include "tests/mainwindow/FilterTest.h"
#include "timeline/TimelineNodes.h"

#include <QToolButton>

namespace mainwindow::testing {

namespace {

struct FilterLists : FilterTest {
    // A tagged node in the colour that IsPainted looks for.
    diagram::Node &Coloured(int group, int level, float left = 300) {
        diagram::Node &node = Tagged(group, level, left);
        node.SetFillColor(support::Rgb(10, 200, 30));
        return node;
    }
    void PressButton(TickBox &box, const char *name) {
        auto *button = box.view()->findChild<QToolButton *>(QLatin1String(name));
        ASSERT_TRUE(button && button->isVisible());
        QTest::mouseClick(button, Qt::LeftButton);
        ProcessEvents();
    }
    // Whether the screen shows the node's colour at its place.
    bool IsPainted(const diagram::Node &node) {
        ProcessEvents();
        const QImage image = window.CurrentView().viewport()->grab().toImage();
        const QPoint at = PixelOf(window, node.Bounds().topLeft() + QPointF(150, 150));
        return image.pixelColor(at * image.devicePixelRatio()) == QColor(10, 200, 30);
    }
};

} // namespace

TEST_F(FilterLists, AllAndNoneTickEveryRowAndTheListStaysOpen) {
    Open(groups);
    PressButton(groups, "cmdAll");
    EXPECT_EQ(groups.Text(), QStringLiteral("Sales,Finance"));
    EXPECT_TRUE(window.clsSettings().Groups().Item(1).Selected);
    EXPECT_TRUE(groups.view()->isVisible());
    PressButton(groups, "cmdNone");
    EXPECT_EQ(groups.Text(), QString());
    EXPECT_FALSE(window.clsSettings().Groups().Item(2).Selected);
    ClickRow(groups, 1);
    EXPECT_EQ(groups.Text(), QStringLiteral("Finance"));
    EXPECT_EQ(levels.Text(), QStringLiteral("2")) << "the other list is as it was";
}

TEST_F(FilterLists, AllAndNoneHaveKeysWhichTheWindowDoesNotTake) {
    diagram::Node &node = Coloured(2, 2);
    levels.setFocus();
    QTest::keyClick(&levels, Qt::Key_Down);
    ProcessEvents();
    ASSERT_TRUE(levels.view()->isVisible());
    QTest::keyClick(levels.view(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(levels.Text(), QStringLiteral("1,2"));
    QTest::keyClick(levels.view(), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(levels.Text(), QString());
    EXPECT_FALSE(node.Selected());
    Close(levels);
    EXPECT_TRUE(node.Hidden());
}

TEST_F(FilterLists, TheRowsAreThoseOfTheMapAndAllOfThemAreInSight) {
    Open(groups);
    EXPECT_EQ(groups.count(), 2);
    QAbstractItemView *list = groups.view();
    const QRect last = list->visualRect(list->model()->index(1, 0));
    EXPECT_TRUE(list->viewport()->rect().contains(last));
    auto *all = list->findChild<QToolButton *>(QStringLiteral("cmdAll"));
    EXPECT_FALSE(QRect(all->mapToGlobal(QPoint()), all->size())
                     .intersects(QRect(list->viewport()->mapToGlobal(QPoint()), list->viewport()->size())));
    EXPECT_FALSE(all->accessibleName().isEmpty());
    EXPECT_TRUE(all->toolTip().contains(QStringLiteral("Ctrl+A")));
}

TEST_F(FilterLists, AListWithoutRowsDoesNotOpen) {
    window.clsSettings().Groups().Clear();
    window.LoadCombos();
    QTest::mouseClick(&groups, Qt::LeftButton);
    ProcessEvents();
    EXPECT_FALSE(groups.IsOpen());
    EXPECT_TRUE(groups.toolTip().contains(QStringLiteral("none")));
}

TEST_F(FilterLists, TheTipTellsWhatIsTicked) {
    EXPECT_TRUE(groups.toolTip().contains(QStringLiteral("Finance")));
    EXPECT_FALSE(groups.toolTip().contains(QStringLiteral("Sales")));
    window.clsSettings().Groups().Item(1).GroupName = QStringLiteral("<b>R&D</b>");
    window.LoadCombos();
    window.ssDBGroups_Click(0);
    EXPECT_TRUE(groups.toolTip().contains(QStringLiteral("&lt;b&gt;R&amp;D&lt;/b&gt;")));
    for (int i = 0; i < 40; ++i)
        window.clsSettings().Groups().Create(QStringLiteral("Group %1").arg(i), true);
    window.LoadCombos();
    EXPECT_LT(groups.toolTip().count(QStringLiteral("<br>")), 30);
    EXPECT_TRUE(groups.toolTip().contains(QStringLiteral("17 more")));
}

TEST_F(FilterLists, WhileAListIsOpenTheScreenShowsWhatItsTicksWouldLeave) {
    diagram::Node &finance = Coloured(2, 2), &sales = Coloured(1, 2, 4000);
    sales.Links().Add(finance).SetStyle(6);
    window.ssDBGroups_CloseUp();
    ASSERT_TRUE(sales.Hidden());
    window.clsSettings().Dirty = false;
    document::MarkSaved(window);
    const diagram::Revision before = window.CurrentSurface().Actions().Revision();
    ASSERT_TRUE(IsPainted(finance));
    ASSERT_FALSE(IsPainted(sales));
    Open(groups);
    ClickRow(groups, 0);
    ClickRow(groups, 1);
    EXPECT_TRUE(IsPainted(sales));
    EXPECT_FALSE(IsPainted(finance));
    EXPECT_TRUE(sales.Hidden()) << "painted only";
    EXPECT_FALSE(finance.Hidden());
    EXPECT_EQ(window.CurrentSurface().Actions().Revision(), before);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_FALSE(window.HasUnsavedWork());
    PressButton(groups, "cmdAll");
    EXPECT_TRUE(IsPainted(finance));
    EXPECT_TRUE(IsPainted(sales));
    PressButton(groups, "cmdNone");
    EXPECT_FALSE(IsPainted(finance));
    EXPECT_FALSE(IsPainted(sales));
    Close(groups);
    EXPECT_TRUE(finance.Hidden()) << "applied when the list closes";
    EXPECT_TRUE(sales.Hidden());
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
    finance.SetHidden(false);
    EXPECT_TRUE(IsPainted(finance)) << "the preview has ended";
}

TEST_F(FilterLists, ASelectedNodeThatThePreviewHidesShowsNoHandles) {
    diagram::Node &node = Coloured(2, 2);
    ProcessEvents();
    const QImage empty = [&] {
        node.SetHidden(true);
        ProcessEvents();
        return window.CurrentView().viewport()->grab().toImage();
    }();
    node.SetHidden(false);
    node.SetSelected(true);
    ProcessEvents();
    Open(groups);
    PressButton(groups, "cmdNone");
    EXPECT_TRUE(node.Selected());
    EXPECT_EQ(window.CurrentView().viewport()->grab().toImage(), empty);
}

TEST_F(FilterLists, ATickWhileNoListIsOpenShowsNoPreview) {
    diagram::Node &node = Coloured(2, 2);
    window.ssDBGroups_Click(1);
    EXPECT_TRUE(IsPainted(node)) << "no list is open that could end it";
}

TEST_F(FilterLists, MonthsStayAsTheMenuSaysInThePreview) {
    diagram::Node &node = Coloured(2, 2);
    diagram::Surface &surface = window.CurrentSurface();
    timeline::LocateTimelineNode(surface, QStringLiteral("17 May 2024"), true, &node);
    diagram::Node &month = *timeline::LocateTimelineNodes(surface).front();
    month.SetLeft(6000);
    month.SetTop(3000);
    month.SetWidth(1500);
    month.SetHeight(900);
    month.SetFillColor(support::Rgb(10, 200, 30));
    for (const bool shown : {false, true}) {
        window.SetMenuValue(QStringLiteral("mnuViewTimeline"), shown);
        window.ssDBGroups_CloseUp();
        const bool painted = IsPainted(month);
        EXPECT_EQ(painted, shown);
        Open(groups);
        PressButton(groups, "cmdNone");
        EXPECT_FALSE(IsPainted(node));
        EXPECT_EQ(IsPainted(month), shown);
        PressButton(groups, "cmdAll");
        EXPECT_TRUE(IsPainted(node));
        Close(groups);
    }
}

TEST_F(FilterLists, TwoWindowsHaveTheirOwnPreviews) {
    diagram::Node &node = Coloured(2, 2);
    frmMain &other = NewWindow();
    QTest::mouseClick(&other.ssDBGroups(), Qt::LeftButton);
    ProcessEvents();
    QTest::keyClick(other.ssDBGroups().view(), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(IsPainted(node));
    EXPECT_EQ(groups.Text(), QStringLiteral("Finance"));
    QTest::keyClick(other.ssDBGroups().view(), Qt::Key_Escape);
    ProcessEvents();
}

} // namespace mainwindow::testing
