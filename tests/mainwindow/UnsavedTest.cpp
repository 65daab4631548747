// Whether the window knows what is unsaved: when it asks, what its field shows, and what is no unsaved work.
#include "diagram/edit/History.h"
#include "diagram/view/SurfaceView.h"
#include "dialogs/PropertyForms.h"
#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/Tags.h"
#include "document/UnsavedWork.h"
#include "mainwindow/controls/PickBox.h"
#include "mainwindow/controls/TickBox.h"
#include "mainwindow/forms/frmLayers.h"
#include "mainwindow/window/WindowStatus.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/AddTimelineLink.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace mainwindow::testing {

using support::Answer;

namespace {

// A map of two slices with three nodes on the first, open in a window.
class Unsaved : public WindowTest {
public:
    using WindowTest::desktop;

protected:
    Unsaved() : path(SavedMap(QStringLiteral("plan.map"), 3, 2)), window(Open()) {}

    frmMain &Open() {
        frmMain &made = NewWindow();
        made.DoOpen(path, false);
        ProcessEvents();
        return made;
    }
    bool IsUnsaved() const { return document::HasUnsavedWork(window); }
    void Run(const char *key) {
        window.SmartMenuXP1_Click(QLatin1String(key));
        ProcessEvents();
    }
    diagram::Node &Node(int number = 1) { return window.AddFlow1()[0].Nodes().Item(number); }
    static QPointF Body(const diagram::Node &node) { return node.Bounds().topLeft() + QPointF(300, 150); }
    const QLabel &Field() const { return *window.findChild<QLabel *>(QStringLiteral("SAVED")); }
    bool Closes() {
        const QPointer<frmMain> alive(&window);
        window.close();
        ProcessEvents();
        return alive.isNull();
    }
    // Undoes all steps of the current slice.
    void UndoAll() {
        while (window.CurrentSurface().CanUndo()) Run("mnuEditUndo");
    }

    QString path;
    frmMain &window;
};

} // namespace

TEST_F(Unsaved, AMapThatWasJustOpenedOrSavedHasNone) {
    EXPECT_FALSE(IsUnsaved());
    Node().SetText(QStringLiteral("new"));
    EXPECT_TRUE(IsUnsaved());
    Run("mnuFileSave");
    EXPECT_FALSE(IsUnsaved());
    EXPECT_TRUE(Closes());
}

TEST_F(Unsaved, ANewWindowHasNone) {
    EXPECT_FALSE(document::HasUnsavedWork(NewWindow()));
    EXPECT_FALSE(document::MustAskBeforeLosing(NewWindow()));
}

TEST_F(Unsaved, WhatTheUserLooksAtIsNone) {
    for (const char *key :
         {"mnuViewZoom150", "mnuViewZoomFit", "mnuViewZoom75", "keyZoomIn", "mnuViewGrid", "mnuViewSnapGrid",
          "mnuEditSelectAll", "mnuEditUnSelectAll", "keyNextSlice", "keyPreviousSlice", "mnuEditCopy"})
        Run(key);
    Click(window, Body(Node(2)));
    Press(window, QStringLiteral("Tab"));
    Drag(window, {100, 3000}, {9000, 50}, Qt::ShiftModifier);
    EXPECT_FALSE(IsUnsaved());
    EXPECT_TRUE(Closes());
}

TEST_F(Unsaved, TheTicksOfTheFilterAndWhatTheyHideAreNone) {
    for (diagram::Node &node : window.CurrentSurface().Nodes()) {
        document::SetTag(node, document::tags::kGroup, window.clsSettings().Groups().Item(1).Key);
        document::SetTag(node, document::tags::kLevel, window.clsSettings().Levels().Item(1).Key);
    }
    Node(1).Links().Add(Node(3));
    document::MarkSaved(window);
    window.ssDBGroups_CloseUp();
    ASSERT_TRUE(Node().Hidden());
    EXPECT_FALSE(IsUnsaved());
    window.ssDBGroups_Click(0);
    window.ssDBLevels_Click(0);
    window.ssDBGroups_CloseUp();
    ASSERT_FALSE(Node().Hidden());
    ProcessEvents();
    EXPECT_FALSE(IsUnsaved());
}

namespace {

struct Deed {
    const char *name;
    bool undone; // nothing is unsaved once all steps are undone
    void (*deed)(Unsaved &, frmMain &);
};

void RunIn(frmMain &window, const char *key) { window.SmartMenuXP1_Click(QLatin1String(key)); }

// Changes of the map that leave Dirty as it is.
const Deed kDeeds[] = {
    {"cut", true, [](Unsaved &, frmMain &w) { RunIn(w, "mnuEditCut"); }},
    {"paste", true, [](Unsaved &, frmMain &w) { RunIn(w, "mnuEditCopy"), RunIn(w, "mnuEditPaste"); }},
    {"layout", true, [](Unsaved &, frmMain &w) { RunIn(w, "mnuLayoutTreeExecute"); }},
    {"font", true,
     [](Unsaved &, frmMain &w) {
         w.cboFont().setCurrentText(QStringLiteral("Some Font"));
         w.cboFont_Click();
     }},
    {"background", false,
     [](Unsaved &t, frmMain &w) {
         t.desktop.ExpectColour(0x123456);
         RunIn(w, "mnuViewBackgroundColor");
     }},
    {"default node", true,
     [](Unsaved &t, frmMain &w) {
         t.desktop.ExpectForm<timeline::TimelineSetupArgument>(
             [](timeline::TimelineSetupArgument &) { return true; });
         RunIn(w, "mnuViewDefaultNode");
     }},
};

} // namespace

