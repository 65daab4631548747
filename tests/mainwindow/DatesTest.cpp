// Dates of nodes, from the command to the strip.
#include "diagram/view/SurfaceView.h"
#include "document/DoLoad.h"
#include "document/Tags.h"
#include "mainwindow/TimelineCommands.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/setup/frmDate.h"
#include "timeline/setup/frmTimelineSetup.h"
#include "timeline/TimelineNodes.h"

#include <QComboBox>
#include <QDateEdit>
#include <QPushButton>

namespace mainwindow::testing {

namespace {

struct Dates : WindowTest {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 3000, 900, QStringLiteral("Launch"));

    Dates() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        node.SetSelected(true);
        ProcessEvents();
    }
    ~Dates() override { QLocale::setDefault(QLocale::c()); }

    // What the user does in the form of the date.
    void EnterDate(int year, int month, int day) {
        desktop.ExpectForm(QLatin1String(timeline::kFormDate), [=](void *argument) {
            timeline::frmDate form(*static_cast<timeline::DateFormArgument *>(argument), nullptr);
            form.findChild<QDateEdit *>()->setDate(QDate(year, month, day));
            form.accept();
            return true;
        });
    }
    void ConfirmSetupUnseen() {
        desktop.ExpectMessageContaining(QStringLiteral("You have not configured your timeline Nodes yet."),
                                        support::Answer::No);
        desktop.ExpectForm(QLatin1String(timeline::kFormTimelineSetup), [](void *argument) {
            timeline::frmTimelineSetup form(*static_cast<timeline::TimelineSetupArgument *>(argument),
                                            nullptr);
            form.OKButton_Click();
            return true;
        });
    }
    QStringList Months() {
        QStringList texts;
        for (const diagram::Node *month : timeline::LocateTimelineNodes(window.CurrentSurface()))
            texts << month->Text();
        return texts;
    }
};

} // namespace

TEST_F(Dates, TheCommandPutsANodeOnItsDayAsOneStep) {
    EnterDate(2004, 3, 14);
    ConfirmSetupUnseen();
    Press(window, QStringLiteral("Ctrl+T"));
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("14 March 2004"));
    ASSERT_EQ(Months(), QStringList(QStringLiteral("Mar 2004")));
    const diagram::Node &month = *timeline::LocateTimelineNodes(window.CurrentSurface()).front();
    EXPECT_EQ(month.Width(), 1200);
    EXPECT_EQ(month.Left(), 0);
    EXPECT_TRUE(window.MenuValue(QStringLiteral("mnuViewTimeline")));
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_TRUE(Months().isEmpty());
    EXPECT_TRUE(timeline::DateOfNode(node).isEmpty());
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("14 March 2004"));
}

TEST_F(Dates, TheFormShowsTheDateThatTheNodeHas) {
    EnterDate(2004, 3, 14);
    ConfirmSetupUnseen();
    Press(window, QStringLiteral("Ctrl+T"));
    desktop.ExpectForm(QLatin1String(timeline::kFormDate), [](void *argument) {
        auto &form = *static_cast<timeline::DateFormArgument *>(argument);
        EXPECT_EQ(form.date, QDate(2004, 3, 14));
        form.date.reset();
        return true;
    });
    Press(window, QStringLiteral("Ctrl+T"));
    EXPECT_TRUE(timeline::DateOfNode(node).isEmpty());
}

TEST_F(Dates, TheTimelineIsHiddenAndShownByItsEntry) {
    EnterDate(2004, 3, 14);
    ConfirmSetupUnseen();
    Press(window, QStringLiteral("Ctrl+T"));
    diagram::Node &month = *timeline::LocateTimelineNodes(window.CurrentSurface()).front();
    auto *entry = window.findChild<QAction *>(QStringLiteral("mnuViewTimeline"));
    entry->trigger();
    EXPECT_TRUE(month.Hidden());
    EXPECT_FALSE(entry->isChecked());
    entry->trigger();
    EXPECT_FALSE(month.Hidden());
    EXPECT_TRUE(entry->isChecked());
}

