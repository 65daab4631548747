#include "timeline/AdjustLinks.h"

#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

namespace timeline {

namespace {

// A day of 200 by 300 at 1000, 2000, and a node that may be linked to it.
class Adjusting : public ::testing::Test {
protected:
    Adjusting() : day(flow.Nodes().Add(1000, 2000, 200, 300)), node(flow.Nodes().Add(0, 0, 400, 400)) {
        day.SetHidden(true);
        day.SetMarked(true);
        day.SetSelectable(false);
    }
    diagram::Surface flow;
    diagram::Node &day;
    diagram::Node &node;
};

diagram::Point Last(diagram::Link &link) { return link.Points().Item(link.Points().Count() - 1); }

} // namespace

TEST_F(Adjusting, AHorizontalStripIsMetAtTheTopOrBottomOfTheDay) {
    diagram::Link &link = node.Links().Add(day);
    AdjustLinks(node, true);
    EXPECT_EQ(Last(link), (diagram::Point{1100, 2000}));
    EXPECT_TRUE(link.MovePointsMode());
    node.SetTop(5000);
    AdjustLinks(node, true);
    EXPECT_EQ(Last(link), (diagram::Point{1100, 2300}));
    node.SetTop(2000); // level counts as below
    AdjustLinks(node, true);
    EXPECT_EQ(Last(link), (diagram::Point{1100, 2300}));
}

TEST_F(Adjusting, AVerticalStripIsMetAtTheSideFromWhichTheLinkComes) {
    diagram::Link &link = node.Links().Add(day);
    AdjustLinks(node, false);
    EXPECT_EQ(Last(link), (diagram::Point{1000, 2150}));
    node.SetLeft(5000);
    AdjustLinks(node, false);
    EXPECT_EQ(Last(link), (diagram::Point{1200, 2150}));
    node.SetLeft(1000); // level counts as left
    AdjustLinks(node, false);
    EXPECT_EQ(Last(link), (diagram::Point{1000, 2150}));
}

TEST_F(Adjusting, TheOtherEndStandsOnItsNode) {
    diagram::Link &link = node.Links().Add(day);
    AdjustLinks(node, true);
    node.SetBounds(900, 6000, 400, 400);
    AdjustLinks(node, true);
    EXPECT_EQ(Last(link), (diagram::Point{1100, 2300}));
    EXPECT_EQ(link.Points().Item(0), (diagram::Point{1100, 6000}));
}

TEST_F(Adjusting, FromTheDayItsLinksAreAdjustedToo) {
    diagram::Link &link = node.Links().Add(day);
    AdjustLinks(day, true);
    EXPECT_EQ(Last(link), (diagram::Point{1100, 2000}));
}

TEST_F(Adjusting, ALinkThatLeavesADayHasItsFirstPointOnTheOtherNode) {
    diagram::Link &link = day.Links().Add(node);
    AdjustLinks(day, true);
    EXPECT_EQ(link.Points().Item(0), (diagram::Point{200, 400}));
}

TEST_F(Adjusting, OtherLinksStay) {
    diagram::Node &other = flow.Nodes().Add(3000, 0, 400, 400);
    diagram::Link &link = node.Links().Add(other);
    const std::vector<diagram::Point> before = link.Route();
    AdjustLinks(node, true);
    EXPECT_EQ(link.Route(), before);
    EXPECT_FALSE(link.MovePointsMode());
}

} // namespace timeline
