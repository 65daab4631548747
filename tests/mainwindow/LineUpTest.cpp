// Nodes at their dates: what the commands do, and what dragging does then.
#include "tests/mainwindow/DatesTest.h"

#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "timeline/AtDates.h"
#include "timeline/DateText.h"
#include "timeline/DaysOfStrip.h"
#include "timeline/LineUpPlan.h"
#include "timeline/Tidy.h"

namespace mainwindow::testing {

namespace {

using timeline::KeepsNodesAtDates;
using timeline::Lanes;

constexpr double kSlot = 100; // twips of a day of March

struct AtDates : Strips {
    QAction &keep = *window.findChild<QAction *>(QStringLiteral("mnuViewTimelineKeep"));
    diagram::Surface &surface = window.CurrentSurface();

    diagram::Node &Dated(float top, const QString &date) {
        diagram::Node &added = AddNode(window, 6000, top);
        timeline::AddTimelineLink(window, surface, added, date);
        return added;
    }
    static double Centre(const diagram::Node &node) { return node.Bounds().center().x(); }
    static QString DateOf(const diagram::Node &node) { return timeline::DateOfNode(node); }
    void SelectAlone(diagram::Node &which) {
        surface.UnselectAll();
        which.SetSelected(true);
        ProcessEvents();
    }
};

} // namespace

TEST_F(AtDates, TheCommandLinesUpAsOneStep) {
    diagram::Node &other = Dated(3000, QStringLiteral("20 March 2004"));
    const QRectF before = node.Bounds();
    Press(window, QStringLiteral("Ctrl+Shift+T"));
    EXPECT_EQ(Centre(node), 14.5 * kSlot);
    EXPECT_EQ(Centre(other), 20.5 * kSlot);
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(node.Bounds(), before);
    EXPECT_EQ(other.Left(), 6000);
    window.tlbFormat_ButtonClick(QStringLiteral("LINEUP"));
    EXPECT_EQ(Centre(node), 14.5 * kSlot);
}

TEST_F(AtDates, TheCommandSaysWhyNothingMoves) {
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineLineUp"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineLineUp"));
    EXPECT_EQ(Status(window), QStringLiteral("Every Node stands at its date."));
    window.findChild<QAction *>(QStringLiteral("mnuViewTimeline"))->trigger();
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineLineUp"));
    EXPECT_EQ(Status(window), QStringLiteral("The timeline is hidden; View, Timeline shows it."));
    window.findChild<QAction *>(QStringLiteral("mnuViewTimeline"))->trigger();
    timeline::RemoveTimelineLinks(node);
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineLineUp"));
    EXPECT_EQ(Status(window), QStringLiteral("No Node has a date yet; Ctrl+T gives one."));
}

TEST_F(AtDates, ThePageFollowsWhereNothingOfWhatWasLinedUpIsSeen) {
    diagram::SurfaceView &view = window.CurrentView();
    const auto isSeen = [&] {
        return view.viewport()->rect().contains(view.FromSurface(node.Bounds().center()).toPoint());
    };
    view.EnsureVisible(QRectF(60000, 30000, 300, 300));
    ASSERT_FALSE(isSeen());
    Press(window, QStringLiteral("Ctrl+Shift+T"));
    EXPECT_TRUE(isSeen());
}

TEST_F(AtDates, TheSwitchIsTickedForTheSliceThatHasItAndUndoneWithWhatItMoved) {
    const QRectF before = node.Bounds();
    EXPECT_FALSE(keep.isChecked());
    keep.trigger();
    EXPECT_TRUE(KeepsNodesAtDates(surface));
    EXPECT_EQ(Centre(node), 14.5 * kSlot);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_FALSE(KeepsNodesAtDates(surface));
    EXPECT_EQ(node.Bounds(), before);
    ProcessEvents();
    EXPECT_FALSE(keep.isChecked());
    Press(window, QStringLiteral("Ctrl+Y"));
    ProcessEvents();
    EXPECT_TRUE(keep.isChecked());
    keep.trigger();
    EXPECT_FALSE(KeepsNodesAtDates(surface));
    EXPECT_EQ(Centre(node), 14.5 * kSlot) << "off, it stays";
}

TEST_F(AtDates, LanesAreChosenInTheMenu) {
    QAction &levels = *window.findChild<QAction *>(QStringLiteral("mnuViewLanesLevel"));
    QAction &none = *window.findChild<QAction *>(QStringLiteral("mnuViewLanesNone"));
    EXPECT_TRUE(none.isChecked());
    levels.trigger();
    EXPECT_EQ(timeline::LanesOf(surface), Lanes::Level);
    EXPECT_FALSE(none.isChecked());
    EXPECT_EQ(node.Left(), 3000) << "nodes don't keep to their dates yet";
    window.findChild<QAction *>(QStringLiteral("mnuViewLanesGroup"))->trigger();
    EXPECT_EQ(timeline::LanesOf(surface), Lanes::Group);
    keep.trigger();
    none.trigger();
    EXPECT_EQ(timeline::LanesOf(surface), Lanes::None);
    EXPECT_TRUE(none.isChecked());
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(timeline::LanesOf(surface), Lanes::Group);
}

TEST_F(AtDates, DraggedAlongTheStripANodeChangesItsDateAsOneStep) {
    keep.trigger();
    const QRectF before = node.Bounds();
    Drag(window, before.center(), before.center() + QPointF(4 * kSlot + 20, 0));
    EXPECT_EQ(DateOf(node), QStringLiteral("18 March 2004"));
    EXPECT_EQ(Centre(node), 18.5 * kSlot);
    EXPECT_EQ(node.Top(), before.top());
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(DateOf(node), QStringLiteral("14 March 2004"));
    EXPECT_EQ(node.Bounds(), before);
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(DateOf(node), QStringLiteral("18 March 2004"));
    EXPECT_EQ(Centre(node), 18.5 * kSlot);
}

