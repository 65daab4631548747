#include "timeline/Tidy.h"

#include "document/clsfrmMain.h"
#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/DaysOfStrip.h"

namespace timeline::testing {

namespace {

using document::tags::kMissing;

class Tidying : public TimelineTest {
protected:
    Tidying() {
        Template(1000, 500);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
    }
    void Date(diagram::Node &node, const char *date) {
        AddTimelineLink(window, flow, node, QString::fromLatin1(date));
    }
    QString Shown() const { return Strip().join(u' '); }
    diagram::Node &first = UserNode(), &second = UserNode();
};

} // namespace

TEST_F(Tidying, MonthsThatHeldAFormerDateAloneGoAndTheOthersCloseUp) {
    Date(first, "14 January 2004");
    Date(first, "15 March 2004");
    Date(first, "16 June 2004");
    Date(second, "14 March 2004");
    EXPECT_EQ(Shown(), QStringLiteral("January 2004 March 2004 June 2004")) << "no date takes a month away";
    window.clsSettings().Dirty = false;
    EXPECT_EQ(TidyTimeline(window, flow), 1);
    EXPECT_EQ(Shown(), QStringLiteral("March 2004 June 2004"));
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("14 January 2004"), false), nullptr);
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("March 2004"), false)->Left(), 0);
    EXPECT_EQ(DateOfNode(first), QStringLiteral("16 June 2004"));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Tidying, WhereMissingMonthsAreAddedThoseInBetweenStay) {
    Set(kMissing, QStringLiteral("True"));
    Date(first, "14 January 2004");
    Date(second, "14 September 2004");
    Date(first, "14 March 2004");
    Date(second, "14 May 2004");
    EXPECT_EQ(Strip().size(), 9);
    EXPECT_EQ(TidyTimeline(window, flow), 6);
    EXPECT_EQ(Shown(), QStringLiteral("March 2004 April 2004 May 2004"));
}

TEST_F(Tidying, WithoutADateLeftTheWholeStripGoes) {
    Set(kMissing, QStringLiteral("True"));
    Date(first, "14 January 2004");
    Date(second, "14 March 2004");
    RemoveTimelineLinks(first);
    RemoveTimelineLinks(second);
    EXPECT_EQ(TidyTimeline(window, flow), 3);
    EXPECT_TRUE(LocateTimelineNodes(flow).empty());
}

TEST_F(Tidying, WhatIsNeededStaysAndNothingIsMarked) {
    EXPECT_EQ(TidyTimeline(window, flow), 0) << "without a strip";
    Date(first, "14 January 2004");
    Date(second, "14 March 2004");
    UserNode().Links().Add(*LocateTimelineNode(flow, QStringLiteral("March 2004"), false));
    RemoveTimelineLinks(second);
    const int nodes = flow.Nodes().Count();
    window.clsSettings().Dirty = false;
    EXPECT_EQ(TidyTimeline(window, flow), 0) << "a link ends on March itself";
    EXPECT_EQ(flow.Nodes().Count(), nodes);
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Tidying, AHiddenStripStaysHiddenAndAShownOneIsNeverLost) {
    Date(first, "14 January 2004");
    Date(second, "14 March 2004");
    Date(second, "20 January 2004");
    ShowTimeline(window, flow, false);
    EXPECT_EQ(TidyTimeline(window, flow), 1);
    EXPECT_TRUE(Strip().isEmpty());
    ShowTimeline(window, flow, true);
    Date(second, "14 March 2004");
    HideMonth(*LocateTimelineNode(flow, QStringLiteral("January 2004"), false));
    Date(second, "20 January 2004");
    EXPECT_EQ(Shown(), QStringLiteral("March 2004"));
    EXPECT_EQ(TidyTimeline(window, flow), 1);
    EXPECT_EQ(Shown(), QStringLiteral("January 2004")) << "it was hidden by hand";
    EXPECT_EQ(LocateTimelineNodes(flow).front()->Width(), 1000);
}

