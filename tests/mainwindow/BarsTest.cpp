// Nodes with an end: how the user gives it, and drags it.
#include "tests/mainwindow/DatesTest.h"

#include "mainwindow/commands/TimelineCommands.h"
#include "mainwindow/edits/ItemDescription.h"
#include "timeline/AtDates.h"
#include "timeline/LineUpPlan.h"
#include "timeline/Span.h"

namespace mainwindow::testing {

namespace {

using timeline::Span;

constexpr double kSlot = 100; // twips of a day of March

QDate March(int day) { return {2004, 3, day}; }

struct Bars : Strips {
    diagram::Surface &surface = window.CurrentSurface();
    QAction &keep = *window.findChild<QAction *>(QStringLiteral("mnuViewTimelineKeep"));
    QAction &push = *window.findChild<QAction *>(QStringLiteral("mnuViewTimelinePush"));

    void Type(const QString &text) {
        EnterDate(text);
        Press(window, QStringLiteral("Ctrl+T"));
        ProcessEvents();
    }
    // A bar from the 14th to the 20th.
    void MakeBar() {
        keep.trigger();
        Type(QStringLiteral("14/3/2004 - 20/3/2004"));
        surface.UnselectAll();
        node.SetSelected(true);
        ProcessEvents();
    }
    diagram::Node &After(int first, int last) {
        diagram::Node &next = AddNode(window, 6000, 3000, QStringLiteral("Next"));
        timeline::AddTimelineLinks(window, surface,
                                   {{&next, QStringLiteral("%1 March 2004").arg(first), March(last)}});
        node.Links().Add(next);
        return next;
    }
    static Span Of(const diagram::Node &of) { return timeline::SpanOfNode(of).value(); }
    QPointF EndOf(const diagram::Node &bar) { return {bar.Bounds().right(), bar.Bounds().center().y()}; }
    QPointF BeginOf(const diagram::Node &bar) { return {bar.Left(), bar.Bounds().center().y()}; }
};

} // namespace

TEST_F(Bars, CtrlTGivesAnEndAndTakesItAway) {
    MakeBar();
    EXPECT_EQ(Of(node), (Span{March(14), March(20)}));
    EXPECT_EQ(node.Width(), 7 * kSlot);
    desktop.ExpectForm<timeline::DateFormArgument>([](timeline::DateFormArgument &argument) {
        timeline::frmDate form(argument, nullptr);
        EXPECT_EQ(form.findChild<QLineEdit *>(QStringLiteral("txtDate"))->text(),
                  QStringLiteral("14 March 2004 - 20 March 2004"));
        return false;
    });
    Press(window, QStringLiteral("Ctrl+T"));
    Type(QStringLiteral("16 March 2004"));
    EXPECT_EQ(Of(node), Span{March(16)});
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Of(node), (Span{March(14), March(20)}));
    EXPECT_EQ(node.Width(), 7 * kSlot);
}

TEST_F(Bars, TheTooltipAndScreenReadersKnowTheEnd) {
    MakeBar();
    EXPECT_TRUE(TipAt(node.Bounds().center()).contains(QStringLiteral("14 March 2004 - 20 March 2004")));
    EXPECT_EQ(ItemDescription(node, window.clsSettings()),
              QStringLiteral("Sunday, 14 March 2004 to Saturday, 20 March 2004, 7 days"));
}

TEST_F(Bars, DraggedAsAWholeBothEndsGo) {
    MakeBar();
    Drag(window, node.Bounds().center(), node.Bounds().center() + QPointF(3 * kSlot, 0));
    EXPECT_EQ(Of(node), (Span{March(17), March(23)}));
    EXPECT_EQ(node.Left(), 17 * kSlot);
    EXPECT_EQ(node.Width(), 7 * kSlot);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Of(node), (Span{March(14), March(20)}));
}

TEST_F(Bars, DraggedByAnEndItGetsLongerAsOneStep) {
    MakeBar();
    const QRectF before = node.Bounds();
    Drag(window, EndOf(node), EndOf(node) + QPointF(3 * kSlot, 0));
    EXPECT_EQ(Of(node), (Span{March(14), March(23)}));
    EXPECT_EQ(node.Left(), 14 * kSlot);
    EXPECT_EQ(node.Width(), 10 * kSlot);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Of(node), (Span{March(14), March(20)}));
    EXPECT_EQ(node.Bounds(), before);
    Drag(window, BeginOf(node), BeginOf(node) - QPointF(4 * kSlot, 0));
    EXPECT_EQ(Of(node), (Span{March(10), March(20)}));
    EXPECT_EQ(node.Width(), 11 * kSlot);
    EXPECT_EQ(node.Top(), before.top());
}

TEST_F(Bars, ItDoesNotTurnOver) {
    MakeBar();
    Drag(window, EndOf(node), EndOf(node) - QPointF(12 * kSlot, 0));
    EXPECT_EQ(Of(node), (Span{March(14), March(14)}));
    EXPECT_EQ(node.Width(), kSlot);
}

