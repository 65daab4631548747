// Folding months of the timeline by the pointer, the popup and the keyboard.
#include "tests/mainwindow/DatesTest.h"

#include "mainwindow/commands/TimelineMenu.h"
#include "mainwindow/edits/ItemDescription.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/Folding.h"

namespace mainwindow::testing {

namespace {

using diagram::StripPiece;

// March, April and May 2004; March has one node, April none, May two.
struct Folds : Strips {
    diagram::Surface &surface = window.CurrentSurface();
    Folds() {
        diagram::SetCalendarSource(timeline::CalendarOfStrip, timeline::IsBar);
        document::SetTag(surface, document::tags::kMissing, QStringLiteral("True"));
        for (const char *day : {"03 May 2004", "20 May 2004"})
            timeline::AddTimelineLink(window, surface, AddNode(window, 6000, 3000), QString::fromLatin1(day));
        ProcessEvents();
    }
    ~Folds() override { diagram::SetCalendarSource(nullptr); }
    diagram::Node &Month(int number) {
        return *timeline::LocateTimelineNode(
            surface, QStringLiteral("%1 2004").arg(QLocale().standaloneMonthName(number)), false);
    }
    bool Folded(int number) {
        return timeline::IsFolded(surface, timeline::PieceAround(StripPiece::Month, QDate(2004, number, 1)));
    }
    QAction &Entry(const char *key) { return *window.findChild<TimelineMenu *>()->Item(QLatin1String(key)); }
    void Run(const char *key) { window.SmartMenuXP1_Click(QLatin1String(key)); }
};

} // namespace

TEST_F(Folds, ADoubleClickOnAMonthFoldsAndUnfoldsItAsOneStep) {
    const QPointF middle = Month(4).Bounds().center();
    window.clsSettings().Dirty = false;
    DoubleClick(window, middle);
    EXPECT_TRUE(Folded(4));
    EXPECT_EQ(Month(5).Left(), 3100 + timeline::kSliver);
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_FALSE(Folded(4));
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_TRUE(Folded(4));
    DoubleClick(window, Month(4).Bounds().center());
    EXPECT_FALSE(Folded(4));
    EXPECT_EQ(Month(5).Left(), 6200);
}

TEST_F(Folds, TheBandsFoldTheirQuartersAndYears) {
    constexpr double kStrip = 450, kBand = diagram::kBandThickness,
                     kInside = 100; // heights, and a place in a band
    const double quarters = kStrip + kInside, years = kStrip + kBand + kInside;
    DoubleClick(window, {4000, quarters});
    EXPECT_EQ(Month(4).Bounds(), Month(5).Bounds());
    EXPECT_FALSE(Folded(3));
    DoubleClick(window, {200, years});
    EXPECT_EQ(Month(3).Bounds(), Month(5).Bounds());
    EXPECT_EQ(surface.SelectedNodes().size(), 0u);
    DoubleClick(window, {200, years});
    EXPECT_EQ(Month(5).Left(), 6200);
}

TEST_F(Folds, TheTooltipAndTheScreenReaderTellOfIt) {
    EXPECT_TRUE(TipAt(Month(5).Bounds().center()).contains(QStringLiteral("A double click folds it")));
    DoubleClick(window, Month(5).Bounds().center());
    EXPECT_TRUE(TipAt(Month(5).Bounds().center()).contains(QStringLiteral("May 2004, folded, 2 nodes")));
    EXPECT_EQ(ItemDescription(Month(5), window.clsSettings()), QStringLiteral("folded, 2 nodes"));
    EXPECT_EQ(ItemDescription(Month(4), window.clsSettings()), QString());
    EXPECT_TRUE(TipAt({4000, 550}).contains(QStringLiteral("Q2 2004")));
}

TEST_F(Folds, ThePopupFoldsAndUnfolds) {
    window.ShowNodeProperties(Month(4), 0, 0);
    EXPECT_EQ(Entry("mnuTemplateNodeFold").text(), QStringLiteral("Fold"));
    EXPECT_FALSE(Entry("mnuTemplateNodeUnfoldAll").isEnabled());
    Entry("mnuTemplateNodeFold").trigger();
    EXPECT_TRUE(Folded(4));
    window.ShowNodeProperties(Month(4), 0, 0);
    EXPECT_EQ(Entry("mnuTemplateNodeFold").text(), QStringLiteral("Unfold"));
    EXPECT_TRUE(Entry("mnuTemplateNodeFoldYear").isEnabled());
    Entry("mnuTemplateNodeFoldYear").trigger();
    EXPECT_EQ(Month(3).Bounds(), Month(5).Bounds());
    window.ShowNodeProperties(Month(4), 0, 0);
    EXPECT_FALSE(Entry("mnuTemplateNodeFoldYear").isEnabled());
    EXPECT_FALSE(Entry("mnuTemplateNodeFoldQuarter").isEnabled());
    Entry("mnuTemplateNodeFold").trigger();
    EXPECT_FALSE(Folded(3)) << "the whole year";
    window.ShowNodeProperties(Month(4), 0, 0);
    Entry("mnuTemplateNodeFoldQuarter").trigger();
    EXPECT_EQ(Month(4).Bounds(), Month(5).Bounds());
    window.ShowNodeProperties(Month(3), 0, 0);
    Entry("mnuTemplateNodeUnfoldAll").trigger();
    EXPECT_FALSE(Folded(4));
    surface.Undo();
    EXPECT_TRUE(Folded(4)) << "one step";
}

TEST_F(Folds, TheKeyboardFoldsWhatHoldsTheSelection) {
    surface.UnselectAll();
    node.SetSelected(true);
    ProcessEvents();
    Run("keyFoldMonth");
    EXPECT_TRUE(Folded(3));
    EXPECT_EQ(Status(window), QStringLiteral("March 2004: folded, one node"));
    Run("keyFoldMonth");
    EXPECT_FALSE(Folded(3));
    EXPECT_EQ(Status(window), QStringLiteral("March 2004: unfolded"));
    Run("keyFoldQuarter");
    EXPECT_TRUE(Folded(3));
    EXPECT_FALSE(Folded(4));
    Run("keyFoldYear");
    EXPECT_TRUE(Folded(4));
    Run("keyUnfoldAll");
    EXPECT_FALSE(Folded(4));
    Run("keyUnfoldAll");
    EXPECT_EQ(Status(window), QStringLiteral("Nothing is folded."));
    surface.UnselectAll();
    AddNode(window, 9000, 6000).SetSelected(true);
    Run("keyFoldYear");
    EXPECT_EQ(Status(window), QStringLiteral("No selected Node has a date."));
}

TEST_F(Folds, TheKeyboardFoldsMonthsWithoutNodes) {
    Run("keyFoldEmpty");
    EXPECT_TRUE(Folded(4));
    EXPECT_FALSE(Folded(3));
    EXPECT_EQ(Status(window), QStringLiteral("One month folded."));
    Run("keyFoldEmpty");
    EXPECT_EQ(Status(window), QStringLiteral("Every month in sight has a Node, or is folded."));
}

TEST_F(Folds, AFilterListLeavesFoldsAsTheyAre) {
    DoubleClick(window, Month(4).Bounds().center());
    const QRectF sliver = Month(4).Bounds();
    window.ssDBLevels_CloseUp();
    EXPECT_EQ(Month(4).Bounds(), sliver);
    QAction &entry = *window.findChild<QAction *>(QStringLiteral("mnuViewTimeline"));
    entry.trigger();
    entry.trigger();
    EXPECT_EQ(Month(4).Bounds(), sliver);
}

TEST_F(Folds, ADragAcrossAFoldedStripKeepsTheDate) {
    timeline::SetKeepsNodesAtDates(surface, true);
    DoubleClick(window, Month(3).Bounds().center());
    const QPoint from = PixelOf(window, node.Bounds().center());
    QWidget *viewport = window.CurrentView().viewport();
    QTest::mousePress(viewport, Qt::LeftButton, {}, from);
    for (const int step : {10, 40, 80}) QTest::mouseMove(viewport, from + QPoint(2, step));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, from + QPoint(2, 80));
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("14 March 2004"));
}

} // namespace mainwindow::testing
