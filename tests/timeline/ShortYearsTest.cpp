// Stored months whose years have two digits.
#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/DateLanguage.h"
#include "timeline/DateText.h"

namespace timeline::testing {

namespace {

using document::tags::kTheDate;

struct ShortYears : TimelineTest {
    ShortYears() {
        Template(1000, 500);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
    }
};

} // namespace

TEST_F(ShortYears, AreThoseAroundTheOtherMonths) {
    EXPECT_EQ(CenturyOf(flow), kStoredCentury) << "no month";
    diagram::Node &odd = Month(QStringLiteral("Mar-35"));
    EXPECT_EQ(CenturyOf(flow), kStoredCentury) << "no month tells its year";
    TranslateDates(flow);
    EXPECT_EQ(document::GetTag(odd, kTheDate), QStringLiteral("Mar-35")) << "1935, letter for letter";
    Month(QStringLiteral("January 2034"));
    Month(QStringLiteral("June 2036"));
    EXPECT_EQ(CenturyOf(flow), 1985);
    TranslateDates(flow);
    EXPECT_EQ(document::GetTag(odd, kTheDate), QStringLiteral("March 2035"));
}

TEST_F(ShortYears, OfTheSameCenturyKeepTheirSpelling) {
    Month(QStringLiteral("January 2004"));
    diagram::Node &odd = Month(QStringLiteral("Mar-05"));
    TranslateDates(flow);
    EXPECT_EQ(document::GetTag(odd, kTheDate), QStringLiteral("Mar-05"));
}

TEST_F(ShortYears, StandOnTheStripWhereTheirYearIs) {
    Set(document::tags::kMissing, QStringLiteral("True"));
    Month(QStringLiteral("Feb-35"));
    Month(QStringLiteral("December 2034"));
    Arrange();
    EXPECT_EQ(Strip(), QStringList({QStringLiteral("December 2034"), QStringLiteral("January 2035"),
                                    QStringLiteral("February 2035")}));
}

TEST_F(ShortYears, ShownInMonthsOfALateYearHideTheLinksOfTheirDays) {
    document::SetTag(*LocateTimeLineTemplateNode(flow, true), document::tags::kDateFormat,
                     QStringLiteral("MMM YY"));
    diagram::Node &node = UserNode();
    AddTimelineLink(window, flow, node, QStringLiteral("14 March 2035"));
    ASSERT_EQ(Strip(), QStringList(QStringLiteral("Mar 35")));
    ShowTimeline(window, flow, false);
    EXPECT_TRUE(flow.Links().front()->Hidden());
    ShowTimeline(window, flow, true);
    EXPECT_FALSE(flow.Links().front()->Hidden());
}

} // namespace timeline::testing
