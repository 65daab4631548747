// What a click on an item does, and a drag of one onto the page.
#include "tests/mainwindow/TemplateBarTest.h"

#include "diagram/view/SurfaceView.h"
#include "document/UnsavedWork.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/start/WindowJournal.h"
#include "mainwindow/templates/TemplateDrag.h"
#include "mainwindow/templates/TemplateTip.h"
#include "recovery/LostMaps.h"
#include "recovery/Restore.h"
#include "settings/Settings.h"
#include "storage/Database.h"
#include "support/cRegistry.h"
#include "support/Files.h"
#include "templates/SaveAsTemplate.h"
#include "timeline/TimelineNodes.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

namespace mainwindow::testing {

using settings::clsRB;

class TemplateUse : public TemplateBarTest {
protected:
    TemplateUse() {
        MakeTemplate(Beside(QStringLiteral("Plan.TEM")), {"Goal", "Step"}, Qt::blue, Qt::yellow);
        MakeFlat(Beside(QStringLiteral("Flat.TEM")), {"Note"});
    }
    static QString DiagramDate() { return QStringLiteral("DIAGRAM"); }
    // Drops the data, waits until what it asks for is done, and tells whether it was taken.
    bool DropAt(frmMain &window, const QMimeData &data, const QPoint &at) {
        const DropOutcome outcome = DropOn(window, data, at);
        hint = outcome.hint;
        Settle();
        return outcome.moved && outcome.dropped;
    }
    QPoint InWindow(frmMain &window, const QPointF &twips) {
        return window.CurrentView().viewport()->mapTo(&window, PixelOf(window, twips));
    }
    QString hint; // of the status bar, before the last drop
};

TEST_F(TemplateUse, UpdateReplacesTheSliceAsOneStepOfUndo) {
    frmMain &window = FilledWindow();
    AddNode(window, 300, 300, QStringLiteral("mine"));
    const support::Colour before = window.CurrentSurface().BackColor();
    window.clsSettings().Dirty = false;
    Answer(clsRB::kUpdate);
    ClickOn(window, QStringLiteral("Plan"));
    EXPECT_EQ(Texts(window), (QStringList{"Goal", "Step"}));
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    EXPECT_EQ(window.CurrentSurface().BackColor(), support::FromQColor(Qt::yellow));
    EXPECT_EQ(timeline::LocateTimelineNode(window.CurrentSurface(), DiagramDate(), false), nullptr);
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Texts(window), QStringList{"mine"});
    EXPECT_EQ(window.CurrentSurface().BackColor(), before);
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(Texts(window), (QStringList{"Goal", "Step"}));
}

TEST_F(TemplateUse, ARememberedUpdateAsksNothingAndCanBeUndone) {
    frmMain &window = FilledWindow();
    Answer(clsRB::kUpdate, true);
    ClickOn(window, QStringLiteral("Plan"));
    AddNode(window, 9000, 300, QStringLiteral("mine"));
    ClickOn(window, QStringLiteral("Flat"));
    EXPECT_EQ(Texts(window), QStringList{"Note"});
    EXPECT_EQ(desktop.dialogHost.shown.size(), 1);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Texts(window), (QStringList{"Goal", "Step", "mine"}));
}

TEST_F(TemplateUse, TheViewEntryShowsThatNothingIsAskedAnyMoreAndBringsTheQuestionBack) {
    const QString key = QStringLiteral("mnuViewRBPrompt");
    frmMain &first = FilledWindow();
    frmMain &second = FilledWindow();
    EXPECT_TRUE(first.MenuValue(key));
    Answer(clsRB::kUpdate, true);
    ClickOn(second, QStringLiteral("Plan"));
    EXPECT_FALSE(first.MenuValue(key));
    EXPECT_FALSE(second.MenuValue(key));
    clsRB().ResetPrompt();
    Answer(clsRB::kCancel);
    ClickOn(first, QStringLiteral("Plan"));
    EXPECT_TRUE(first.MenuValue(key));
    EXPECT_TRUE(second.MenuValue(key));
}

