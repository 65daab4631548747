// What the look bar reads of a selection and does to it, without a window.
#include "mainwindow/look/Look.h"

#include "diagram/edit/History.h"
#include "diagram/model/Actions.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Revision.h"
#include "diagram/model/Surface.h"
#include "support/Error.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>

namespace mainwindow::testing {

namespace {

// Three nodes, two of them selected, and two links between them, of which one is.
class Looks : public ::testing::Test {
protected:
    Looks() { diagram::AttachHistory(surface); }
    void Select(bool nodes, bool links) {
        a.SetSelected(nodes);
        b.SetSelected(nodes);
        ab.SetSelected(links);
    }

    support::testing::ScriptedDesktop desktop; // a step of undo takes a random number
    diagram::Surface surface;
    diagram::Node &a = surface.Nodes().Add(0, 0, 1000, 600);
    diagram::Node &b = surface.Nodes().Add(3000, 0, 1000, 600);
    diagram::Node &c = surface.Nodes().Add(6000, 0, 1000, 600);
    diagram::Link &ab = a.Links().Add(b);
    diagram::Link &bc = b.Links().Add(c);
};

// Another value than that of a new node or link.
double Another(const LookRow &row) { return row.what == LookOf::LineWidth ? 3 : 2; }

} // namespace

TEST_F(Looks, RowsStandInTheirOrderWithEachSideWholeOrMissing) {
    int position = 0;
    for (const LookRow &row : LookRows()) {
        EXPECT_EQ(int(row.what), position++) << row.key;
        EXPECT_EQ(&LookRowOf(row.what), &row);
        EXPECT_EQ(row.ofNode != nullptr, row.toNode != nullptr) << row.key;
        EXPECT_EQ(row.ofLink != nullptr, row.toLink != nullptr) << row.key;
        EXPECT_TRUE(row.ofNode || row.ofLink) << row.key;
    }
    EXPECT_EQ(position, int(LookOf::Jumps) + 1);
}

TEST_F(Looks, FitNothingWhereNothingIsSelected) {
    for (const LookRow &row : LookRows()) {
        EXPECT_EQ(StateOf(surface, row), LookState()) << row.key;
        EXPECT_FALSE(GiveLook(surface, row, Another(row))) << row.key;
    }
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Looks, FitWhatIsSelected) {
    Select(true, false);
    for (const LookRow &row : LookRows()) EXPECT_EQ(StateOf(surface, row).fits, row.ofNode != nullptr);
    Select(false, true);
    for (const LookRow &row : LookRows()) EXPECT_EQ(StateOf(surface, row).fits, row.ofLink != nullptr);
    Select(true, true);
    for (const LookRow &row : LookRows()) EXPECT_TRUE(StateOf(surface, row).fits) << row.key;
}

TEST_F(Looks, EachIsGivenToAllThatIsSelectedInOneStepOfUndo) {
    Select(true, true);
    for (const LookRow &row : LookRows()) {
        SCOPED_TRACE(row.key);
        const diagram::Revision before = surface.Actions().Revision();
        const double value = Another(row);
        ASSERT_TRUE(GiveLook(surface, row, value));
        EXPECT_EQ(StateOf(surface, row), (LookState{true, value}));
        if (row.ofNode) {
            EXPECT_EQ(row.ofNode(a), value);
            EXPECT_EQ(row.ofNode(b), value);
            EXPECT_NE(row.ofNode(c), value) << "not selected";
        }
        if (row.ofLink) {
            EXPECT_EQ(row.ofLink(ab), value);
            EXPECT_NE(row.ofLink(bc), value) << "not selected";
        }
        EXPECT_FALSE(GiveLook(surface, row, value)) << "has it already";
        surface.Undo();
        EXPECT_EQ(surface.Actions().Revision(), before);
    }
}

TEST_F(Looks, WhatDiffersHasNoValueAndBecomesOne) {
    Select(true, false);
    b.SetFillColor(0x123456);
    const LookRow &fill = LookRowOf(LookOf::Fill);
    EXPECT_EQ(StateOf(surface, fill), (LookState{true, {}}));
    EXPECT_TRUE(GiveLook(surface, fill, a.FillColor())) << "one has it already";
    EXPECT_EQ(b.FillColor(), a.FillColor());
    surface.Undo();
    EXPECT_EQ(b.FillColor(), 0x123456);
}

TEST_F(Looks, NodesAndLinksAreComparedWithEachOther) {
    Select(true, true);
    const LookRow &line = LookRowOf(LookOf::LineColour);
    EXPECT_TRUE(GiveLook(surface, line, 0x112233));
    ab.SetLineColor(0x445566);
    EXPECT_EQ(StateOf(surface, line), (LookState{true, {}}));
}

TEST_F(Looks, NoFillIsAValueAndKeepsTheColour) {
    Select(true, false);
    const LookRow &fill = LookRowOf(LookOf::Fill);
    const support::Colour before = a.FillColor();
    EXPECT_TRUE(GiveLook(surface, fill, kNoFill));
    EXPECT_TRUE(a.Transparent());
    EXPECT_EQ(a.FillColor(), before);
    EXPECT_EQ(StateOf(surface, fill), (LookState{true, kNoFill}));
    EXPECT_TRUE(GiveLook(surface, fill, before));
    EXPECT_FALSE(a.Transparent());
}

TEST_F(Looks, AValueOutOfRangeChangesNothing) {
    Select(true, false);
    EXPECT_THROW(GiveLook(surface, LookRowOf(LookOf::Shadow), 99), support::Error);
    EXPECT_EQ(a.Shadow(), 0);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Looks, AutomaticRoutingGivesEachLinkItsBestStyleInOneStep) {
    c.SetBounds(6000, 4000, 1000, 600);
    ab.SetSelected(true);
    bc.SetSelected(true);
    const LookRow &routing = LookRowOf(LookOf::Routing);
    EXPECT_TRUE(GiveLook(surface, routing, diagram::kAutomaticStyle));
    EXPECT_EQ(ab.Style(), 5);                                      // straight on
    EXPECT_TRUE(bc.Style() == 2 || bc.Style() == 3) << bc.Style(); // one bend
    EXPECT_FALSE(GiveLook(surface, routing, diagram::kAutomaticStyle)) << "they have theirs";
    surface.Undo();
    EXPECT_EQ(ab.Style(), 0);
    EXPECT_EQ(bc.Style(), 0);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Looks, AutomaticRoutingFitsLinksOnly) {
    Select(true, false);
    EXPECT_FALSE(GiveLook(surface, LookRowOf(LookOf::Routing), diagram::kAutomaticStyle));
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Looks, FontsAndAlignmentsAreSharedNowherePartlyOrEverywhere) {
    Select(true, true);
    EXPECT_EQ(SharedFont(surface, &diagram::Font::Bold), Shared::Nowhere);
    a.SetFont(diagram::Font(QStringLiteral("Arial"), 10, true));
    EXPECT_EQ(SharedFont(surface, &diagram::Font::Bold), Shared::Partly);
    b.SetFont(a.Font());
    ab.SetFont(a.Font());
    EXPECT_EQ(SharedFont(surface, &diagram::Font::Bold), Shared::Everywhere);
    EXPECT_EQ(SharedFont(surface, &diagram::Font::Italic), Shared::Nowhere);
    for (diagram::Node *node : {&a, &b}) node->SetAlignment(2);
    EXPECT_EQ(SharedAlignment(surface, 0), Shared::Everywhere);
    b.SetAlignment(4);
    EXPECT_EQ(SharedAlignment(surface, 0), Shared::Partly);
    EXPECT_EQ(SharedAlignment(surface, 3), Shared::Partly);
    EXPECT_EQ(SharedAlignment(surface, 6), Shared::Nowhere);
    Select(false, false);
    EXPECT_EQ(SharedFont(surface, &diagram::Font::Bold), Shared::Nowhere);
    EXPECT_EQ(SharedAlignment(surface, 0), Shared::Nowhere);
}

} // namespace mainwindow::testing