TEST_F(Bars, AHandleAcrossTheStripChangesNoDateAndACornerBoth) {
    MakeBar();
    const double height = node.Height();
    const QPointF below(node.Bounds().center().x(), node.Bounds().bottom());
    Drag(window, below, below + QPointF(0, 600));
    EXPECT_EQ(Of(node), (Span{March(14), March(20)}));
    EXPECT_NEAR(node.Height(), height + 600, 60);
    EXPECT_EQ(node.Width(), 7 * kSlot);
    const double higher = node.Height();
    const QPointF corner = node.Bounds().bottomRight();
    Drag(window, corner, corner + QPointF(2 * kSlot, 600));
    EXPECT_EQ(Of(node), (Span{March(14), March(22)}));
    EXPECT_NEAR(node.Height(), higher + 600, 60);
    EXPECT_EQ(node.Width(), 9 * kSlot);
}

TEST_F(Bars, EscapeLeavesTheEndAndNothingToUndo) {
    MakeBar();
    const QRectF before = node.Bounds();
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint start = PixelOf(window, EndOf(node));
    QTest::mousePress(viewport, Qt::LeftButton, {}, start);
    QTest::mouseMove(viewport, start + QPoint(10, 0));
    QTest::mouseMove(viewport, start + QPoint(30, 0));
    ProcessEvents();
    EXPECT_GT(node.Width(), before.width()) << "it follows the pointer";
    EXPECT_EQ(Of(node).last, March(20));
    Press(window, QStringLiteral("Esc"));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, start + QPoint(30, 0));
    EXPECT_EQ(node.Bounds(), before);
    EXPECT_EQ(Of(node), (Span{March(14), March(20)}));
}

TEST_F(Bars, AltAndAnArrowEndsItLaterOrEarlier) {
    MakeBar();
    Press(window, QStringLiteral("Alt+Right"));
    Press(window, QStringLiteral("Alt+Right"));
    EXPECT_EQ(Of(node), (Span{March(14), March(22)}));
    Press(window, QStringLiteral("Alt+Shift+Left"));
    EXPECT_EQ(Of(node), (Span{March(14), March(15)}));
    EXPECT_EQ(node.Width(), 2 * kSlot);
    const double height = node.Height();
    Press(window, QStringLiteral("Alt+Down"));
    EXPECT_EQ(node.Height(), height + 15);
}

TEST_F(Bars, ACopyKeepsTheEnd) {
    MakeBar();
    Press(window, QStringLiteral("Ctrl+D"));
    const diagram::Node *copy = surface.SelectedNode();
    ASSERT_NE(copy, &node);
    EXPECT_EQ(Of(*copy), (Span{March(14), March(20)}));
    EXPECT_EQ(copy->Width(), 7 * kSlot);
    EXPECT_FALSE(copy->Bounds().intersects(node.Bounds()));
    Press(window, QStringLiteral("Ctrl+C"));
    Press(window, QStringLiteral("Ctrl+V"));
    EXPECT_EQ(Of(*surface.SelectedNode()), (Span{March(14), March(20)}));
}

TEST_F(Bars, PushIsACheckMarkThatIsOffAtFirstAndUndone) {
    EXPECT_FALSE(push.isChecked());
    push.trigger();
    EXPECT_TRUE(timeline::PushesFollowing(surface));
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    ProcessEvents();
    EXPECT_FALSE(timeline::PushesFollowing(surface));
    EXPECT_FALSE(push.isChecked());
}

TEST_F(Bars, WhatFollowsIsShownWhileAnEndIsDraggedAndGoesAlongInTheSameStep) {
    MakeBar();
    diagram::Node &next = After(21, 24);
    push.trigger();
    const QRectF before = next.Bounds();
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint start = PixelOf(window, EndOf(node));
    const QPoint end = PixelOf(window, EndOf(node) + QPointF(3 * kSlot, 0));
    const QPointF edge = before.center() + QPointF(before.width() / 2 + 1.5 * kSlot, 0);
    const QColor ground = PixelAt(edge);
    QTest::mousePress(viewport, Qt::LeftButton, {}, start);
    QTest::mouseMove(viewport, (start + end) / 2);
    QTest::mouseMove(viewport, end);
    ProcessEvents();
    EXPECT_NE(PixelAt(edge), ground) << "its outline, three days on";
    EXPECT_EQ(Of(next), (Span{March(21), March(24)}));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, end);
    EXPECT_EQ(Of(next), (Span{March(24), March(27)}));
    EXPECT_EQ(next.Left(), 24 * kSlot);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Of(node), (Span{March(14), March(20)}));
    EXPECT_EQ(Of(next), (Span{March(21), March(24)}));
    EXPECT_EQ(next.Bounds(), before);
    Drag(window, node.Bounds().center(), node.Bounds().center() + QPointF(2 * kSlot, 0));
    EXPECT_EQ(Of(next), (Span{March(23), March(26)})) << "dragged as a whole too";
}

TEST_F(Bars, KeysThatMoveDatesPushToo) {
    MakeBar();
    diagram::Node &next = After(21, 24);
    push.trigger();
    surface.UnselectAll();
    node.SetSelected(true);
    Press(window, QStringLiteral("Ctrl+Alt+PgDown"));
    EXPECT_EQ(Of(node), (Span{March(15), March(21)}));
    EXPECT_EQ(Of(next), (Span{March(22), March(25)}));
}

} // namespace mainwindow::testing