TEST_F(TemplateUse, NewPutsItOnASliceOfItsOwn) {
    frmMain &window = FilledWindow();
    AddNode(window, 300, 300, QStringLiteral("mine"));
    Answer(clsRB::kNew);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Second"));
    ClickOn(window, QStringLiteral("Plan"));
    ASSERT_EQ(window.TabStrip().TabCount(), 2);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    EXPECT_EQ(window.TabStrip().Caption(), QStringLiteral("Second"));
    EXPECT_EQ(Texts(window), (QStringList{"Goal", "Step"}));
    EXPECT_EQ(window.CurrentSurface().BackColor(), support::FromQColor(Qt::yellow));
    window.TabStrip().SetTheTab(0);
    EXPECT_EQ(Texts(window), QStringList{"mine"});
}

TEST_F(TemplateUse, GivingUpTheNameOfTheNewSliceLoadsNothing) {
    frmMain &window = FilledWindow();
    AddNode(window, 300, 300, QStringLiteral("mine"));
    window.clsSettings().Dirty = false;
    Answer(clsRB::kNew);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QString());
    ClickOn(window, QStringLiteral("Plan"));
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    EXPECT_EQ(Texts(window), QStringList{"mine"});
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

TEST_F(TemplateUse, CancelLoadsNothing) {
    frmMain &window = FilledWindow();
    AddNode(window, 300, 300, QStringLiteral("mine"));
    window.clsSettings().Dirty = false;
    Answer(clsRB::kCancel, true);
    ClickOn(window, QStringLiteral("Plan"));
    EXPECT_EQ(Texts(window), QStringList{"mine"});
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_TRUE(clsRB().GetDisplayPrompt()) << "a cancel is not remembered";
}

TEST_F(TemplateUse, ADoubleClickLoadsOnce) {
    frmMain &window = FilledWindow();
    Answer(clsRB::kNew);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Second"));
    DoubleClickOn(window, QStringLiteral("Plan"));
    EXPECT_EQ(window.TabStrip().TabCount(), 2);
}

TEST_F(TemplateUse, ADoubleClickWithARememberedAnswerIsOneStep) {
    frmMain &window = FilledWindow();
    Answer(clsRB::kUpdate, true);
    AddNode(window, 300, 300, QStringLiteral("mine"));
    DoubleClickOn(window, QStringLiteral("Plan"));
    window.CurrentSurface().Undo();
    EXPECT_EQ(Texts(window), QStringList{"mine"});
}

TEST_F(TemplateUse, ByKeysAlone) {
    frmMain &window = FilledWindow();
    Press(window, QStringLiteral("F6"));
    ASSERT_TRUE(RB(window).hasFocus());
    QTest::keyClicks(&RB(window), QStringLiteral("pl"));
    Answer(clsRB::kUpdate);
    QTest::keyClick(&RB(window), Qt::Key_Return);
    Settle();
    EXPECT_EQ(Texts(window), (QStringList{"Goal", "Step"}));
    Press(window, QStringLiteral("F6"));
    QTest::keyClick(&RB(window), Qt::Key_Escape);
    EXPECT_TRUE(window.CurrentView().hasFocus());
}

TEST_F(TemplateUse, AFileThatVanishedIsToldAndTakenFromTheList) {
    frmMain &window = FilledWindow();
    const QString file = RB(window).Item(0, PlaceOf(window, QStringLiteral("Plan")).item).key;
    QFile::remove(file);
    desktop.ExpectMessage(
        QStringLiteral("The file '%1' was not found!\r\rIt will be removed from the list.").arg(file));
    ClickOn(window, QStringLiteral("Plan"));
    EXPECT_EQ(desktop.Messages().back().icon, support::Icon::Information);
    EXPECT_EQ(Items(window, 0), QStringList{"Flat"});
    EXPECT_EQ(RB(window).BarNote(0), QStringLiteral("1"));
}

TEST_F(TemplateUse, ADatabaseWhoseNameEndsInLowerCaseIsOpenedWithItsApplication) {
    const QString file = Beside(QStringLiteral("lower.tem"));
    MakeTemplate(file, {"a"});
    frmMain &window = FilledWindow();
    desktop.ExpectLaunch(QDir::toNativeSeparators(file));
    ClickOn(window, QStringLiteral("lower"));
    EXPECT_EQ(Texts(window), QStringList());
    EXPECT_EQ(RB(window).Item(0, PlaceOf(window, QStringLiteral("lower")).item).tag,
              QStringLiteral("EXTERNAL"));
}

