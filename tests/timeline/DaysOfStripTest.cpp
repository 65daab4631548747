#include "timeline/DaysOfStrip.h"

#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"

namespace timeline::testing {

namespace {

// March and May 2004, 3100 wide each, at the top.
class Days : public TimelineTest {
protected:
    Days() {
        Template(3100, 500);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
        AddTimelineLinks(
            window, flow,
            {{&first, QStringLiteral("14 March 2004")}, {&second, QStringLiteral("02 May 2004")}});
    }
    QString At(double x, double y = 0) {
        const auto day = days.DayAt(flow, {x, y});
        return day ? day->toString(Qt::ISODate) : QStringLiteral("none");
    }
    diagram::Node &first = UserNode(), &second = UserNode();
    DaysOfStrip days{window};
};

} // namespace

TEST_F(Days, APlaceIsTheDayInWhoseSlotItLies) {
    EXPECT_EQ(At(1400), QStringLiteral("2004-03-14"));
    EXPECT_EQ(At(1499, 99999), QStringLiteral("2004-03-14"));
    EXPECT_EQ(At(1500), QStringLiteral("2004-03-15"));
    EXPECT_EQ(At(3300), QStringLiteral("2004-05-02"));
}

TEST_F(Days, TheFirstSlotOfAMonthIsTheLastDayOfTheOneInFront) {
    EXPECT_EQ(At(50), QStringLiteral("2004-03-01")) << "nothing stands in front";
    EXPECT_EQ(At(3150), QStringLiteral("2004-05-01")) << "April doesn't stand there";
    AddTimelineLink(window, flow, first, QStringLiteral("02 April 2004"));
    EXPECT_EQ(At(3150), QStringLiteral("2004-03-31"));
    EXPECT_EQ(At(6250), QStringLiteral("2004-04-30"));
}

TEST_F(Days, BeyondTheEndsMonthsGoOn) {
    EXPECT_EQ(At(6200 + 1550), QStringLiteral("2004-06-15"));
    EXPECT_EQ(At(6200 + 3100 + 1550), QStringLiteral("2004-07-15"));
    EXPECT_EQ(At(-1600), QStringLiteral("2004-02-14"));
    EXPECT_EQ(At(1e9), QStringLiteral("none")) << "beyond the years that are dates";
}

TEST_F(Days, ADaysPlaceIsWhereItsLinksEnd) {
    const diagram::Node &day = *LocateTimelineNode(flow, QStringLiteral("14 March 2004"), false);
    const auto line = days.PlaceOf(flow, QDate(2004, 3, 14));
    ASSERT_TRUE(line);
    EXPECT_EQ(line->x1(), day.Left() + day.Width() / 2);
    EXPECT_EQ(*line, QLineF(1450, 0, 1450, 500));
    EXPECT_FALSE(days.PlaceOf(flow, QDate(2004, 4, 1)));
}

TEST_F(Days, AStripThatRunsDownwardsIsReadDownwards) {
    Set(document::tags::kTimelineAlign, QStringLiteral("0"));
    Template(1000, 3100);
    AddTimelineLink(window, flow, first, QStringLiteral("14 March 2004"));
    EXPECT_FALSE(days.RunsRightwards(flow));
    EXPECT_EQ(At(0, 1450), QStringLiteral("2004-03-14"));
    EXPECT_EQ(days.PlaceOf(flow, QDate(2004, 3, 14)), QLineF(0, 1450, 1000, 1450));
}

TEST_F(Days, TodayIsMarkedOnlyWhereTheStripReachesIt) {
    EXPECT_FALSE(days.Today(flow));
    desktop.clock.now = QDateTime(QDate(2004, 5, 2), QTime(9, 0));
    EXPECT_EQ(days.Today(flow), QLineF(3350, 0, 3350, 500));
    ShowHideTimelineNodes(flow, false);
    EXPECT_FALSE(days.Today(flow));
    EXPECT_EQ(At(1400), QStringLiteral("none"));
}

TEST_F(Days, ADatedNodeTellsItsDate) {
    EXPECT_EQ(days.DateOf(first), QDate(2004, 3, 14));
    EXPECT_EQ(days.Written(QDate(2004, 3, 4)), QStringLiteral("04 March 2004"));
    EXPECT_FALSE(days.DateOf(UserNode()));
}

TEST_F(Days, MonthsOfAlmostNoLengthHaveNoDays) {
    Template(20, 500);
    AddTimelineLink(window, flow, first, QStringLiteral("14 March 2004"));
    EXPECT_EQ(At(10), QStringLiteral("none"));
}

} // namespace timeline::testing