TEST_F(AtDates, DraggedAcrossItKeepsItsDateAndItsNewRow) {
    keep.trigger();
    const QRectF before = node.Bounds();
    Drag(window, before.center(), before.center() + QPointF(20, 2400));
    EXPECT_EQ(DateOf(node), QStringLiteral("14 March 2004"));
    EXPECT_EQ(Centre(node), 14.5 * kSlot);
    EXPECT_NEAR(node.Top(), before.top() + 2400, 60);
}

TEST_F(AtDates, DroppedOnAnotherItGivesWay) {
    diagram::Node &other = Dated(3000, QStringLiteral("16 March 2004"));
    keep.trigger();
    const QRectF stays = other.Bounds();
    ASSERT_FALSE(node.Bounds().intersects(stays));
    SelectAlone(node);
    Drag(window, node.Bounds().center(), QPointF(Centre(node), stays.center().y() + 90));
    EXPECT_EQ(other.Bounds(), stays);
    EXPECT_FALSE(node.Bounds().intersects(stays));
    EXPECT_EQ(Centre(node), 14.5 * kSlot);
}

TEST_F(AtDates, AltDragsFreely) {
    keep.trigger();
    const QRectF before = node.Bounds();
    Drag(window, before.center(), before.center() + QPointF(930, 600), Qt::AltModifier);
    EXPECT_EQ(DateOf(node), QStringLiteral("14 March 2004"));
    EXPECT_NEAR(Centre(node), 14.5 * kSlot + 930, 16);
}

TEST_F(AtDates, ADragOfSeveralTakesAllDatesAlongAndOneWithoutADateIsLedByThem) {
    diagram::Node &other = Dated(3000, QStringLiteral("20 March 2004"));
    diagram::Node &plain = AddNode(window, 6000, 6000);
    keep.trigger();
    other.SetSelected(true);
    plain.SetSelected(true);
    node.SetSelected(true);
    ProcessEvents();
    Drag(window, plain.Bounds().center(), plain.Bounds().center() + QPointF(3 * kSlot, 0));
    EXPECT_EQ(DateOf(node), QStringLiteral("17 March 2004"));
    EXPECT_EQ(DateOf(other), QStringLiteral("23 March 2004"));
    EXPECT_NEAR(plain.Left(), 6000 + 3 * kSlot, 16);
}

TEST_F(AtDates, WhileItIsDraggedTheDayIsShownAndEscapeLeavesEverything) {
    keep.trigger();
    const QRectF before = node.Bounds();
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint start = PixelOf(window, before.center());
    const QPoint end = PixelOf(window, before.center() + QPointF(4 * kSlot, 0));
    const auto shown = [&] { return viewport->grab().toImage(); };
    const QImage at14 = shown();
    QTest::mousePress(viewport, Qt::LeftButton, {}, start);
    QTest::mouseMove(viewport, (start + end) / 2);
    QTest::mouseMove(viewport, end);
    ProcessEvents();
    EXPECT_EQ(DateOf(node), QStringLiteral("14 March 2004")) << "until the button is let go";
    EXPECT_NE(shown(), at14);
    Press(window, QStringLiteral("Esc"));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, end);
    EXPECT_EQ(node.Bounds(), before);
    EXPECT_EQ(DateOf(node), QStringLiteral("14 March 2004"));
}

TEST_F(AtDates, WhileItIsDraggedItsLinkStaysStraightAndEndsAtTheStrip) {
    keep.trigger();
    diagram::Link &link = **node.Links().begin();
    const float strip = link.Route().back().y;
    ASSERT_FALSE(link.Selectable());
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint start = PixelOf(window, node.Bounds().center());
    QTest::mousePress(viewport, Qt::LeftButton, {}, start);
    for (const QPoint &at : {start + QPoint(40, 20), start + QPoint(80, 60)}) MoveHeld(*viewport, at);
    EXPECT_NEAR(link.Route().back().x, Centre(node), 1);
    EXPECT_EQ(link.Route().back().y, strip);
    EXPECT_EQ(link.Route().front().x, link.Route().back().x);
    EXPECT_EQ(link.Route().front().y, node.Top());
    Press(window, QStringLiteral("Esc"));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, start);
    EXPECT_NEAR(link.Route().back().x, Centre(node), 1);
    EXPECT_EQ(link.Route().back().y, strip);
}

TEST_F(AtDates, ArrowKeysGoByDaysAlongTheStripAndByPixelsAcrossIt) {
    keep.trigger();
    const double top = node.Top();
    Press(window, QStringLiteral("Right"));
    EXPECT_EQ(DateOf(node), QStringLiteral("15 March 2004"));
    Press(window, QStringLiteral("Shift+Left"));
    EXPECT_EQ(DateOf(node), QStringLiteral("08 March 2004"));
    EXPECT_EQ(Centre(node), 8.5 * kSlot);
    Press(window, QStringLiteral("Down"));
    EXPECT_EQ(node.Top(), top + 15);
    Press(window, QStringLiteral("Ctrl+Z"));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(DateOf(node), QStringLiteral("15 March 2004"));
    keep.trigger();
    Press(window, QStringLiteral("Right"));
    EXPECT_EQ(DateOf(node), QStringLiteral("15 March 2004")) << "off";
}

TEST_F(AtDates, ANodeOfAnotherSizeKeepsItsCentre) {
    keep.trigger();
    node.SetWidth(node.Width() + 600);
    window.AddFlow1_AfterResize(window.CurrentIndex());
    EXPECT_EQ(Centre(node), 14.5 * kSlot);
}

} // namespace mainwindow::testing
