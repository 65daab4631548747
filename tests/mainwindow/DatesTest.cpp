// Dates of nodes, from the command to the strip.
#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/view/SurfaceView.h"
#include "document/DoLoad.h"
#include "document/Tags.h"
#include "mainwindow/TimelineCommands.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/setup/frmDate.h"
#include "timeline/setup/frmTimelineSetup.h"
#include "timeline/Tidy.h"
#include "timeline/TimelineNodes.h"
#include "widgets/SwatchButton.h"

#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

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
        desktop.ExpectForm<timeline::DateFormArgument>([=](timeline::DateFormArgument &argument) {
            timeline::frmDate form(argument, nullptr);
            form.findChild<QLineEdit *>(QStringLiteral("txtDate"))
                ->setText(QDate(year, month, day).toString(Qt::ISODate));
            form.accept();
            return true;
        });
    }
    void ConfirmSetupUnseen() {
        desktop.ExpectMessageContaining(QStringLiteral("You have not configured your timeline Nodes yet."),
                                        support::Answer::No);
        desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &argument) {
            timeline::frmTimelineSetup form(argument, nullptr);
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
    desktop.ExpectForm<timeline::DateFormArgument>([](timeline::DateFormArgument &argument) {
        auto &form = argument;
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
    desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &argument) {
        timeline::frmTimelineSetup form(argument, nullptr);
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

TEST_F(Dates, ACancelledSetupLeavesTheSliceAsItWas) {
    const int before = window.CurrentSurface().Nodes().Count();
    const QString tag = window.CurrentSurface().Tag();
    for (const char *command : {"mnuViewTimelineSetup", "mnuViewDefaultNode"}) {
        desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &argument) {
            argument.Flow->SetTag(QStringLiteral("|TM_Align=3"));
            return false;
        });
        window.SmartMenuXP1_Click(QLatin1String(command));
        EXPECT_EQ(window.CurrentSurface().Nodes().Count(), before);
        EXPECT_EQ(window.CurrentSurface().Tag(), tag);
        EXPECT_FALSE(window.CurrentSurface().CanUndo());
    }
}

TEST_F(Dates, TheDefaultNodeAndTheFirstLevelShareOneColour) {
    desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &argument) {
        auto &setup = argument;
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

TEST_F(Dates, UndoOfTheDefaultNodeTakesTheFirstLevelsColourBack) {
    document::cLevel &level = window.clsSettings().Levels().Item(1);
    const support::Colour former = level.Color, chosen = 0x123456;
    ASSERT_NE(former, chosen);
    const auto choose = [&] {
        desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &argument) {
            timeline::frmTimelineSetup form(argument, nullptr);
            form.findChild<widgets::SwatchButton *>(QStringLiteral("cmdChangeFill"))->SetValue(chosen);
            form.OKButton_Click();
            return true;
        });
        window.SmartMenuXP1_Click(QStringLiteral("mnuViewDefaultNode"));
    };
    document::MarkSaved(window);
    choose();
    EXPECT_EQ(level.Color, chosen);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(level.Color, former);
    EXPECT_FALSE(document::HasUnsavedWork(window));
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(level.Color, chosen);
    AddNode(window, 300, 300, QStringLiteral("another"));
    window.tlbMain_ButtonClick(QStringLiteral("UNDO"));
    EXPECT_EQ(level.Color, former) << "by the button too";
    window.tlbMain_ButtonClick(QStringLiteral("REDO"));
    EXPECT_EQ(level.Color, chosen);
    level.Color = 0x654321;
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(level.Color, 0x654321) << "chosen since, in the list of levels";
}

