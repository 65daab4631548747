// Dates of nodes, from the command to the strip.
#include "tests/mainwindow/DatesTest.h"

#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "document/DoLoad.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "widgets/SwatchButton.h"

#include <QComboBox>
#include <QPushButton>

namespace mainwindow::testing {

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
        EXPECT_EQ(argument.date, QDate(2004, 3, 14));
        argument.date.reset();
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
        EXPECT_TRUE(argument.asTemplate);
        timeline::frmTimelineSetup form(argument, nullptr);
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
    for (const QPoint &at : {start + QPoint(30, 0), end}) MoveHeld(*viewport, at, Qt::AltModifier);
    EXPECT_NE(node.Bounds(), box);
    Press(window, QStringLiteral("Esc"));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, end);
    EXPECT_EQ(node.Bounds(), box);
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("14 March 2004"));
}

TEST_F(Strips, TheLinkGoesWithItsNode) {
    diagram::Link &link = node.Links().Item(1);
    const auto touches = [&] {
        const diagram::Point start = link.Route().front();
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
    for (const QPoint &at : {start + QPoint(60, 0), start + QPoint(90, -60)}) MoveHeld(*viewport, at);
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

TEST_F(Strips, LinksEndOnTheirDaysSlotAtEveryZoom) {
    diagram::Surface &surface = window.CurrentSurface();
    const diagram::Link &link = node.Links().Item(1);
    const QRectF day = link.Destination().Bounds();
    for (const int zoom : {10, 33, 75, 100, 150, 400, 800}) {
        surface.SetxZoom(zoom);
        surface.SetyZoom(zoom);
        ProcessEvents();
        EXPECT_EQ(diagram::ToQPointF(link.Route().back()), QPointF(day.center().x(), day.bottom())) << zoom;
    }
}

} // namespace mainwindow::testing
