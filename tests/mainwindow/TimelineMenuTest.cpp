#include "mainwindow/commands/TimelineMenu.h"
#include "diagram/shapes/Shapes.h"
#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "mainwindow/find/Finder.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AdjustLinks.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace mainwindow::testing {

class Timeline : public WindowTest {
protected:
    static TimelineMenu &Popup(frmMain &window) { return *window.findChild<TimelineMenu *>(); }
    static QAction &Entry(frmMain &window, const char *key) {
        return *Popup(window).Item(QLatin1String(key));
    }
    // Gives the node a date: a link to a hidden day at that place.
    static diagram::Link &Date(frmMain &window, diagram::Node &node, float left, float top) {
        diagram::Node &day = window.CurrentSurface().Nodes().Add(left, top, 150, 600);
        day.SetMarked(true);
        day.SetSelectable(false);
        day.SetHidden(true);
        diagram::Link &link = node.Links().Add(day);
        link.SetSelectable(false);
        link.SetMarked(true);
        return link;
    }
};

TEST_F(Timeline, ARightClickOnAMonthOpensThePopupAtThePointer) {
    frmMain &window = NewWindow();
    diagram::Node &month = AddMonth(window, 300, QStringLiteral("May 2024"));
    AddMonth(window, 3000, QStringLiteral("June 2024"));
    RightClick(window, {400, 400});
    EXPECT_TRUE(Popup(window).isVisible());
    EXPECT_EQ(Popup(window).pos(), window.CurrentView().viewport()->mapToGlobal(PixelOf(window, {400, 400})));
    EXPECT_EQ(window.oTemplateNode(), &month);
    EXPECT_TRUE(Entry(window, "mnuTemplateNodeHide").isEnabled());
    EXPECT_TRUE(desktop.dialogHost.shown.isEmpty());
}

TEST_F(Timeline, ThePopupHasItsEntriesInOrder) {
    QStringList captions;
    for (const QAction *entry : Popup(NewWindow()).actions()) captions << entry->text();
    EXPECT_EQ(captions, QStringList({"Timeline Settings...", "", "Hide", "UnHide", "", "Fold", "Fold Quarter",
                                     "Fold Year", "Unfold All"}));
}

TEST_F(Timeline, WithOneVisibleMonthHideIsDisabled) {
    frmMain &window = NewWindow();
    AddMonth(window, 300, QStringLiteral("May 2024"));
    AddMonth(window, 3000, QStringLiteral("June 2024")).SetHidden(true);
    AddNode(window, 6000, 300, QStringLiteral("no month"));
    RightClick(window, {400, 400});
    EXPECT_TRUE(Popup(window).isVisible());
    EXPECT_FALSE(Entry(window, "mnuTemplateNodeHide").isEnabled());
    EXPECT_TRUE(Entry(window, "mnuTemplateNodeUnHide").isEnabled());
}

TEST_F(Timeline, AHiddenMonthGetsNoPopup) {
    frmMain &window = NewWindow();
    diagram::Node &month = AddMonth(window, 300, QStringLiteral("May 2024"));
    month.SetHidden(true);
    RightClick(window, {400, 400});
    window.ShowNodeProperties(month, 0, 0);
    EXPECT_FALSE(Popup(window).isVisible());
    EXPECT_TRUE(desktop.dialogHost.shown.isEmpty());
    EXPECT_EQ(window.oTemplateNode(), nullptr);
}

