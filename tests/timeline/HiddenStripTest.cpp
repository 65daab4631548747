// What becomes of a strip, and of single months, while they are hidden.
#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"

namespace timeline::testing {

namespace {

using namespace document::tags;

class HiddenStrip : public TimelineTest {
protected:
    HiddenStrip() {
        Template(3100, 500);
        Set(kTimelineAlign, QStringLiteral("2"));
        AddTimelineLinks(
            window, flow,
            {{&first, QStringLiteral("14 March 2004")}, {&second, QStringLiteral("02 April 2004")}});
    }
    diagram::Node &At(const char *month) {
        return *LocateTimelineNode(flow, QString::fromLatin1(month), false);
    }
    void Date(diagram::Node &node, const char *date) {
        AddTimelineLink(window, flow, node, QString::fromLatin1(date));
    }
    static QRectF Box(double left, double top, double width = 3100, double height = 500) {
        return {left, top, width, height};
    }
    diagram::Node &first = UserNode(), &second = UserNode();
};

} // namespace

TEST_F(HiddenStrip, ANodeDatedMeanwhileLeavesTheStripHidden) {
    ShowTimeline(window, flow, false);
    Date(first, "10 June 2004");
    for (const diagram::Node *month : LocateTimelineNodes(flow)) EXPECT_TRUE(month->Hidden());
    EXPECT_EQ(LocateTimelineNodes(flow).size(), 3u);
    EXPECT_TRUE(first.Links().Item(1).Hidden());
    Set(kMissing, QStringLiteral("True"));
    UpdateTimeLineNodes(window, flow, true);
    EXPECT_EQ(LocateTimelineNodes(flow).size(), 4u) << "with May";
    EXPECT_TRUE(Strip().isEmpty());
}

TEST_F(HiddenStrip, ShownAgainMonthsHaveTheirSizesAndPlacesInEachDirection) {
    for (const char *arrangement : {"2", "0"}) {
        Set(kTimelineAlign, QLatin1String(arrangement));
        ShowTimeline(window, flow, false);
        Date(first, "10 May 2004");
        Date(first, "14 March 2004");
        ShowTimeline(window, flow, true);
        const bool downwards = *arrangement == '0';
        double at = 0;
        for (const char *month : {"March 2004", "April 2004", "May 2004"}) {
            EXPECT_EQ(At(month).Bounds(), downwards ? Box(0, at) : Box(at, 0)) << month << arrangement;
            at += downwards ? 500 : 3100;
        }
        EXPECT_FALSE(first.Links().Item(1).Hidden());
    }
}

TEST_F(HiddenStrip, NothingIsLaidOutAnewWhereNothingWasDated) {
    At("April 2004").SetLeft(5000);
    ShowTimeline(window, flow, false);
    ShowTimeline(window, flow, true);
    EXPECT_EQ(At("April 2004").Left(), 5000);
}

TEST_F(HiddenStrip, AMonthThatTheUserHidStaysHiddenWhenTheStripIsShown) {
    HideMonth(At("March 2004"));
    Arrange();
    for (const bool shown : {true, false, true}) {
        ShowTimeline(window, flow, shown);
        EXPECT_TRUE(At("March 2004").Hidden());
        EXPECT_EQ(At("March 2004").Width(), 0) << "it takes no room";
        EXPECT_EQ(At("April 2004").Hidden(), !shown);
    }
    EXPECT_EQ(At("April 2004").Bounds(), Box(0, 0));
    DoUnHideTimelineNodes(window, flow);
    ShowTimeline(window, flow, false);
    ShowTimeline(window, flow, true);
    EXPECT_EQ(At("March 2004").Bounds(), Box(0, 0)) << "unhiding forgets it";
    EXPECT_EQ(At("April 2004").Bounds(), Box(3100, 0));
}

TEST_F(HiddenStrip, WhatTheUserHidIsKeptInTheMonthsOwnTag) {
    HideMonth(At("March 2004"));
    EXPECT_EQ(document::GetTag(At("March 2004"), kMonthHidden), QStringLiteral("Yes"));
    EXPECT_EQ(document::GetTag(At("March 2004"), kTheDate), QStringLiteral("March 2004"));
    const QString untouched = At("April 2004").Tag();
    DoUnHideTimelineNodes(window, flow);
    EXPECT_NE(document::GetTag(At("March 2004"), kMonthHidden), QStringLiteral("Yes"));
    EXPECT_EQ(At("April 2004").Tag(), untouched);
}

TEST_F(HiddenStrip, WhereTheUserHidEveryMonthShowingShowsThemAll) {
    HideMonth(At("March 2004"));
    HideMonth(At("April 2004"));
    Arrange();
    ShowTimeline(window, flow, true);
    EXPECT_EQ(At("March 2004").Bounds(), Box(0, 0));
    EXPECT_EQ(At("April 2004").Bounds(), Box(3100, 0));
}

TEST_F(HiddenStrip, ADateInAMonthThatTheUserHidLeavesTheOthersShown) {
    HideMonth(At("March 2004"));
    Date(second, "20 May 2004");
    EXPECT_TRUE(At("March 2004").Hidden());
    EXPECT_FALSE(At("May 2004").Hidden());
    EXPECT_FALSE(second.Links().Item(1).Hidden());
}

} // namespace timeline::testing
