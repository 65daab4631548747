// The inspection of drawings finds what it is there for.
#include "tests/product/Faults.h"

#include "diagram/model/AnyItem.h"
#include "diagram/model/Surface.h"
#include "document/MemoryWindow.h"
#include "document/Tags.h"
#include "support/testing/ScriptedDesktop.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AtDates.h"
#include "timeline/TimelineNodes.h"

#include <gtest/gtest.h>

namespace {

diagram::Node &Add(diagram::Surface &surface, double x, double y, double w, double h, const char *text = "") {
    diagram::Node &node = surface.Nodes().Add(float(x * 15), float(y * 15), float(w * 15), float(h * 15));
    node.SetText(QString::fromUtf8(text));
    return node;
}

std::string Faults(diagram::Surface &surface) { return tests::FaultsOf(surface).join("; ").toStdString(); }

} // namespace

TEST(Faults, AGoodDrawingHasNone) {
    diagram::Surface surface;
    diagram::Node &frame = Add(surface, 0, 0, 400, 300, "Frame");
    frame.SetAlignment(0);
    diagram::Node &a = Add(surface, 20, 100, 100, 50, "A"), &b = Add(surface, 250, 100, 100, 50, "B");
    a.Links().Add(b);
    EXPECT_EQ(Faults(surface), "");
}

TEST(Faults, ATextThatIsCut) {
    diagram::Surface surface;
    Add(surface, 0, 0, 40, 20, "Far too long for this");
    EXPECT_NE(Faults(surface).find("is cut"), std::string::npos);
}

TEST(Faults, ATextUnderWhatStandsOnItsFrame) {
    diagram::Surface surface;
    Add(surface, 0, 0, 400, 300, "In the middle");
    Add(surface, 100, 100, 200, 100);
    EXPECT_NE(Faults(surface).find("covers the text"), std::string::npos);
}

TEST(Faults, NodesThatOverlap) {
    diagram::Surface surface;
    Add(surface, 0, 0, 100, 50, "A");
    Add(surface, 50, 20, 100, 50, "B");
    EXPECT_EQ(Faults(surface), "\"B\" lies over \"A\"");
}

TEST(Faults, AFrameInFrontOfWhatItHolds) {
    diagram::Surface surface;
    Add(surface, 50, 50, 100, 50, "A");
    Add(surface, 0, 0, 300, 200);
    EXPECT_EQ(Faults(surface), "\"\" lies over \"A\"");
}

TEST(Faults, ALinkAcrossAnotherNode) {
    diagram::Surface surface;
    diagram::Node &a = Add(surface, 0, 0, 100, 50, "A"), &b = Add(surface, 400, 0, 100, 50, "B");
    a.Links().Add(b).SetStyle(0);
    diagram::Link &link = *surface.Links().front();
    Add(surface, 200, 0, 100, 50, "C");
    link.Points().Assign({{1500, 375}, {6000, 375}});
    EXPECT_EQ(Faults(surface), "the link between \"A\" and \"B\" runs over \"C\"");
}

TEST(Faults, TheTextOfALinkAcrossAnotherNode) {
    diagram::Surface surface;
    diagram::Node &a = Add(surface, 0, 400, 100, 50, "A"), &b = Add(surface, 400, 400, 100, 50, "B");
    a.Links().Add(b).SetText("line\r\nline\r\nline\r\nline\r\nline");
    Add(surface, 105, 110, 290, 310, "C"); // leaves no place beside the line
    Add(surface, 105, 430, 290, 310, "D");
    EXPECT_NE(Faults(surface).find("the text between"), std::string::npos);
}

TEST(Faults, ANodeOffTheGrid) {
    diagram::Surface surface;
    Add(surface, 3, 0, 100, 50, "A");
    EXPECT_EQ(Faults(surface), "\"A\" is off the grid");
}

// A slice whose strip runs at the top.
struct FaultsOfAPlan : ::testing::Test {
    FaultsOfAPlan() {
        diagram::Node &months = *timeline::LocateTimeLineTemplateNode(surface, true);
        months.SetWidth(120 * 15);
        months.SetHeight(30 * 15);
        document::SetTag(surface, document::tags::kTimelineAlign, "2");
    }
    support::testing::ScriptedDesktop desktop;
    document::MemoryWindow window{desktop.Get(), document::EmptyPools{}};
    diagram::Surface &surface = window.AddFlow1()[0];
};

TEST_F(FaultsOfAPlan, ANodeAtItsDateMayBeOffTheGrid) {
    diagram::Node &a = Add(surface, 0, 100, 50, 50, "A");
    Add(surface, 303, 100, 50, 50, "B");
    timeline::SetKeepsNodesAtDates(surface, true);
    timeline::AddTimelineLink(window, surface, a, "14 March 2027");
    EXPECT_NE(a.Left(), 0);
    EXPECT_EQ(Faults(surface), "\"B\" is off the grid");
}

TEST_F(FaultsOfAPlan, TheQuietLineToADayMayRunBehindANode) {
    diagram::Node &a = Add(surface, 0, 300, 120, 50, "A");
    diagram::Node &b = Add(surface, 0, 100, 400, 50, "B");
    timeline::AddTimelineLink(window, surface, a, "14 March 2027");
    EXPECT_EQ(Faults(surface), "");
    a.Links().Item(1).BringToFront();
    EXPECT_EQ(Faults(surface), "the link between \"A\" and \"14 March 2027\" runs over \"B\"");
    EXPECT_TRUE(diagram::LiesBelow(&b, &a.Links().Item(1)));
}

TEST(Faults, ADrawingTooLargeForAPage) {
    diagram::Surface surface;
    Add(surface, 0, 0, 1200, 50, "A");
    EXPECT_EQ(Faults(surface), "needs 1200 x 50 pixels");
}

TEST(Faults, WhatIsHiddenIsPassedOver) {
    diagram::Surface surface;
    Add(surface, 0, 0, 100, 50, "A");
    Add(surface, 13, 7, 100, 50, "B").SetHidden(true);
    EXPECT_EQ(Faults(surface), "");
}