TEST_F(Dates, ANewSliceKeepsItsArrangementThroughItsFile) {
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Second"));
    window.DoInsertSlice();
    window.clsSettings().SetDatabase(MapFile(QStringLiteral("plain.map")));
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSave"));
    document::DoLoad(window);
    ProcessEvents();
    for (const int slice : {0, 1})
        EXPECT_EQ(document::GetTag(window.AddFlow1()[slice], document::tags::kTimelineAlign),
                  QStringLiteral("4"));
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

struct Strips : Dates {
    // The node on 14 March 2004, the strip at the top, months 3100 wide.
    Strips() {
        EnterDate(2004, 3, 14);
        ConfirmSetupUnseen();
        Press(window, QStringLiteral("Ctrl+T"));
        diagram::Surface &surface = window.CurrentSurface();
        diagram::Node &look = *timeline::LocateTimeLineTemplateNode(surface, false);
        look.SetWidth(3100);
        look.SetHeight(450);
        document::SetTag(surface, document::tags::kTimelineAlign, QStringLiteral("2"));
        timeline::UpdateTimeLineNodes(window, surface, true);
        ProcessEvents();
    }
    QColor PixelAt(const QPointF &twips) {
        const QPixmap seen = window.CurrentView().viewport()->grab();
        const QPointF at = window.CurrentView().FromSurface(twips) * seen.devicePixelRatio();
        return QColor(seen.toImage().pixel(int(at.x()), int(at.y())));
    }
    // As a user who left the window and comes back to it.
    void ComeBackOn(const QDate &day) {
        desktop.clock.now = QDateTime(day, QTime(9, 0));
        window.CurrentView().clearFocus();
        window.CurrentView().setFocus();
        ProcessEvents();
    }
    QString TipAt(const QPointF &twips) {
        QToolTip::hideText();
        QWidget *viewport = window.CurrentView().viewport();
        const QPoint at = PixelOf(window, twips);
        QHelpEvent help(QEvent::ToolTip, at, viewport->mapToGlobal(at));
        QApplication::sendEvent(viewport, &help);
        return QToolTip::text();
    }
};

TEST_F(Strips, TodayIsMarkedOnTheScreenAlone) {
    diagram::Surface &surface = window.CurrentSurface();
    const QPointF today(17.5 * 100, 400); // the line of 17 March
    const QColor plain = PixelAt(today);
    const QByteArray file = diagram::SaveBytes(surface);
    ComeBackOn(QDate(2004, 3, 17));
    EXPECT_NE(PixelAt(today), plain);
    EXPECT_EQ(PixelAt(today + QPointF(60, 0)), plain) << "thin";
    EXPECT_EQ(diagram::SaveBytes(surface), file);
    const QString picture = MapFile(QStringLiteral("strip.png"));
    diagram::ExportPictureFile(surface, picture);
    const QImage exported(picture);
    const QColor line = PixelAt(today);
    for (int x = 0; x < exported.width(); ++x)
        for (int y = 0; y < exported.height(); ++y) ASSERT_NE(exported.pixelColor(x, y), line);
}

TEST_F(Strips, TheLineOfTodayGoesWithTheStrip) {
    diagram::Surface &surface = window.CurrentSurface();
    ComeBackOn(QDate(2004, 3, 17));
    const QPointF today(17.5 * 100, 400);
    const QColor line = PixelAt(today);
    timeline::ShowHideTimelineNodes(surface, false);
    ProcessEvents();
    EXPECT_NE(PixelAt(today), line);
    timeline::ShowHideTimelineNodes(surface, true);
    ProcessEvents();
    EXPECT_EQ(PixelAt(today), line);
}

TEST_F(Strips, ADatedNodeTellsItsDateUnderThePointer) {
    const diagram::Node &plain = AddNode(window, 6000, 3000, QStringLiteral("Plain"));
    EXPECT_FALSE(TipAt(plain.Bounds().center()).contains(QStringLiteral("2004")));
    EXPECT_TRUE(TipAt(node.Bounds().center()).contains(QStringLiteral("14 March 2004")));
    QToolTip::hideText();
}

TEST_F(Strips, DraggedWithAltADatedNodeGoesToTheDayUnderThePointerAsOneStep) {
    const QRectF box = node.Bounds();
    const QPointF body = box.center() + QPointF(150, 150);
    Drag(window, body, QPointF(2450, body.y() + 900), Qt::AltModifier);
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("24 March 2004"));
    EXPECT_NEAR(double(node.Left()), box.left() + 2450 - body.x(), 15);
    EXPECT_EQ(node.Top(), float(box.top())) << "along the strip alone";
    diagram::Link &link = node.Links().Item(1);
    EXPECT_EQ(link.Points().Item(link.Points().Count() - 1).x, 2450);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("14 March 2004"));
    EXPECT_EQ(node.Bounds(), box);
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("24 March 2004"));
}

TEST_F(Strips, MonthsThatAreNeededAppear) {
    document::SetTag(window.CurrentSurface(), document::tags::kMissing, QStringLiteral("True"));
    Drag(window, node.Bounds().center() + QPointF(150, 150), QPointF(3100 * 2 + 1050, 3000), Qt::AltModifier);
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("10 May 2004"));
    EXPECT_EQ(Months().size(), 3);
}