TEST_F(Unsaved, WhatLeavesDirtyAsItIsIsAskedAboutToo) {
    for (const Deed &deed : kDeeds) {
        SCOPED_TRACE(deed.name);
        Node(1).SetSelected(true);
        document::MarkSaved(window);
        deed.deed(*this, window);
        ProcessEvents();
        EXPECT_FALSE(window.clsSettings().Dirty);
        EXPECT_TRUE(IsUnsaved());
        desktop.ExpectMessage(QStringLiteral("Save Changes?"), Answer::Cancel);
        EXPECT_FALSE(Closes());
        UndoAll();
        EXPECT_EQ(IsUnsaved(), !deed.undone);
    }
}

TEST_F(Unsaved, DeletingIsAskedAboutAndUndoingItIsNoDifference) {
    Node(2).SetSelected(true);
    desktop.ExpectMessageContaining(QStringLiteral("delete the select Nodes"), Answer::Yes);
    Press(window, QStringLiteral("Del"));
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 2);
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_TRUE(IsUnsaved());
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_FALSE(IsUnsaved());
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_TRUE(IsUnsaved());
    desktop.ExpectMessage(QStringLiteral("Save Changes?"), Answer::No);
    EXPECT_TRUE(Closes());
}

TEST_F(Unsaved, WhatTheMouseDidAndUndoTookBackIsNoDifference) {
    Drag(window, Body(Node(2)), Body(Node(2)) + QPointF(900, 900));
    EXPECT_TRUE(IsUnsaved());
    Drag(window, {300, 4500}, {2400, 6000});
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 4);
    UndoAll();
    EXPECT_FALSE(IsUnsaved());
}

TEST_F(Unsaved, OpeningOverAsksAndCancelKeepsTheMap) {
    const QString other = SavedMap(QStringLiteral("other.map"), 1);
    Node(2).SetText(QStringLiteral("new"));
    ASSERT_FALSE(window.WantsNewWindow());
    desktop.ExpectMessage(QStringLiteral("Save Changes"), Answer::Cancel);
    EXPECT_EQ(window.DoOpen(other, window.WantsNewWindow()), nullptr);
    EXPECT_EQ(window.clsSettings().Database(), path);
    EXPECT_EQ(Node(2).Text(), QStringLiteral("new"));
    desktop.ExpectMessage(QStringLiteral("Save Changes"), Answer::Yes);
    EXPECT_EQ(window.DoOpen(other, window.WantsNewWindow()), &window);
    EXPECT_FALSE(IsUnsaved());
    window.DoOpen(path, false);
    EXPECT_EQ(Node(2).Text(), QStringLiteral("new"));
}

TEST_F(Unsaved, RevertIsAskedAboutAndLeavesNoneBehind) {
    Node(2).SetText(QStringLiteral("new"));
    desktop.ExpectMessage(QStringLiteral("Revert to saved?"), Answer::No);
    window.DoOpen(path, false);
    EXPECT_TRUE(IsUnsaved());
    desktop.ExpectMessage(QStringLiteral("Revert to saved?"), Answer::Yes);
    window.DoOpen(path, false);
    EXPECT_FALSE(IsUnsaved());
    EXPECT_EQ(Node(2).Text(), QStringLiteral("1"));
}

