// The inspection of drawings finds what it is there for.
#include "tests/product/Faults.h"

#include "diagram/model/Surface.h"

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
    diagram::Node &a = Add(surface, 0, 0, 100, 50, "A"), &b = Add(surface, 400, 0, 100, 50, "B");
    a.Links().Add(b).SetText("line\r\nline\r\nline\r\nline\r\nline");
    Add(surface, 200, 40, 100, 50, "C");
    EXPECT_NE(Faults(surface).find("the text between"), std::string::npos);
}

TEST(Faults, ANodeOffTheGrid) {
    diagram::Surface surface;
    Add(surface, 3, 0, 100, 50, "A");
    EXPECT_EQ(Faults(surface), "\"A\" is off the grid");
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
