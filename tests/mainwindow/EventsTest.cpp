#include "tests/mainwindow/WindowTest.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"

#include <QApplication>
#include <QTest>

namespace mainwindow::testing {

using support::Answer;

namespace {
const QString kNodesQuestion = QStringLiteral("Are you sure that you want to delete the select Nodes?\r\n\r\n"
                                              "NB This will remove Links that are attached to the Nodes");
const QString kLinksQuestion = QStringLiteral("Are you sure that you want to delete the select Links?");
} // namespace

using Events = WindowTest;

TEST_F(Events, ANewNodeTakesTheFirstTickedLevelAndGroup) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 0, 0);
    window.AddFlow1_AfterAddNode(0, node);
    EXPECT_EQ(document::GetTag(node, document::tags::kLevel), window.clsSettings().Levels().Item(2).Key);
    EXPECT_EQ(document::GetTag(node, document::tags::kGroup), window.clsSettings().Groups().Item(2).Key);
    EXPECT_EQ(node.FillColor(), 0x222222);
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Events, ANewNodeWithNoTickedLevelTakesTheFirst) {
    frmMain &window = NewWindow();
    window.clsSettings().Levels().Item(2).Selected = false;
    window.clsSettings().Groups().Item(2).Selected = false;
    diagram::Node &node = AddNode(window, 0, 0);
    window.AddFlow1_AfterAddNode(0, node);
    EXPECT_EQ(node.FillColor(), 0x111111);
    EXPECT_EQ(document::GetTag(node, document::tags::kGroup), window.clsSettings().Groups().Item(1).Key);
}

TEST_F(Events, ANewNodeWithoutLevelsAndGroupsKeepsItsLook) {
    frmMain &window = NewWindow();
    window.clsSettings().Levels().Clear();
    window.clsSettings().Groups().Clear();
    diagram::Node &node = AddNode(window, 0, 0);
    window.AddFlow1_AfterAddNode(0, node);
    EXPECT_EQ(node.FillColor(), support::kWhite);
    EXPECT_TRUE(node.Tag().isEmpty());
}

TEST_F(Events, ADrawnNodeAndItsLevelAreOneStep) {
    frmMain &window = NewWindow();
    Drag(window, {300, 300}, {2400, 1500});
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    const diagram::Node &node = window.CurrentSurface().Nodes().Item(1);
    EXPECT_EQ(node.FillColor(), 0x222222);
    EXPECT_EQ(document::GetTag(node, document::tags::kGroup), window.clsSettings().Groups().Item(2).Key);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 0);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

TEST_F(Events, HiddenNodesDoNotStaySelected) {
    frmMain &window = NewWindow();
    diagram::Node &seen = AddNode(window, 0, 0);
    diagram::Node &hidden = AddNode(window, 3000, 0);
    hidden.SetHidden(true);
    seen.SetSelected(true);
    hidden.SetSelected(true);
    window.AddFlow1_AfterSelect(0);
    EXPECT_TRUE(seen.Selected());
    EXPECT_FALSE(hidden.Selected());
}

TEST_F(Events, AClickThatAddsToTheSelectionTakesHiddenNodesOut) {
    frmMain &window = NewWindow();
    diagram::Node &seen = AddNode(window, 300, 300);
    diagram::Node &hidden = AddNode(window, 3000, 300);
    hidden.SetSelected(true);
    hidden.SetHidden(true);
    Click(window, {400, 400}, Qt::ControlModifier);
    EXPECT_TRUE(seen.Selected());
    EXPECT_FALSE(hidden.Selected());
}

TEST_F(Events, HiddenLinksDoNotStaySelectedWhenNoNodeIs) {
    frmMain &window = NewWindow();
    diagram::Link &link = AddNode(window, 0, 0).Links().Add(AddNode(window, 3000, 0));
    link.SetHidden(true);
    link.SetSelected(true);
    window.AddFlow1_AfterSelect(0);
    EXPECT_FALSE(link.Selected());
}

