#include "diagram/edit/History.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "document/DefaultNodes.h"
#include "document/Tags.h"
#include "mainwindow/controls/SliceTabs.h"
#include "mainwindow/forms/frmLayers.h"
#include "tests/mainwindow/WindowTest.h"

#include <QFile>
#include <QMenu>
#include <QTest>

namespace mainwindow::testing {

// A window of the slices "Map 1", "Two" and "Three", each with a node of that text.
struct SliceCommands : WindowTest {
    frmMain &window = NewWindow();
    SliceTabs &tabs = *window.findChild<SliceTabs *>(QStringLiteral("SSTab_ctl"));

    SliceCommands() {
        AddNode(window, 0, 0, QStringLiteral("Map 1"));
        for (const char *name : {"Two", "Three"}) {
            Insert(name);
            window.TabStrip().SetTheTab(window.TabStrip().TabCount() - 1);
            AddNode(window, 0, 0, QString::fromUtf8(name));
        }
        window.TabStrip().SetTheTab(0);
        window.clsSettings().Dirty = false;
        ProcessEvents();
    }
    void Insert(const char *name) {
        desktop.ExpectInput(QStringLiteral("Name for Slice."), QString::fromUtf8(name));
        window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesInsert"));
    }
    document::cHyperlink &AddHyperlink(const QString &node, int slice) {
        QString key;
        document::cHyperlink &hyperlink = window.clsSettings().Hyperlinks().add(key);
        hyperlink.Node = node;
        hyperlink.Slice = std::int16_t(slice);
        return hyperlink;
    }
    void DeleteSlice(int tab, const char *name) {
        window.TabStrip().SetTheTab(tab);
        desktop.ExpectMessage(
            QStringLiteral("Are you sure you want to delete '%1'?").arg(QLatin1String(name)),
            support::Answer::Yes);
        window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesDelete"));
    }
    QStringList Captions() { return testing::Captions(window); }
    // The texts of the first nodes, tab by tab.
    QStringList Contents() {
        QStringList texts;
        for (const int slot : window.AddFlow1().Indices())
            texts << window.AddFlow1()[slot].Nodes().Item(1).Text();
        return texts;
    }
    void Drag(int from, const QPoint &to) {
        const QPoint start = tabs.tabRect(from).center();
        QTest::mousePress(&tabs, Qt::LeftButton, {}, start);
        QTest::mouseMove(&tabs, (start + to) / 2);
        QTest::mouseMove(&tabs, to);
        QTest::mouseRelease(&tabs, Qt::LeftButton, {}, to);
    }
};

TEST_F(SliceCommands, InsertAddsAnEmptySliceBehindTheLast) {
    Insert("Four");
    EXPECT_EQ(Captions(), QStringList({"Map 1", "Two", "Three", "Four"}));
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
    EXPECT_EQ(window.AddFlow1()[3].Nodes().Count(), 0);
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(SliceCommands, AnEmptyNameInsertsNothingAndLeavesTheMapAlone) {
    window.clsSettings().Dirty = false;
    Insert("");
    EXPECT_EQ(window.TabStrip().TabCount(), 3);
    EXPECT_EQ(Contents(), QStringList({"Map 1", "Two", "Three"}));
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(SliceCommands, DeleteTakesTheCurrentSliceAway) {
    window.TabStrip().SetTheTab(1);
    desktop.ExpectMessage(QStringLiteral("Are you sure you want to delete 'Two'?"), support::Answer::Yes);
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesDelete"));
    EXPECT_EQ(Contents(), QStringList({"Map 1", "Three"}));
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    EXPECT_EQ(&window.CurrentView().Model(), &window.AddFlow1()[1]);
}

TEST_F(SliceCommands, TheQuestionBeforeASliceIsDeletedHasYesAndNo) {
    window.TabStrip().SetTheTab(1);
    desktop.ExpectMessage(QStringLiteral("Are you sure you want to delete 'Two'?"), support::Answer::No);
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesDelete"));
    EXPECT_EQ(desktop.Messages().back().buttons, support::Buttons::YesNo);
    EXPECT_EQ(Contents(), QStringList({"Map 1", "Two", "Three"}));
}

TEST_F(SliceCommands, TheOnlySliceIsNotDeletedAndAStopSignSaysWhy) {
    for (const char *name : {"Three", "Two"}) {
        window.TabStrip().SetTheTab(window.TabStrip().TabCount() - 1);
        desktop.ExpectMessageContaining(QLatin1String(name), support::Answer::Yes);
        window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesDelete"));
    }
    desktop.ExpectMessage(
        QStringLiteral("Cannot remove Slice\r\n\r\nThere must be at least one Slice per Map"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesDelete"));
    EXPECT_EQ(desktop.Messages().back().buttons, support::Buttons::Ok);
    EXPECT_EQ(desktop.Messages().back().icon, support::Icon::Stop);
    EXPECT_EQ(Contents(), QStringList({"Map 1"}));
}

// Each slice has a grid, a snap, a zoom and a timeline of its own; the menu shows those of the one on top.
TEST_F(SliceCommands, ATabTicksTheMenuAsItsSliceStands) {
    window.AddFlow1()[0].SetGridLines(true);
    window.AddFlow1()[1].Screen().SetSnapToGrid(true);
    window.AddFlow1()[1].SetxZoom(150);
    window.AddFlow1()[1].SetyZoom(150);
    for (const int slice : {1, 2}) {
        diagram::Node &month = window.AddFlow1()[slice].Nodes().Add(300, 9000, 1500, 900);
        month.SetText(QStringLiteral("May 2024"));
        month.SetMarked(true);
        month.SetSelectable(false);
        month.SetHidden(slice == 2);
    }
    const auto ticks = [this] {
        ProcessEvents();
        QStringList ticked;
        for (const char *key : {"mnuViewGrid", "mnuViewSnapGrid", "mnuViewTimeline"})
            if (window.MenuValue(QLatin1String(key))) ticked << QLatin1String(key);
        return ticked << QString::number(window.CurrentView().ShownZoom());
    };
    const QStringList expected[] = {
        {"mnuViewGrid", "100"}, {"mnuViewSnapGrid", "mnuViewTimeline", "150"}, {"100"}};
    for (const int tab : {1, 0, 2, 1, 2, 0}) {
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
        EXPECT_EQ(ticks(), expected[tab]) << tab;
    }
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(SliceCommands, TheDialogIsShownWithTheSlicesAndItsResultTaken) {
    desktop.ExpectForm<frmLayers>([](frmLayers &form) {
        form.cmdDown_Click();
        form.cmdOK_Click();
        return true;
    });
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesSlices"));
    EXPECT_EQ(Contents(), QStringList({"Two", "Map 1", "Three"}));
}

// The surface is the same afterwards, with its steps of undo: the slices were not rebuilt.
TEST_F(SliceCommands, WhatIsCancelledLeavesTheMapItsHistoryAndDirty) {
    {
        const diagram::ActionGroup step(window.CurrentSurface());
        window.CurrentSurface().Nodes().Add(9000, 9000, 100, 100);
    }
    const diagram::Surface *second = &window.AddFlow1()[1];
    const QStringList before = Contents();
    window.clsSettings().Dirty = false;
    desktop.ExpectForm<frmLayers>();
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesSlices"));
    for (const char *key : {"mnuEditSlicesInsert", "mnuEditSlicesRename"}) {
        desktop.ExpectInput(QStringLiteral("Name for Slice."), QString());
        window.SmartMenuXP1_Click(QLatin1String(key));
    }
    desktop.ExpectMessageContaining(QStringLiteral("delete 'Map 1'"), support::Answer::No);
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesDelete"));
    EXPECT_EQ(desktop.Messages().back().enter, support::EnterPresses::No);
    EXPECT_EQ(Contents(), before);
    EXPECT_EQ(&window.AddFlow1()[1], second);
    EXPECT_TRUE(window.CurrentSurface().CanUndo());
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(SliceCommands, AnOkWithoutAnyChangeMarksTheMap) {
    desktop.ExpectForm<frmLayers>([](frmLayers &argument) {
        argument.cmdOK_Click();
        return true;
    });
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesSlices"));
    EXPECT_EQ(Contents(), QStringList({"Map 1", "Two", "Three"}));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(SliceCommands, ADoubleClickOnATabRenamesIt) {
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Tres & more"));
    QTest::mouseDClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(2).center());
    EXPECT_EQ(Captions(), QStringList({"Map 1", "Two", "Tres & more"}));
}

TEST_F(SliceCommands, ADraggedTabTakesItsSliceAlong) {
    Drag(0, tabs.tabRect(2).center() + QPoint(tabs.tabRect(2).width() / 4, 0));
    EXPECT_EQ(Captions(), QStringList({"Two", "Three", "Map 1"}));
    EXPECT_EQ(Contents(), QStringList({"Two", "Three", "Map 1"}));
    EXPECT_EQ(window.TabStrip().TheTab(), 2);
    Drag(2, tabs.tabRect(1).center() - QPoint(tabs.tabRect(1).width() / 4, 0));
    EXPECT_EQ(Contents(), QStringList({"Two", "Map 1", "Three"}));
}

TEST_F(SliceCommands, ADragThatEndsWhereItBeganMovesNothing) {
    Drag(1, tabs.tabRect(1).center() + QPoint(tabs.tabRect(1).width() / 3, 0));
    EXPECT_EQ(Captions(), QStringList({"Map 1", "Two", "Three"}));
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(SliceCommands, EscapeGivesADragUp) {
    const QPoint start = tabs.tabRect(0).center(), end = tabs.tabRect(2).center() + QPoint(10, 0);
    QTest::mousePress(&tabs, Qt::LeftButton, {}, start);
    QTest::mouseMove(&tabs, end);
    QTest::keyClick(&tabs, Qt::Key_Escape);
    QTest::mouseRelease(&tabs, Qt::LeftButton, {}, end);
    EXPECT_EQ(Captions(), QStringList({"Map 1", "Two", "Three"}));
}

TEST_F(SliceCommands, TheRightButtonOpensTheMenuOfItsTab) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, tabs.tabRect(1).center(),
                            tabs.mapToGlobal(tabs.tabRect(1).center()));
    QApplication::sendEvent(&tabs, &event);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    QWidget *popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    EXPECT_EQ(popup->actions().first()->objectName(), QStringLiteral("mnuEditSlicesInsert"));
    popup->close();
}

TEST_F(SliceCommands, AnOverlongNameIsCutOffInItsTabAndStaysInReach) {
    const QString name(10000, QLatin1Char('x'));
    desktop.ExpectInput(QStringLiteral("Name for Slice."), name);
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesRename"));
    ProcessEvents();
    EXPECT_EQ(window.TabStrip().TabCaption(0), name);
    EXPECT_LT(tabs.tabRect(0).width(), tabs.width() / 2);
    EXPECT_TRUE(tabs.rect().contains(tabs.tabRect(2).center()));
    EXPECT_LT(window.minimumSizeHint().width(), 1024);
}

TEST_F(SliceCommands, AHyperlinkStillReachesTheSliceThatWasMoved) {
    QString key;
    document::cHyperlink &hyperlink = window.clsSettings().Hyperlinks().add(key);
    diagram::Node &node = window.AddFlow1()[1].Nodes().Item(1);
    node.SetKey(QStringLiteral("{two}"));
    hyperlink.Node = node.Key();
    hyperlink.SliceKey = window.TabStrip().TabKey(0);
    document::SetTag(node, document::tags::kHyper, QStringLiteral("Yes"));
    Drag(0, tabs.tabRect(2).center() + QPoint(tabs.tabRect(2).width() / 4, 0));
    ASSERT_EQ(Contents(), QStringList({"Two", "Three", "Map 1"}));
    window.TabStrip().SetTheTab(0);
    ProcessEvents();
    DoubleClick(window, {750, 150});
    EXPECT_EQ(window.TabStrip().TheTab(), 2);
}

TEST_F(SliceCommands, HyperlinksLeadToMovedSlicesAfterSavingAndOpeningToo) {
    // A load makes hyperlinks with the key of a slice, the dialog with its number alone.
    document::cHyperlink *byKey = &AddHyperlink(QStringLiteral("{a}"), 1);
    byKey->SliceKey = window.TabStrip().TabKey(0);
    AddHyperlink(QStringLiteral("{b}"), 3);
    document::cHyperlink &elsewhere = AddHyperlink(QStringLiteral("{c}"), 1);
    elsewhere.Map = QStringLiteral("other.map");
    Drag(0, tabs.tabRect(2).center() + QPoint(tabs.tabRect(2).width() / 4, 0));
    ASSERT_EQ(Contents(), QStringList({"Two", "Three", "Map 1"}));
    Drag(0, tabs.tabRect(1).center() + QPoint(tabs.tabRect(1).width() / 4, 0));
    ASSERT_EQ(Contents(), QStringList({"Three", "Two", "Map 1"}));
    const QString path = MapFile(QStringLiteral("moved.map"));
    window.clsSettings().SetDatabase(path);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSave"));
    window.clsSettings().SetDatabase(QString());
    frmMain &read = NewWindow();
    read.DoOpen(path, false);
    const auto sliceOf = [](frmMain &form, const char *node) {
        for (const document::cHyperlink &hyperlink : form.clsSettings().Hyperlinks())
            if (hyperlink.Node == QLatin1String(node)) return int(hyperlink.Slice);
        return -1;
    };
    for (frmMain *form : {&window, &read}) {
        EXPECT_EQ(sliceOf(*form, "{a}"), 3);
        EXPECT_EQ(sliceOf(*form, "{b}"), 1);
        EXPECT_EQ(sliceOf(*form, "{c}"), 1) << "of another map";
    }
}

TEST_F(SliceCommands, AHyperlinkToADeletedSliceLeadsNowhereAndSaysSo) {
    diagram::Node &node = window.AddFlow1()[0].Nodes().Item(1);
    node.SetKey(QStringLiteral("{from}"));
    document::SetTag(node, document::tags::kHyper, QStringLiteral("Yes"));
    AddHyperlink(node.Key(), 2).SliceKey = window.TabStrip().TabKey(1);
    DeleteSlice(1, "Two");
    window.TabStrip().SetTheTab(0);
    ProcessEvents();
    const auto follow = [&](frmMain &form) {
        DoubleClick(form, {750, 150});
        EXPECT_EQ(form.TabStrip().TheTab(), 0);
        EXPECT_TRUE(Status(form).contains(QStringLiteral("not there"))) << Status(form).toStdString();
    };
    follow(window);
    const QString path = MapFile(QStringLiteral("deleted.map"));
    window.clsSettings().SetDatabase(path);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSave"));
    window.clsSettings().SetDatabase(QString());
    frmMain &read = NewWindow();
    read.DoOpen(path, false);
    ProcessEvents();
    follow(read);
}

TEST_F(SliceCommands, TheKeyboardStaysOnTheSurfaceWhenASliceIsDeleted) {
    for (const auto &[tab, name] : {std::pair(2, "Three"), {0, "Map 1"}}) {
        window.TabStrip().SetTheTab(tab);
        window.CurrentView().setFocus();
        DeleteSlice(tab, name);
        ProcessEvents();
        EXPECT_EQ(QApplication::focusWidget(), &window.CurrentView()) << name;
    }
}

TEST_F(SliceCommands, TheKeyboardStaysOnTheSurfaceWhenAMapTakesThePlaceOfManySlices) {
    window.TabStrip().SetTheTab(2);
    window.CurrentView().setFocus();
    document::MarkSaved(window);
    window.DoOpen(SavedMap(QStringLiteral("one.map"), 1), false);
    ProcessEvents();
    EXPECT_EQ(QApplication::focusWidget(), &window.CurrentView());
}

TEST_F(SliceCommands, ANewSliceHasTheDefaultLookAtOnceAndAfterOpening) {
    diagram::Surface defaults;
    document::AddHiddenNode(defaults, document::kTemplateNodeText).SetShape(52);
    diagram::SaveFile(defaults, ProgramFile(document::kTemplateNodeFile));
    Insert("Four");
    EXPECT_EQ(window.AddFlow1()[3].Defaults().shape, 52);
    EXPECT_EQ(window.AddFlow1()[2].Defaults().shape, 1) << "the others keep theirs";
    window.TabStrip().SetTheTab(3);
    window.tlbFormat_ButtonMenuClick(8);
    EXPECT_FALSE(window.AddFlow1()[3].Nodes().Item(2).Hidden());
    const QString path = MapFile(QStringLiteral("new.map"));
    window.clsSettings().SetDatabase(path);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileSave"));
    window.clsSettings().SetDatabase(QString());
    frmMain &read = NewWindow();
    read.DoOpen(path, false);
    EXPECT_EQ(read.AddFlow1()[3].Defaults(), window.AddFlow1()[3].Defaults());
}

TEST_F(SliceCommands, ABrokenDefaultNodeFileIsToldAndTheWindowOpens) {
    const QString broken = ProgramFile(document::kTimelineTemplateNodeFile);
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no surface");
    file.close();
    desktop.ExpectMessageContaining(broken);
    frmMain &second = NewWindow();
    EXPECT_TRUE(second.isVisible());
    second.DoOpen(SavedMap(QStringLiteral("many.map"), 1, 3), false);
    EXPECT_EQ(second.TabStrip().TabCount(), 3);
}

TEST_F(SliceCommands, PropertiesAskForASelectionFirst) {
    desktop.ExpectMessage(QStringLiteral("Please select a node or a link."));
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditProperties"));
    EXPECT_EQ(desktop.messageBoxes.shown.back().icon, support::Icon::Information);
}

TEST_F(SliceCommands, KeysTurnToTheNextAndThePreviousTab) {
    Press(window, QStringLiteral("Ctrl+PgDown"));
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    Press(window, QStringLiteral("Ctrl+PgUp"));
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
}

} // namespace mainwindow::testing