TEST_F(Tidying, IsOneStep) {
    Date(first, "14 January 2004");
    Date(first, "14 March 2004");
    flow.BeginAction(1001);
    TidyTimeline(window, flow);
    flow.EndAction();
    EXPECT_EQ(Shown(), QStringLiteral("March 2004"));
    flow.Undo();
    EXPECT_EQ(Shown(), QStringLiteral("January 2004 March 2004"));
    EXPECT_NE(LocateTimelineNode(flow, QStringLiteral("14 January 2004"), false), nullptr);
}

class Filling : public Tidying {
protected:
    Filling() {
        Set(kMissing, QStringLiteral("True"));
        Date(first, "14 January 2000");
        Date(second, "14 January 2009"); // 107 months between them
    }
    std::vector<QLineF> Breaks() { return DaysOfStrip(window).Breaks(flow); }
};

TEST_F(Filling, TheStopIsToldAndFillingGoesOn) {
    EXPECT_EQ(Strip().size(), 50);
    EXPECT_EQ(window.statuses.back(),
              QStringLiteral("The timeline stopped after 48 new months: those between January 2004 and "
                             "January 2009 are still missing. Fill in missing months goes on."));
    EXPECT_EQ(FillInMissingMonths(window, flow), 48);
    EXPECT_TRUE(window.statuses.back().contains(QStringLiteral("between January 2008 and January 2009")));
    EXPECT_EQ(FillInMissingMonths(window, flow), 11);
    EXPECT_EQ(window.statuses.back(), QString());
    EXPECT_EQ(FillInMissingMonths(window, flow), 0);
    EXPECT_EQ(Strip().size(), 109);
}

TEST_F(Filling, FortyEightMissingMonthsAreAllAddedWithoutAWord) {
    flow.Nodes().Clear();
    Template(1000, 500);
    Date(UserNode(), "14 January 2000");
    Date(UserNode(), "14 February 2004");
    EXPECT_EQ(Strip().size(), 50);
    EXPECT_EQ(window.statuses.back(), QString());
}

TEST_F(Filling, FillsAlsoWhereMissingMonthsWereNotWanted) {
    Set(kMissing, QStringLiteral("False"));
    Arrange();
    EXPECT_EQ(Strip().size(), 2);
    EXPECT_EQ(FillInMissingMonths(window, flow), 48);
    EXPECT_EQ(Get(kMissing), QStringLiteral("True"));
}

TEST_F(Filling, WhereNothingIsMissingNothingChanges) {
    flow.Nodes().Clear();
    Set(kMissing, QStringLiteral("False"));
    EXPECT_EQ(FillInMissingMonths(window, flow), 0) << "without a strip";
    EXPECT_EQ(flow.Nodes().Count(), 0);
    Template(1000, 500);
    Date(UserNode(), "14 January 2000");
    Date(UserNode(), "14 February 2000");
    EXPECT_EQ(FillInMissingMonths(window, flow), 0);
    EXPECT_EQ(Get(kMissing), QStringLiteral("False"));
}

TEST_F(Filling, TheStripIsBrokenWhereMonthsAreMissing) {
    ASSERT_EQ(Breaks().size(), 1u);
    EXPECT_EQ(Breaks()[0], QLineF(49000, 0, 49000, 500));
    Arrange(0);
    Set(document::tags::kTimelineAlign, QStringLiteral("0"));
    while (FillInMissingMonths(window, flow) > 0) continue;
    EXPECT_TRUE(Breaks().empty());
}

TEST_F(Filling, AHiddenMonthIsNotMissing) {
    flow.Nodes().Clear();
    Set(kMissing, QStringLiteral("False"));
    Set(document::tags::kTimelineAlign, QStringLiteral("0"));
    Template(1000, 500);
    for (const char *date : {"14 March 2004", "14 April 2004", "14 May 2004", "14 July 2004"})
        Date(UserNode(), date);
    HideMonth(*LocateTimelineNode(flow, QStringLiteral("April 2004"), false));
    Arrange();
    EXPECT_EQ(Breaks(), std::vector<QLineF>{QLineF(0, 1000, 1000, 1000)}) << "June alone";
    HideMonth(*LocateTimelineNode(flow, QStringLiteral("July 2004"), false));
    Arrange();
    EXPECT_TRUE(Breaks().empty());
    ShowTimeline(window, flow, false);
    EXPECT_TRUE(Breaks().empty());
}

} // namespace timeline::testing