TEST_F(Events, DeleteWithoutASelectionAsksNothing) {
    frmMain &window = NewWindow();
    AddNode(window, 0, 0);
    Press(window, QStringLiteral("Del"));
    EXPECT_TRUE(desktop.Messages().empty());
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Events, DeleteAsksForNodesAndDoesNotMarkTheMap) {
    frmMain &window = NewWindow();
    AddNode(window, 0, 0).SetSelected(true);
    desktop.ExpectMessage(kNodesQuestion, Answer::No);
    Press(window, QStringLiteral("Del"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    desktop.ExpectMessage(kNodesQuestion, Answer::Yes);
    Press(window, QStringLiteral("Del"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 0);
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Events, DeleteAsksForLinksThatAreStillSelected) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 0, 0);
    diagram::Link &link = node.Links().Add(AddNode(window, 4000, 0));
    node.SetSelected(true);
    link.SetSelected(true);
    desktop.ExpectMessage(kNodesQuestion, Answer::No);
    desktop.ExpectMessage(kLinksQuestion, Answer::No);
    Press(window, QStringLiteral("Del"));
    ASSERT_EQ(desktop.Messages().size(), 2u);
    for (const support::testing::ShownMessage &question : desktop.Messages()) {
        EXPECT_EQ(question.buttons, support::Buttons::YesNo);
        EXPECT_EQ(question.icon, support::Icon::Question);
        EXPECT_EQ(question.title, QStringLiteral("Velmora"));
    }
    node.SetSelected(false);
    desktop.ExpectMessage(kLinksQuestion, Answer::Yes);
    Press(window, QStringLiteral("Del"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 2);
    EXPECT_TRUE(window.CurrentSurface().Links().empty());
}

TEST_F(Events, ShiftTurnsTheShiftModeOnWhileItIsHeld) {
    frmMain &window = NewWindow();
    constexpr int kShiftKey = 16;
    int shift = kShiftKey;
    window.AddFlow1_KeyDown(0, shift, diagram::keys::kShift);
    EXPECT_TRUE(window.CurrentSurface().Screen().ShiftMode());
    window.AddFlow1_KeyUp(0, kShiftKey, 0);
    EXPECT_FALSE(window.CurrentSurface().Screen().ShiftMode());
    window.AddFlow1_KeyDown(0, shift, diagram::keys::kShift | diagram::keys::kCtrl);
    EXPECT_FALSE(window.CurrentSurface().Screen().ShiftMode());
}

TEST_F(Events, ShiftIsHeldByTheRealKey) {
    frmMain &window = NewWindow();
    QTest::keyPress(&window.CurrentView(), Qt::Key_Shift);
    EXPECT_TRUE(window.CurrentSurface().Screen().ShiftMode());
    QTest::keyRelease(&window.CurrentView(), Qt::Key_Shift);
    EXPECT_FALSE(window.CurrentSurface().Screen().ShiftMode());
}

TEST_F(Events, TheReadOutOfTheMouseIsShownWithItsSwitchAlone) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300).Links().Add(AddNode(window, 6000, 300));
    ProcessEvents();
    const auto moveTo = [&](float x, float y) {
        QTest::mouseMove(window.CurrentView().viewport(), PixelOf(window, {x, y}));
        return window.windowTitle();
    };
    EXPECT_FALSE(frmMain::DebugReadOut);
    EXPECT_EQ(moveTo(450, 450), QStringLiteral("Untitled - Velmora"));
    frmMain::DebugReadOut = true;
    EXPECT_EQ(moveTo(600, 450), QStringLiteral("X=600, Y=450, OverNode=True, OverLink=False"));
    EXPECT_EQ(moveTo(3000, 750), QStringLiteral("X=3000, Y=750, OverNode=False, OverLink=True"));
    EXPECT_EQ(moveTo(3000, 6000), QStringLiteral("X=3000, Y=6000, OverNode=False, OverLink=False"));
    frmMain::DebugReadOut = false;
}