TEST_F(TemplateUse, ASurfaceFileIsLoadedWhateverItsCase) {
    MakeFlat(Beside(QStringLiteral("small.tem")), {"small"});
    frmMain &window = FilledWindow();
    Answer(clsRB::kUpdate);
    ClickOn(window, QStringLiteral("small"));
    EXPECT_EQ(Texts(window), QStringList{"small"});
}

TEST_F(TemplateUse, AnyOtherFileIsOpenedWithItsApplication) {
    const QString file = Beside(QStringLiteral("letter.odt"));
    MakeFile(file, "text");
    frmMain &window = FilledWindow();
    desktop.ExpectLaunch(QDir::toNativeSeparators(file));
    ClickOn(window, QStringLiteral("letter"));
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

TEST_F(TemplateUse, AProgramIsAskedAboutBeforeItRuns) {
    MakeFile(Beside(QStringLiteral("run.sh")), "#!/bin/sh\n");
    frmMain &window = FilledWindow();
    desktop.ExpectMessageContaining(QStringLiteral("'run.sh' can run as a program"), support::Answer::No);
    ClickOn(window, QStringLiteral("run"));
    EXPECT_EQ(desktop.launcher.launched, QStringList());
}

TEST_F(TemplateUse, ATemplateThatWasCutOffMeanwhileIsToldAndMakesNoSlice) {
    frmMain &window = FilledWindow();
    AddNode(window, 300, 300, QStringLiteral("mine"));
    QFile file(Beside(QStringLiteral("Flat.TEM")));
    ASSERT_TRUE(file.resize(file.size() / 2));
    Answer(clsRB::kNew);
    desktop.ExpectMessageContaining(QStringLiteral("Unrecognized database format"));
    ClickOn(window, QStringLiteral("Flat"));
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    EXPECT_EQ(Texts(window), QStringList{"mine"});
    EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
}

TEST_F(TemplateUse, ATextThatIsBeingTypedIsKept) {
    frmMain &window = FilledWindow();
    diagram::Node &node = AddNode(window, 300, 300, QStringLiteral("mine"));
    node.SetSelected(true);
    Press(window, QStringLiteral("F2"));
    ASSERT_TRUE(window.CurrentView().IsEditing());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("yours"));
    Answer(clsRB::kUpdate);
    ClickOn(window, QStringLiteral("Plan"));
    window.CurrentSurface().Undo();
    EXPECT_EQ(Texts(window), QStringList{"yours"});
}

TEST_F(TemplateUse, TheSecondWindowLoadsIntoItself) {
    frmMain &first = FilledWindow();
    frmMain &second = FilledWindow();
    Answer(clsRB::kUpdate);
    ClickOn(second, QStringLiteral("Plan"));
    EXPECT_EQ(Texts(first), QStringList());
    EXPECT_EQ(Texts(second), (QStringList{"Goal", "Step"}));
}

TEST_F(TemplateUse, WhatWasLoadedIsInTheJournal) {
    WindowJournal::SetFolder(MapFile(QStringLiteral("state")));
    frmMain *window = &FilledWindow();
    Answer(clsRB::kUpdate);
    ClickOn(*window, QStringLiteral("Plan"));
    window->Journal()->Writer().Finish();
    delete window;
    frmMain &next = NewWindow();
    std::vector<recovery::LostMap> lost = recovery::FindLostMaps(MapFile(QStringLiteral("state")));
    ASSERT_EQ(lost.size(), 1u);
    recovery::KeptMap map = recovery::ReadLostMap(lost.front());
    recovery::Restore(next, std::move(map), lost.front().folder.path);
    EXPECT_EQ(Texts(next), (QStringList{"Goal", "Step"}));
    EXPECT_EQ(next.CurrentSurface().BackColor(), support::FromQColor(Qt::yellow));
    WindowJournal::SetFolder(QString());
}

