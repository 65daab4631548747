// Months and days that are written in another way than the program writes them.
#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/DateIndex.h"
#include "timeline/DaysOfStrip.h"

namespace timeline::testing {

namespace {

using namespace document::tags;

struct Spelling : TimelineTest {
    Spelling() {
        Template(3100, 500);
        Set(kTimelineAlign, QStringLiteral("2"));
    }
    diagram::Node *Find(const char *date) {
        return LocateTimelineNode(flow, QString::fromLatin1(date), false);
    }
    void Date(diagram::Node &node, const char *date) {
        AddTimelineLink(window, flow, node, QString::fromLatin1(date));
    }
};

} // namespace

TEST_F(Spelling, AMonthIsFoundUnderEachSpellingAndKeepsItsOwn) {
    for (const char *written : {"march 2004", "Mar-2004", "03 2004", "2004 MARCH"}) {
        diagram::Node &month = Month(QString::fromLatin1(written));
        EXPECT_EQ(Find("March 2004"), &month) << written;
        EXPECT_EQ(DateIndex(flow).Find(QStringLiteral("March 2004")), &month) << written;
        Date(UserNode(), "14 March 2004");
        EXPECT_EQ(LocateTimelineNodes(flow).size(), 1u) << written;
        EXPECT_EQ(document::GetTag(month, kTheDate), QString::fromLatin1(written));
        EXPECT_EQ(Find("14 March 2004")->Bounds(), QRectF(1400, 0, 100, 500)) << written;
        flow.Nodes().Clear();
        Template(3100, 500);
    }
}

TEST_F(Spelling, TheExactOneComesFirst) {
    diagram::Node &other = Month(QStringLiteral("MARCH 2004"));
    EXPECT_EQ(Find("March 2004"), &other);
    const DateIndex before(flow);
    diagram::Node &exact = flow.Nodes().Add(0, 0, 0, 0);
    exact.SetMarked(true);
    exact.SetSelectable(false);
    exact.SetText(QStringLiteral("March 2004"));
    document::SetTag(exact, kTheDate, exact.Text());
    EXPECT_EQ(Find("March 2004"), &exact);
    EXPECT_EQ(DateIndex(flow).Find(QStringLiteral("March 2004")), &exact);
}

TEST_F(Spelling, AMonthIsNoDay) {
    Month(QStringLiteral("march 2004"));
    EXPECT_EQ(Find("01 March 2004"), nullptr);
    diagram::Node &day = Day(QStringLiteral("01 May 2004"));
    document::SetTag(day, kTheDate, QStringLiteral("1 may 2004"));
    EXPECT_EQ(Find("01 May 2004"), &day);
    EXPECT_NE(Find("May 2004"), &day);
}

TEST_F(Spelling, AnIndexForgetsWhatWent) {
    diagram::Node &month = Month(QStringLiteral("march 2004"));
    DateIndex index(flow);
    EXPECT_EQ(index.Find(QStringLiteral("March 2004")), &month);
    index.Remove(month);
    EXPECT_EQ(index.Find(QStringLiteral("March 2004")), nullptr);
    index.Add(month);
    EXPECT_EQ(index.Find(QStringLiteral("March 2004")), &month);
}

TEST_F(Spelling, TheScreenFindsItsDaysToo) {
    document::SetTag(Month(QStringLiteral("March 2004")), kTheDate, QStringLiteral("MARCH 2004"));
    Date(UserNode(), "14 March 2004");
    const DaysOfStrip days(window);
    const auto line = days.PlaceOf(flow, QDate(2004, 3, 14));
    ASSERT_TRUE(line);
    EXPECT_EQ(line->x1(), 1450);
}

TEST_F(Spelling, HidingFindsTheLinksOfItsDays) {
    diagram::Node &user = UserNode();
    Date(user, "14 March 2004");
    document::SetTag(*Find("14 March 2004"), kTheDate, QStringLiteral("14 march 2004"));
    ShowHideTimelineNodes(flow, false);
    EXPECT_TRUE(user.Links().Item(1).Hidden());
}

} // namespace timeline::testing