TEST_F(Strips, EscapeGivesTheDragUp) {
    const QRectF box = node.Bounds();
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint start = PixelOf(window, box.center() + QPointF(150, 150)), end = start + QPoint(60, 0);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::AltModifier, start);
    for (const QPoint &at : {start + QPoint(30, 0), end}) {
        QMouseEvent move(QEvent::MouseMove, at, viewport->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                         Qt::AltModifier);
        QApplication::sendEvent(viewport, &move);
    }
    EXPECT_NE(node.Bounds(), box);
    Press(window, QStringLiteral("Esc"));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, end);
    EXPECT_EQ(node.Bounds(), box);
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("14 March 2004"));
}

TEST_F(Strips, TheLinkGoesWithItsNode) {
    diagram::Link &link = node.Links().Item(1);
    const auto touches = [&] {
        const diagram::Point start = link.Way().front();
        return node.Bounds().adjusted(-1, -1, 1, 1).contains(diagram::ToQPointF(start));
    };
    Drag(window, node.Bounds().center() + QPointF(150, 150), QPointF(6000, 6000));
    EXPECT_TRUE(touches());
    Press(window, QStringLiteral("Left"));
    EXPECT_TRUE(touches());
    const QRectF box = node.Bounds();
    QWidget *viewport = window.CurrentView().viewport();
    const QPoint start = PixelOf(window, box.center() + QPointF(150, 150));
    QTest::mousePress(viewport, Qt::LeftButton, {}, start);
    for (const QPoint &at : {start + QPoint(60, 0), start + QPoint(90, -60)}) {
        QMouseEvent move(QEvent::MouseMove, at, viewport->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(viewport, &move);
    }
    EXPECT_NE(node.Bounds(), box);
    EXPECT_TRUE(touches()) << "while it is dragged";
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, start + QPoint(90, -60));
    EXPECT_TRUE(touches());
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_TRUE(touches());
}

TEST_F(Strips, WithoutAltTheDateStays) {
    Drag(window, node.Bounds().center() + QPointF(150, 150), QPointF(2450, 3000));
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("14 March 2004"));
}

TEST_F(Strips, OtherSelectedNodesWithADateGoOnByAsManyDays) {
    diagram::Surface &surface = window.CurrentSurface();
    diagram::Node &second = AddNode(window, 6000, 3000, QStringLiteral("Second"));
    diagram::Node &plain = AddNode(window, 6000, 4500, QStringLiteral("Plain"));
    timeline::AddTimelineLink(window, surface, second, QStringLiteral("20 March 2004"));
    second.SetSelected(true);
    plain.SetSelected(true);
    Drag(window, node.Bounds().center() + QPointF(150, 150), QPointF(1750, 3000), Qt::AltModifier);
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("17 March 2004"));
    EXPECT_EQ(timeline::DateOfNode(second), QStringLiteral("23 March 2004"));
    EXPECT_TRUE(timeline::DateOfNode(plain).isEmpty());
}

TEST_F(Strips, MonthsCannotBeSelectedByClickBandOrKeys) {
    const diagram::Node &month = *timeline::LocateTimelineNodes(window.CurrentSurface()).front();
    Click(window, month.Bounds().center());
    EXPECT_FALSE(month.Selected());
    Drag(window, QPointF(7500, 7500), QPointF(15, 15), Qt::ShiftModifier);
    EXPECT_FALSE(month.Selected());
    EXPECT_TRUE(node.Selected());
    for (int i = 0; i < 3; ++i) {
        Press(window, QStringLiteral("Tab"));
        EXPECT_FALSE(month.Selected());
    }
}

TEST_F(Strips, HidingAMonthClearsTheSelection) {
    diagram::Surface &surface = window.CurrentSurface();
    diagram::Node &second = AddNode(window, 6000, 3000, QStringLiteral("Second"));
    timeline::AddTimelineLink(window, surface, second, QStringLiteral("20 April 2004"));
    second.SetSelected(true);
    diagram::Node &month = *timeline::LocateTimelineNodes(surface).front();
    window.ShowNodeProperties(month, 0, 0);
    window.SMXP_Click(QStringLiteral("mnuTemplateNodeHide"));
    EXPECT_TRUE(month.Hidden());
    EXPECT_TRUE(surface.SelectedNodes().empty());
}

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

TEST_F(Strips, LinksEndOnTheirDaysSlotAtEveryZoom) {
    diagram::Surface &surface = window.CurrentSurface();
    const diagram::Link &link = node.Links().Item(1);
    const QRectF day = link.Destination().Bounds();
    for (const int zoom : {10, 33, 75, 100, 150, 400, 800}) {
        surface.SetxZoom(zoom);
        surface.SetyZoom(zoom);
        ProcessEvents();
        EXPECT_EQ(diagram::ToQPointF(link.Way().back()), QPointF(day.center().x(), day.bottom())) << zoom;
    }
}

} // namespace mainwindow::testing
