#include "tests/mainwindow/WindowTest.h"

#include "document/Tags.h"

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

TEST_F(Events, WhatTheUserDoesMarksTheMap) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 0, 0);
    diagram::Link &link = node.Links().Add(AddNode(window, 4000, 0));
    diagram::SurfaceEvents &events = window.CurrentSurface().Events();
    diagram::Surface &surface = window.CurrentSurface();
    const std::function<void()> marking[] = {
        [&] { events.AfterAddNode(surface, node); }, [&] { events.AfterAddLink(surface, link); },
        [&] { events.AfterEdit(surface); },          [&] { events.AfterMove(surface); },
        [&] { events.AfterResize(surface); },        [&] { events.AfterStretch(surface); },
    };
    for (const auto &action : marking) {
        window.clsSettings().Dirty = false;
        action();
        EXPECT_TRUE(window.clsSettings().Dirty);
    }
    window.clsSettings().Dirty = false;
    events.AfterSelect(surface);
    events.Click(surface);
    EXPECT_FALSE(window.clsSettings().Dirty);
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
    node.SetSelected(false);
    desktop.ExpectMessage(kLinksQuestion, Answer::Yes);
    Press(window, QStringLiteral("Del"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 2);
    EXPECT_TRUE(window.CurrentSurface().Links().empty());
}

TEST_F(Events, ShiftTurnsTheShiftModeOnWhileItIsHeld) {
    frmMain &window = NewWindow();
    int shift = 16;
    window.AddFlow1_KeyDown(0, shift, diagram::keys::kShift);
    EXPECT_TRUE(window.CurrentSurface().ShiftMode());
    window.AddFlow1_KeyUp(0, 16, 0);
    EXPECT_FALSE(window.CurrentSurface().ShiftMode());
    window.AddFlow1_KeyDown(0, shift, diagram::keys::kShift | diagram::keys::kCtrl);
    EXPECT_FALSE(window.CurrentSurface().ShiftMode());
}

TEST_F(Events, ErrorsOfTheSurfaceAreKeptOffTheScreen) {
    frmMain &window = NewWindow();
    bool cancelDisplay = false;
    window.CurrentSurface().Events().Error(window.CurrentSurface(), 5, QStringLiteral("x"), cancelDisplay);
    EXPECT_TRUE(cancelDisplay);
}

} // namespace mainwindow::testing