TEST_F(Timeline, HideHidesTheMonthOfThePopupAndArrangesAsTheSliceSays) {
    frmMain &window = NewWindow();
    document::SetTag(window.CurrentSurface(), document::tags::kTimelineAlign, QStringLiteral("2"));
    diagram::Node &month = AddMonth(window, 300, QStringLiteral("May 2024"));
    diagram::Node &other = AddMonth(window, 3000, QStringLiteral("June 2024"));
    diagram::Node &last = AddMonth(window, 9000, QStringLiteral("July 2024"));
    RightClick(window, {400, 400});
    QTest::keyClick(&Popup(window), Qt::Key_Down);
    QTest::keyClick(&Popup(window), Qt::Key_Down);
    QTest::keyClick(&Popup(window), Qt::Key_Return);
    EXPECT_TRUE(month.Hidden());
    EXPECT_FALSE(month.Selected());
    EXPECT_FALSE(other.Hidden());
    EXPECT_EQ(window.oTemplateNode(), nullptr);
    EXPECT_FLOAT_EQ(last.Left(), other.Left() + other.Width());
    EXPECT_EQ(last.Top(), other.Top());
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

TEST_F(Timeline, UnHideShowsTheMonthsAndTheSetupArrangesThem) {
    frmMain &window = NewWindow();
    diagram::Node &month = AddMonth(window, 9000, QStringLiteral("May 2024"));
    month.SetHidden(true);
    Entry(window, "mnuTemplateNodeUnHide").trigger();
    EXPECT_FALSE(month.Hidden());
    month.SetLeft(9000);
    desktop.ExpectForm<timeline::TimelineSetupArgument>(
        [](timeline::TimelineSetupArgument &) { return true; });
    Entry(window, "mnuTemplateNodeOpen").trigger();
    EXPECT_NE(month.Left(), 9000);
}

TEST_F(Timeline, AnUnknownEntryIsTold) {
    frmMain &window = NewWindow();
    desktop.ExpectMessage(QStringLiteral("Unknown Key mnuNothing"));
    window.SMXP_Click(QStringLiteral("mnuNothing"));
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

TEST_F(Timeline, MovingAdjustsTheLinksOfEverySelectedNodeByTheArrangementOfTheSlice) {
    frmMain &window = NewWindow();
    diagram::Node &a = AddNode(window, 300, 300, QStringLiteral("a"));
    diagram::Node &b = AddNode(window, 3000, 300, QStringLiteral("b"));
    diagram::Node &c = AddNode(window, 6000, 300, QStringLiteral("c"));
    diagram::Link *links[] = {&Date(window, a, 9000, 7500), &Date(window, b, 9000, 9000)};
    const std::vector<diagram::Point> unmoved = Date(window, c, 9000, 12000).Route();
    a.SetSelected(true);
    b.SetSelected(true);
    const std::pair<const char *, bool> arrangements[] = {
        {"", false}, {"0", false}, {"1", false}, {"2", true}, {"3", true}, {"4", true}, {"5", false}};
    for (const auto &[align, horizontal] : arrangements) {
        window.CurrentSurface().SetTag(QString());
        if (*align)
            document::SetTag(window.CurrentSurface(), document::tags::kTimelineAlign, QLatin1String(align));
        Press(window, QStringLiteral("Right"));
        for (const diagram::Link *link : links) {
            const QRectF day = link->Destination().Bounds();
            const diagram::Point end = link->Route().back();
            const QPointF edge =
                horizontal ? QPointF(day.center().x(), day.top()) : QPointF(day.left(), day.center().y());
            EXPECT_EQ(diagram::ToQPointF(end), edge) << align;
        }
    }
    EXPECT_EQ(c.Links().Item(1).Route(), unmoved);
}

TEST_F(Timeline, AMonthIsNeverSelectedAndSoLeftAloneByEveryCommand) {
    frmMain &window = NewWindow();
    diagram::Node &month = AddMonth(window, 300, QStringLiteral("May 2024"));
    AddMonth(window, 3000, QStringLiteral("June 2024"));
    diagram::Node &node = AddNode(window, 6000, 3000, QStringLiteral("a"));
    node.SetSelected(true);
    const QRectF before = month.Bounds();
    RightClick(window, {400, 400});
    ASSERT_TRUE(Popup(window).isVisible());
    EXPECT_FALSE(node.Selected());
    EXPECT_FALSE(month.Selected());
    QTest::keyClick(&Popup(window), Qt::Key_Escape);
    for (const char *keys : {"F2", "Right", "Alt+Right", "Ctrl+C", "Ctrl+D", "Ctrl+X", "Del", "x"}) {
        month.SetSelected(true);
        Press(window, QLatin1String(keys));
        EXPECT_FALSE(window.CurrentView().IsEditing()) << keys;
    }
    month.SetSelected(true);
    Press(window, QStringLiteral("Ins"));
    EXPECT_TRUE(window.CurrentView().IsEditing()) << "the new node, which is no child of the month";
    EXPECT_TRUE(window.CurrentSurface().Links().empty());
    window.CurrentView().EndEdit(false);
    EXPECT_EQ(month.Bounds(), before);
    QStringList texts;
    for (const diagram::Node &each : window.CurrentSurface().Nodes())
        if (!each.Hidden()) texts << each.Text();
    EXPECT_EQ(texts, QStringList({"May 2024", "June 2024", "a", ""})) << "the last one by Ins";
}

// A node with a date, on a slice whose strip runs from left to right.
class Dated : public Timeline {
protected:
    Dated() {
        document::SetTag(window.CurrentSurface(), document::tags::kTimelineAlign, QStringLiteral("4"));
        node.SetFillColor(support::kWhite);
    }
    // Resizes the node by what a user does, and expects the link to end at the day and at the node's outline,
    // and one step of undo to take it all back.
    void Resize(const std::function<void()> &how) {
        timeline::AdjustLinks(node, true);
        const QRectF box = node.Bounds();
        const std::vector<diagram::Point> way = link.Route();
        how();
        ASSERT_NE(node.Bounds(), box);
        EXPECT_EQ(link.Route().back(), (diagram::Point{9075, 7500}));
        const QPointF end =
            diagram::OutlineCrossing(node.Shape(), 0, node.Bounds(), diagram::ToQPointF(link.Route()[1]));
        EXPECT_NEAR(link.Route().front().x, end.x(), 1);
        EXPECT_NEAR(link.Route().front().y, end.y(), 1);
        EXPECT_NE(link.Route().front(), way.front());
        Press(window, QStringLiteral("Ctrl+Z"));
        EXPECT_EQ(node.Bounds(), box);
        EXPECT_EQ(link.Route(), way);
    }
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300, QStringLiteral("short"));
    diagram::Link &link = Date(window, node, 9000, 7500);
};

TEST_F(Dated, ResizedByHandOrKeysItTakesTheEndOfItsLinkAlong) {
    node.SetSelected(true);
    Resize(
        [&] { Drag(window, node.Bounds().bottomRight(), node.Bounds().bottomRight() + QPointF(900, 600)); });
    Resize([&] { Press(window, QStringLiteral("Alt+Shift+Down")); });
}

TEST_F(Dated, WhileItIsResizedTheEndOfItsLinkStaysWithIt) {
    node.SetSelected(true);
    timeline::AdjustLinks(node, true);
    ProcessEvents();
    const double gap = node.Bounds().bottom() - link.Route().front().y;
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint corner = PixelOf(window, node.Bounds().bottomRight());
    QTest::mousePress(viewport, Qt::LeftButton, {}, corner);
    const QPoint to = corner + QPoint(80, 120);
    MoveHeld(*viewport, to);
    ASSERT_GT(node.Height(), 2000);
    EXPECT_NEAR(node.Bounds().bottom() - link.Route().front().y, gap * node.Height() / 900, 20);
    Press(window, QStringLiteral("Esc"));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
    EXPECT_NEAR(node.Bounds().bottom() - link.Route().front().y, gap, 1);
}

TEST_F(Dated, WhateverChangesTheSizeOfItsTextTakesTheEndOfItsLinkAlong) {
    node.SetAutoSize(3);
    node.SetSelected(true);
    Resize([&] {
        Press(window, QStringLiteral("F2"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("a very much longer text than before"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    });
    Resize([&] {
        window.Find().Open(true);
        window.findChild<QLineEdit *>(QStringLiteral("txtFind"))->setText(QStringLiteral("short"));
        window.findChild<QLineEdit *>(QStringLiteral("txtReplace"))
            ->setText(QStringLiteral("another text that is longer"));
        window.findChild<QAbstractButton *>(QStringLiteral("cmdReplaceAll"))->click();
        window.Find().Close();
    });
    node.SetSelected(true);
    Resize([&] { window.tlbFormat_ButtonClick(QStringLiteral("BOLD")); });
}

TEST_F(Timeline, ADraggedNodeTakesTheEndOfItsTimelineLinkAlongInOneStep) {
    frmMain &window = NewWindow();
    document::SetTag(window.CurrentSurface(), document::tags::kTimelineAlign, QStringLiteral("4"));
    diagram::Node &node = AddNode(window, 300, 300);
    diagram::Link &link = Date(window, node, 9000, 7500);
    const std::vector<diagram::Point> before = link.Route();
    Drag(window, {400, 400}, {1900, 1900});
    ASSERT_FLOAT_EQ(node.Left(), 1800);
    EXPECT_EQ(link.Route().back(), (diagram::Point{9075, 7500}));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_FLOAT_EQ(node.Left(), 300);
    EXPECT_EQ(link.Route(), before);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

} // namespace mainwindow::testing