TEST_F(Unsaved, AMapWithoutChangesIsNotAskedAboutWhenItIsOpenedAgain) {
    EXPECT_EQ(window.DoOpen(path, false), &window);
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(Unsaved, TheFieldFollowsAtOnceAndTellsItToScreenReaders) {
    QSignalSpy told(&window.Status(), &WindowStatus::UnsavedWorkChanged);
    EXPECT_EQ(Field().text(), QStringLiteral("All saved"));
    Node(1).SetSelected(true);
    Press(window, QStringLiteral("Right"));
    ProcessEvents();
    EXPECT_EQ(Field().text(), QStringLiteral("Unsaved changes"));
    EXPECT_EQ(Field().accessibleName(), QStringLiteral("Unsaved changes"));
    Press(window, QStringLiteral("Ctrl+S"));
    ProcessEvents();
    EXPECT_EQ(Field().text(), QStringLiteral("All saved"));
    EXPECT_EQ(Field().accessibleName(), QStringLiteral("All saved"));
    ASSERT_EQ(told.count(), 2);
    EXPECT_TRUE(told[0][0].toBool());
    EXPECT_FALSE(told[1][0].toBool());
}

TEST_F(Unsaved, AFileThatWasAttachedShowsInTheField) {
    QString key;
    window.clsSettings().Attachments().add(key);
    window.UpdateCommands();
    EXPECT_EQ(Field().text(), QStringLiteral("Unsaved changes"));
}

// A move writes all slices anew; what they hold is the same afterwards.
TEST_F(Unsaved, SlicesThatWereMovedAndMovedBackAreNoDifference) {
    const auto inTheForm = [&](int row, void (frmLayers::*move)()) {
        desktop.ExpectForm<frmLayers>([row, move](frmLayers &form) {
            form.lvwLayers()->setCurrentRow(row);
            (form.*move)();
            form.cmdOK_Click();
            return true;
        });
        Run("mnuEditSlicesSlices");
    };
    const auto there = [&] { inTheForm(0, &frmLayers::cmdDown_Click); };
    const auto back = [&] { inTheForm(1, &frmLayers::cmdUp_Click); };
    there();
    EXPECT_TRUE(IsUnsaved());
    back();
    EXPECT_FALSE(IsUnsaved());
    Node(1).SetText(QStringLiteral("new"));
    there(), back();
    EXPECT_TRUE(IsUnsaved());
}

TEST_F(Unsaved, ASliceThatIsDeletedAndInsertedAnewIsADifference) {
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Third"));
    Run("mnuEditSlicesInsert");
    EXPECT_TRUE(IsUnsaved());
    Run("mnuFileSave");
    EXPECT_FALSE(IsUnsaved());
    window.TabStrip().SetTheTab(2);
    desktop.ExpectMessageContaining(QStringLiteral("delete 'Third'"), Answer::Yes);
    Run("mnuEditSlicesDelete");
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Third"));
    Run("mnuEditSlicesInsert");
    EXPECT_TRUE(IsUnsaved());
}

// The step before the font boxes, Bold, has to stay a step with an effect too.
TEST_F(Unsaved, UndoAfterTheFontBoxesTakesTheFontBack) {
    Node(1).SetSelected(true);
    const diagram::Font before = Node(1).Font();
    window.tlbFormat_ButtonClick(QStringLiteral("BOLD"));
    const diagram::Font bold = Node(1).Font();
    window.cboFont().setCurrentText(QStringLiteral("Some Font"));
    window.cboFont_Click();
    window.cboFontSize().setCurrentText(QStringLiteral("33"));
    window.cboFontSize_Click();
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_NE(Node(1).Font().Size(), 33);
    EXPECT_EQ(Node(1).Font().Name(), QStringLiteral("Some Font"));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Node(1).Font(), bold);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Node(1).Font(), before);
}

TEST_F(Unsaved, TheTickOfTheTimelineFollowsUndoAndRedo) {
    diagram::Node &month = window.CurrentSurface().Nodes().Add(300, 9000, 1500, 900);
    month.SetText(QStringLiteral("May 2024"));
    month.SetMarked(true);
    month.SetSelectable(false);
    window.ClickTab();
    ASSERT_TRUE(window.MenuValue(QStringLiteral("mnuViewTimeline")));
    window.SetMenuValue(QStringLiteral("mnuViewTimeline"), false);
    Run("mnuViewTimeline");
    ASSERT_TRUE(month.Hidden());
    for (const bool shown : {true, false}) {
        Press(window, shown ? QStringLiteral("Ctrl+Z") : QStringLiteral("Ctrl+Y"));
        ProcessEvents();
        EXPECT_EQ(!month.Hidden(), shown);
        EXPECT_EQ(window.MenuValue(QStringLiteral("mnuViewTimeline")), shown);
    }
}

// After these dialogs the filter and the colours of levels are applied again, even after a cancel. Where the
// nodes have their colours already, nothing is unsaved then.
TEST_F(Unsaved, SetupsThatAreCancelledLeaveNothingToSaveWhereColoursAgree) {
    document::SetTag(Node(1), document::tags::kLevel, window.clsSettings().Levels().Item(1).Key);
    document::SetTag(Node(1), document::tags::kGroup, window.clsSettings().Groups().Item(1).Key);
    Node(1).SetFillColor(window.clsSettings().Levels().Item(1).Color);
    document::MarkSaved(window);
    desktop.ExpectForm<dialogs::LevelsFormArgument>();
    desktop.ExpectForm<dialogs::GroupsFormArgument>();
    Run("mnuViewLevels"), Run("mnuViewGroups");
    EXPECT_TRUE(Node(1).Hidden());
    EXPECT_FALSE(IsUnsaved());
}

// The command fails in its form, halfway.
TEST_F(Unsaved, ACommandThatFailsLeavesTheMapAsItWas) {
    const int before = window.CurrentSurface().Nodes().Count();
    desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &) -> bool {
        throw support::Error(5, QStringLiteral("form"), QString());
    });
    desktop.ExpectMessageContaining(QStringLiteral("(Error #5)"));
    Run("mnuViewDefaultNode");
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), before);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
    EXPECT_FALSE(IsUnsaved());
}

} // namespace mainwindow::testing
