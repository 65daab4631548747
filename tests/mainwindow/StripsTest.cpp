// Months of the strip that are hidden, missing or not needed.
#include "tests/mainwindow/DatesTest.h"

#include "diagram/format/SurfaceFile.h"
#include "timeline/Tidy.h"

namespace mainwindow::testing {

TEST_F(Strips, HiddenWhileANodeIsDatedItComesBackWhole) {
    for (const char *arrangement : {"2", "0"}) {
        diagram::Surface &surface = window.CurrentSurface();
        document::SetTag(surface, document::tags::kTimelineAlign, QLatin1String(arrangement));
        QAction &entry = *window.findChild<QAction *>(QStringLiteral("mnuViewTimeline"));
        entry.trigger();
        EnterDate(2004, 5, 2);
        node.SetSelected(true);
        ProcessEvents();
        Press(window, QStringLiteral("Ctrl+T"));
        EXPECT_EQ(Status(window), QStringLiteral("The timeline is hidden; View, Timeline shows it."));
        EXPECT_FALSE(entry.isChecked());
        window.ssDBGroups_CloseUp();
        EXPECT_FALSE(entry.isChecked());
        entry.trigger();
        EXPECT_TRUE(entry.isChecked());
        double end = 0;
        for (const diagram::Node *month : timeline::LocateTimelineNodes(surface)) {
            EXPECT_EQ(month->Bounds().size(), QSizeF(3100, 450));
            EXPECT_EQ(*arrangement == '2' ? month->Left() : month->Top(), end);
            end += *arrangement == '2' ? 3100 : 450;
        }
        Press(window, QStringLiteral("Ctrl+Z"));
        for (const diagram::Node *month : timeline::LocateTimelineNodes(surface))
            EXPECT_TRUE(month->Hidden()) << "one step";
        Press(window, QStringLiteral("Ctrl+Z"));
        Press(window, QStringLiteral("Ctrl+Z"));
    }
}

TEST_F(Strips, AMonthHiddenByItsPopupStaysSoWhenAFilterListCloses) {
    diagram::Surface &surface = window.CurrentSurface();
    timeline::AddTimelineLink(window, surface, AddNode(window, 6000, 3000), QStringLiteral("20 April 2004"));
    diagram::Node &month = *timeline::LocateTimelineNodes(surface).front();
    window.ShowNodeProperties(month, 0, 0);
    window.SMXP_Click(QStringLiteral("mnuTemplateNodeHide"));
    window.ssDBLevels_CloseUp();
    EXPECT_TRUE(month.Hidden());
    EXPECT_EQ(timeline::LocateTimelineNodes(surface).back()->Left(), 0);
    window.SMXP_Click(QStringLiteral("mnuTemplateNodeUnHide"));
    window.ssDBLevels_CloseUp();
    EXPECT_FALSE(month.Hidden());
    EXPECT_EQ(timeline::LocateTimelineNodes(surface).back()->Left(), 3100);
}

TEST_F(Strips, AFilterListLeavesTheHiddenTimelineOfAnotherSliceHidden) {
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Second"));
    window.DoInsertSlice();
    window.TabStrip().SetTheTab(1);
    ProcessEvents();
    diagram::Surface &first = window.AddFlow1()[0];
    diagram::Node *dated = nullptr;
    for (diagram::Node &each : first.Nodes())
        if (each.Text() == QLatin1String("Launch")) dated = &each;
    ASSERT_TRUE(dated);
    document::SetTag(*dated, document::tags::kGroup, window.clsSettings().Groups().Item(1).Key);
    document::SetTag(*dated, document::tags::kLevel, window.clsSettings().Levels().Item(1).Key);
    window.clsSettings().Groups().Item(1).Selected = true;
    window.clsSettings().Levels().Item(1).Selected = true;
    window.LoadCombos();
    timeline::ShowHideTimelineNodes(first, false);
    ASSERT_TRUE(dated->Links().Item(1).Hidden());
    ASSERT_NE(window.CurrentIndex(), 0);
    window.ssDBGroups_CloseUp();
    EXPECT_FALSE(dated->Hidden());
    EXPECT_TRUE(dated->Links().Item(1).Hidden());
    EXPECT_TRUE(timeline::LocateTimelineNodes(first).front()->Hidden());
}

TEST_F(Strips, TidyingTakesFormerMonthsAwayAsOneStepAndTellsIt) {
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineTidy"));
    EXPECT_EQ(Status(window), QStringLiteral("Every month of the timeline is needed."));
    timeline::AddTimelineLink(window, window.CurrentSurface(), node, QStringLiteral("20 April 2004"));
    timeline::AddTimelineLink(window, window.CurrentSurface(), node, QStringLiteral("20 May 2004"));
    ASSERT_EQ(Months().size(), 3);
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineTidy"));
    EXPECT_EQ(Months(), QStringList(QStringLiteral("May 2004")));
    EXPECT_EQ(Status(window), QStringLiteral("2 months have gone that no Node needs."));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Months().size(), 3);
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(Months().size(), 1);
}

TEST_F(Strips, FillingGoesOnWhereTheStripStopped) {
    timeline::AddTimelineLink(window, window.CurrentSurface(), AddNode(window, 6000, 3000),
                              QStringLiteral("20 March 2009"));
    for (const int months : {50, 61}) {
        window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineFill"));
        EXPECT_EQ(Months().size(), months);
        EXPECT_EQ(Status(window).contains(QStringLiteral("The timeline stopped after 48 new months")),
                  months == 50);
    }
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineFill"));
    EXPECT_EQ(Status(window), QStringLiteral("No months are missing."));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Months().size(), 50);
}

TEST_F(Strips, TheStripLooksTornWhereMonthsAreMissing) {
    diagram::Surface &surface = window.CurrentSurface();
    timeline::AddTimelineLink(window, surface, AddNode(window, 9000, 3000), QStringLiteral("20 June 2004"));
    const auto paint = [&] {
        for (diagram::Node *month : timeline::LocateTimelineNodes(surface)) month->SetFillColor(0x00FF00);
        ProcessEvents();
    };
    const QPointF tear(3100, 169), beside(3100 + 150, 169), paper(3100, 2000);
    paint();
    EXPECT_EQ(PixelAt(tear), PixelAt(paper));
    EXPECT_NE(PixelAt(beside), PixelAt(paper));
    const QByteArray file = diagram::SaveBytes(surface);
    ProcessEvents();
    EXPECT_EQ(diagram::SaveBytes(surface), file) << "on the screen alone";
    timeline::FillInMissingMonths(window, surface);
    paint();
    EXPECT_NE(PixelAt(tear), PixelAt(paper));
    EXPECT_EQ(Months().size(), 4);
}

} // namespace mainwindow::testing