TEST_F(Events, ALinkDroppedBesideTheNodesSaysWhyInTheProductsWords) {
    frmMain &window = NewWindow();
    const diagram::Node &node = AddNode(window, 300, 300);
    DragFromBeside(window, node, {6000, 4500});
    EXPECT_EQ(Status(window), QStringLiteral("Enter makes the new Node, Escape leaves it."));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    ProcessEvents();
    EXPECT_EQ(Status(window), QStringLiteral("A Link starts and ends at a Node."));
    Click(window, {4500, 6000});
    EXPECT_EQ(Status(window), QStringLiteral("Drag to draw a Node. Shift and a drag selects."));
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Events, ANodeOfferedAtALinkBelongsWhereTheOtherOneDoes) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    const QString level = window.clsSettings().Levels().Item(1).Key; // not ticked
    const QString group = window.clsSettings().Groups().Item(1).Key;
    document::SetTag(node, document::tags::kLevel, level);
    document::SetTag(node, document::tags::kGroup, group);
    document::SetTag(node, document::tags::kHyper, QStringLiteral("Yes"));
    node.SetFillColor(support::Rgb(10, 20, 30));
    window.clsSettings().Dirty = false;
    DragFromBeside(window, node, {6000, 4500});
    EXPECT_FALSE(window.clsSettings().Dirty);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    ProcessEvents();
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 2);
    const diagram::Node &made = window.CurrentSurface().Nodes().Item(2);
    EXPECT_EQ(document::GetTag(made, document::tags::kLevel), level);
    EXPECT_EQ(document::GetTag(made, document::tags::kGroup), group);
    EXPECT_EQ(document::GetTag(made, document::tags::kHyper), QString());
    EXPECT_EQ(made.FillColor(), support::Rgb(10, 20, 30));
    EXPECT_TRUE(window.clsSettings().Dirty);
    window.CurrentView().EndEdit(false);
    window.CurrentSurface().Undo();
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    EXPECT_TRUE(window.CurrentSurface().Links().empty());
}

TEST_F(Events, ADoubleClickEditsATextAndIsUnsavedOnlyOnceThatChanges) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    window.clsSettings().Dirty = false;
    const QPointF on = node.Bounds().topLeft() + QPointF(node.Width() / 2, 150);
    DoubleClick(window, on);
    ASSERT_TRUE(window.CurrentView().IsEditing());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(window.clsSettings().Dirty);
    DoubleClick(window, on);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Idea"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(node.Text(), QStringLiteral("Idea"));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Events, ADoubleClickOnTheEmptyPageMakesANodeOfTheFirstLevelTicked) {
    frmMain &window = NewWindow();
    DoubleClick(window, {6000, 4500});
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    const diagram::Node &node = window.CurrentSurface().Nodes().Item(1);
    EXPECT_EQ(node.Bounds().center(), QPointF(6000, 4500));
    const document::cLevel *first = window.clsSettings().Levels().FirstSelectedLevel();
    ASSERT_TRUE(first);
    EXPECT_EQ(document::GetTag(node, document::tags::kLevel), first->Key);
    EXPECT_EQ(node.FillColor(), first->Color);
    EXPECT_TRUE(window.CurrentView().IsEditing());
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Events, AHintLeavesWhatARoutineSaidInTheMeantime) {
    frmMain &window = NewWindow();
    const diagram::Node &node = AddNode(window, 300, 300);
    DragFromBeside(window, node, {6000, 4500});
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    ProcessEvents();
    ASSERT_EQ(Status(window), QStringLiteral("A Link starts and ends at a Node."));
    window.DoStatus(QStringLiteral("Loading"));
    Press(window, QStringLiteral("Tab"));
    EXPECT_EQ(Status(window), QStringLiteral("Loading"));
}

TEST_F(Events, ErrorsOfTheSurfaceAreKeptOffTheScreen) {
    frmMain &window = NewWindow();
    bool cancelDisplay = false;
    window.CurrentSurface().Events().Error(window.CurrentSurface(), 5, QStringLiteral("x"), cancelDisplay);
    EXPECT_TRUE(cancelDisplay);
}

} // namespace mainwindow::testing
