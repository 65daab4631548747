#include "timeline/TimelineNodes.h"

#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

namespace timeline {

namespace {

diagram::Node &AddMarked(diagram::Surface &flow, const QString &text) {
    diagram::Node &node = flow.Nodes().Add(0, 0, 100, 100);
    node.SetText(text);
    node.SetMarked(true);
    node.SetSelectable(false);
    return node;
}

} // namespace

TEST(CountOccurencies, CountsWithoutOverlapAndWithRegardToCase) {
    EXPECT_EQ(CountOccurencies(QStringLiteral("a-b-c"), QStringLiteral("-")), 2);
    EXPECT_EQ(CountOccurencies(QStringLiteral("--"), QStringLiteral("-")), 2);
    EXPECT_EQ(CountOccurencies(QStringLiteral("aA"), QStringLiteral("a")), 1);
    EXPECT_EQ(CountOccurencies(QString(), QStringLiteral("a")), 0);
    EXPECT_EQ(CountOccurencies(QStringLiteral("ab"), QString()), 0);
}

TEST(LocateTimelineNodes, GivesMonthsInTheOrderOfAddingHiddenOnesToo) {
    diagram::Surface flow;
    diagram::Node &april = AddMarked(flow, QStringLiteral("April 2024"));
    AddMarked(flow, QStringLiteral("01 April 2024")); // a day
    diagram::Node &march = AddMarked(flow, QStringLiteral("Mar-24"));
    march.SetHidden(true);
    AddMarked(flow, QStringLiteral("TIMELINE TEMPLATE NODE"));
    AddMarked(flow, QStringLiteral("DIAGRAM"));
    EXPECT_EQ(LocateTimelineNodes(flow), (std::vector{&april, &march}));
}

TEST(LocateTimelineNodes, LeavesOutWhatIsNotMarkedOrCanBeSelected) {
    diagram::Surface flow;
    AddMarked(flow, QStringLiteral("May 2024")).SetMarked(false);
    AddMarked(flow, QStringLiteral("May 2024")).SetSelectable(true);
    EXPECT_TRUE(LocateTimelineNodes(flow).empty());
}

TEST(NodeIsTimeline, IsTrueForADayAlone) {
    diagram::Surface flow;
    diagram::Node &day = AddMarked(flow, QStringLiteral("01 May 2024"));
    day.SetHidden(true);
    EXPECT_TRUE(NodeIsTimeline(day));
    day.SetHidden(false);
    EXPECT_FALSE(NodeIsTimeline(day));
    day.SetHidden(true);
    day.SetMarked(false);
    EXPECT_FALSE(NodeIsTimeline(day));
    day.SetMarked(true);
    day.SetSelectable(true);
    EXPECT_FALSE(NodeIsTimeline(day));
}

} // namespace timeline