TEST_F(TemplateUse, ADragAddsTheContentWhereItFalls) {
    frmMain &window = FilledWindow();
    AddNode(window, 300, 300, QStringLiteral("mine")).SetSelected(true);
    window.clsSettings().Dirty = false;
    EXPECT_TRUE(
        DropAt(window, *DragData(Beside(QStringLiteral("Plan.TEM"))), InWindow(window, {3000, 3000})));
    EXPECT_EQ(hint, QStringLiteral("Drop to add Plan here"));
    EXPECT_EQ(Status(window), QString());
    EXPECT_EQ(Texts(window), (QStringList{"mine", "Goal", "Step"}));
    const std::vector<diagram::Node *> &selected = window.CurrentSurface().SelectedNodes();
    ASSERT_EQ(selected.size(), 2u);
    QRectF extent;
    for (const diagram::Node *node : selected)
        extent |= QRectF(node->Left(), node->Top(), node->Width(), node->Height());
    EXPECT_NEAR(extent.center().x(), 3000, 30);
    EXPECT_NEAR(extent.center().y(), 3000, 30);
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_NE(window.CurrentSurface().BackColor(), support::FromQColor(Qt::yellow));
    window.CurrentSurface().Undo();
    EXPECT_EQ(Texts(window), QStringList{"mine"});
}

TEST_F(TemplateUse, NothingOfADragLeavesThePageAtItsTopOrLeft) {
    frmMain &window = FilledWindow();
    EXPECT_TRUE(DropAt(window, *DragData(Beside(QStringLiteral("Plan.TEM"))), InWindow(window, {150, 150})));
    float left = 1, top = 1;
    for (const diagram::Node *node : window.CurrentSurface().SelectedNodes())
        left = std::min(left, node->Left()), top = std::min(top, node->Top());
    EXPECT_EQ(left, 0);
    EXPECT_EQ(top, 0);
}

TEST_F(TemplateUse, ADragBesideThePageDoesNothing) {
    frmMain &window = FilledWindow();
    const auto data = DragData(Beside(QStringLiteral("Plan.TEM")));
    const QPoint onBar = RB(window).mapTo(&window, RB(window).rect().center());
    EXPECT_FALSE(DropAt(window, *data, onBar));
    EXPECT_EQ(hint, QString());
    EXPECT_EQ(Texts(window), QStringList());
}

TEST_F(TemplateUse, ADragOfAnotherProgramsKindIsNone) {
    frmMain &window = FilledWindow();
    QMimeData foreign;
    foreign.setData(QStringLiteral("application/x-velmora-template"),
                    Beside(QStringLiteral("Plan.TEM")).toUtf8());
    EXPECT_FALSE(DropAt(window, foreign, InWindow(window, {3000, 3000})));
    EXPECT_EQ(Texts(window), QStringList());
}

TEST_F(TemplateUse, ADragThatFallsNowhereIsNoClick) {
    frmMain &window = FilledWindow();
    ListBar &list = RB(window);
    QSignalSpy dragged(&list, &ListBar::DragAsked);
    const QPoint from = list.ItemRect(PlaceOf(window, QStringLiteral("Plan"))).center();
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, from);
    for (const QPoint &at : {from + QPoint(30, 5), from + QPoint(60, 10)}) MoveHeld(*list.viewport(), at);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, from);
    Settle();
    EXPECT_EQ(dragged.count(), 1);
    EXPECT_EQ(Texts(window), QStringList());
    EXPECT_EQ(desktop.dialogHost.shown, QStringList());
}

TEST_F(TemplateUse, ASavedTemplateIsToldInTheStatusBarAndACancelledOneIsNot) {
    frmMain &window = FilledWindow();
    for (const bool saved : {false, true}) {
        desktop.ExpectForm<templates::SaveAsTemplateArgument>([&](auto &) { return saved; });
        window.SmartMenuXP1_Click(QStringLiteral("mnuFileSaveAsTemplate"));
        EXPECT_EQ(Status(window) == QStringLiteral("The Slice is saved as a template."), saved);
    }
}

TEST_F(TemplateUse, ThePromptOfTheTemplateBarIsTickedWhileItWouldBeAsked) {
    frmMain &window = NewWindow();
    const QString key = QStringLiteral("mnuViewRBPrompt");
    EXPECT_TRUE(window.MenuValue(key));
    auto *entry = window.findChild<QAction *>(key);
    entry->trigger(); // off: the answer is forgotten, so the question will be asked again
    EXPECT_TRUE(clsRB().GetDisplayPrompt());
    desktop.ExpectForm<clsRB>([](clsRB &prompt) {
        EXPECT_TRUE(prompt.Force);
        prompt.Choice = clsRB::kNew;
        prompt.SaveValue = true;
        return true;
    });
    entry->trigger();
    EXPECT_FALSE(window.MenuValue(key));
    EXPECT_FALSE(clsRB().GetDisplayPrompt());
}

} // namespace mainwindow::testing