TEST_F(Dates, WithoutMonthsTheEntryStaysUnticked) {
    auto *entry = window.findChild<QAction *>(QStringLiteral("mnuViewTimeline"));
    entry->trigger();
    EXPECT_FALSE(entry->isChecked());
}

TEST_F(Dates, MovingADatedNodeKeepsItsLinkOnTheDay) {
    EnterDate(2004, 3, 14);
    ConfirmSetupUnseen();
    Press(window, QStringLiteral("Ctrl+T"));
    diagram::Link &link = node.Links().Item(1);
    const diagram::Node &day = link.Destination();
    node.SetTop(12000);
    window.AddFlow1_AfterMove(window.CurrentIndex());
    const diagram::Point end = link.Points().Item(link.Points().Count() - 1);
    EXPECT_EQ(end.y, day.Top() + day.Height());
    EXPECT_EQ(end.x, day.Left() + day.Width() / 2);
}

TEST_F(Dates, SetupChangesThePatternAndTheArrangementAsOneStep) {
    EnterDate(2004, 3, 14);
    ConfirmSetupUnseen();
    Press(window, QStringLiteral("Ctrl+T"));
    desktop.ExpectForm(QLatin1String(timeline::kFormTimelineSetup), [](void *argument) {
        timeline::frmTimelineSetup form(*static_cast<timeline::TimelineSetupArgument *>(argument), nullptr);
        form.findChild<QComboBox *>(QStringLiteral("cboDateFormat"))->setCurrentText(QStringLiteral("MM-YY"));
        form.findChild<QComboBox *>(QStringLiteral("cboArrangement"))->setCurrentIndex(2);
        form.findChild<QPushButton *>(QStringLiteral("OKButton"))->click();
        return true;
    });
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineSetup"));
    EXPECT_EQ(Months(), QStringList(QStringLiteral("03-04")));
    EXPECT_EQ(timeline::LocateTimelineNodes(window.CurrentSurface()).front()->Top(), 0);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Months(), QStringList(QStringLiteral("Mar 2004")));
}

TEST_F(Dates, ACancelledSetupLeavesANewTemplateWithoutSize) {
    desktop.ExpectForm(QLatin1String(timeline::kFormTimelineSetup));
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewTimelineSetup"));
    EXPECT_EQ(timeline::LocateTimeLineTemplateNode(window.CurrentSurface(), false)->Width(), 0);
}

TEST_F(Dates, TheDefaultNodeAndTheFirstLevelShareOneColour) {
    desktop.ExpectForm(QLatin1String(timeline::kFormTimelineSetup), [](void *argument) {
        auto &setup = *static_cast<timeline::TimelineSetupArgument *>(argument);
        EXPECT_TRUE(setup.asTemplate);
        timeline::frmTimelineSetup form(setup, nullptr);
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Default Node Setup"));
        form.findChild<QComboBox *>(QStringLiteral("cboShape"))->setCurrentIndex(4);
        form.OKButton_Click();
        return true;
    });
    window.SmartMenuXP1_Click(QStringLiteral("mnuViewDefaultNode"));
    EXPECT_EQ(window.CurrentSurface().Defaults().shape, 4);
    EXPECT_EQ(window.CurrentSurface().Defaults().fillColor, window.clsSettings().Levels().Item(1).Color);
}

TEST_F(Dates, AMapWithATimelineComesBackFromItsFile) {
    EnterDate(2004, 3, 14);
    ConfirmSetupUnseen();
    Press(window, QStringLiteral("Ctrl+T"));
    window.clsSettings().SetDatabase(MapFile(QStringLiteral("dated.map")));
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSave"));
    document::DoLoad(window);
    ProcessEvents();
    diagram::Surface &surface = window.CurrentSurface();
    EXPECT_EQ(timeline::LocateTimelineNodes(surface).size(), 1u);
    EXPECT_EQ(document::GetTag(surface, document::tags::kTimelineAlign), QStringLiteral("4"));
    EXPECT_TRUE(window.MenuValue(QStringLiteral("mnuViewTimeline")));
}

} // namespace mainwindow::testing
