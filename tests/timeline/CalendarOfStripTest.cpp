#include "timeline/CalendarOfStrip.h"

#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"

namespace timeline::testing {

namespace {

// November 2004 to February 2005, 3100 wide each, at the top.
class CalendarTest : public TimelineTest {
protected:
    CalendarTest() {
        Template(3100, 500).SetForeColor(0x6A5444);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
        Set(document::tags::kMissing, QStringLiteral("True"));
        AddTimelineLinks(window, flow,
                         {{&UserNode(), QStringLiteral("14 November 2004")},
                          {&UserNode(), QStringLiteral("02 February 2005")}});
    }
    static QStringList Captions(const std::vector<diagram::Calendar::Span> &spans) {
        QStringList texts;
        for (const auto &span : spans)
            texts << QStringLiteral("%1 %2-%3").arg(span.caption).arg(span.from).arg(span.to);
        return texts;
    }
    diagram::Calendar Calendar() const { return CalendarOfStrip(flow); }
};

} // namespace

TEST_F(CalendarTest, YearsAndQuartersLieOverTheirMonths) {
    EXPECT_EQ(Captions(Calendar().years), QStringList({"2004 0-6200", "2005 6200-12400"}));
    EXPECT_EQ(Captions(Calendar().quarters), QStringList({"Q4 0-6200", "Q1 6200-12400"}));
    EXPECT_EQ(Calendar().months.size(), 4u);
    EXPECT_EQ(Calendar().strip, QRectF(0, 0, 12400, 500));
    EXPECT_EQ(Calendar().ink, 0x6A5444);
}

TEST_F(CalendarTest, AYearIsNotTakenForTheSameQuarterOfAnother) {
    for (diagram::Node *month : LocateTimelineNodes(flow))
        if (!month->Text().contains(QLatin1Char('N')) && !month->Text().contains(QLatin1Char('F')))
            HideMonth(*month);
    Arrange();
    EXPECT_EQ(Captions(Calendar().quarters), QStringList({"Q4 0-3100", "Q1 3100-6200"}));
}

TEST_F(CalendarTest, WeeksBeginWhereTheirMondayStands) {
    const diagram::Calendar calendar = Calendar();
    const double slot = 3100 / 30; // November, without rest
    ASSERT_GE(calendar.weeks.size(), 17u);
    EXPECT_EQ(calendar.weeks[0], 1 * slot) << "1 November 2004";
    EXPECT_EQ(calendar.weeks[1], 8 * slot);
}

TEST_F(CalendarTest, WeekendsAreThereOnWish) {
    EXPECT_TRUE(Calendar().weekends.empty());
    SetShows(flow, CalendarPart::Weekends, true);
    EXPECT_TRUE(Shows(flow, CalendarPart::Weekends));
    const diagram::Calendar calendar = Calendar();
    ASSERT_GE(calendar.weekends.size(), 2u);
    EXPECT_EQ(calendar.weekends[0].from, 6 * 103) << "Saturday, 6 November 2004";
    EXPECT_EQ(calendar.weekends[0].to, 7 * 103);
    EXPECT_EQ(calendar.weekends[1].from, 7 * 103);
}

TEST_F(CalendarTest, BandsAreThereUntilTheyAreSwitchedOff) {
    EXPECT_TRUE(Calendar().bands);
    EXPECT_FALSE(Calendar().todayEverywhere);
    SetShows(flow, CalendarPart::Bands, false);
    SetShows(flow, CalendarPart::TodayEverywhere, true);
    EXPECT_FALSE(Calendar().bands);
    EXPECT_TRUE(Calendar().todayEverywhere);
    EXPECT_EQ(Calendar().Bounds(), Calendar().strip);
    SetShows(flow, CalendarPart::Bands, true);
    EXPECT_TRUE(Calendar().bands);
}

TEST_F(CalendarTest, BandsLieOnTheSideOfTheNodes) {
    const bool after[] = {true, false, true, false, false};
    const bool rightwards[] = {false, false, true, true, true};
    for (int arrangement = 0; arrangement < 5; ++arrangement) {
        Set(document::tags::kTimelineAlign, QString::number(arrangement));
        Arrange();
        const diagram::Calendar calendar = Calendar();
        EXPECT_EQ(calendar.after, after[arrangement]) << arrangement;
        EXPECT_EQ(calendar.rightwards, rightwards[arrangement]) << arrangement;
        const QRectF bands = calendar.Bands();
        EXPECT_FALSE(bands.intersects(calendar.strip)) << arrangement;
        EXPECT_TRUE(calendar.after
                        ? bands.right() > calendar.strip.right() || bands.bottom() > calendar.strip.bottom()
                        : bands.left() < calendar.strip.left() || bands.top() < calendar.strip.top())
            << arrangement;
    }
}

TEST_F(CalendarTest, NothingWithoutAMonthInSight) {
    ShowHideTimelineNodes(flow, false);
    EXPECT_TRUE(Calendar().IsEmpty());
    diagram::Surface bare;
    EXPECT_EQ(CalendarOfStrip(bare), diagram::Calendar());
}

TEST_F(CalendarTest, TodayStandsInTheMiddleOfItsSlot) {
    EXPECT_FALSE(Calendar().today);
    desktop.clock.now = QDateTime(QDate(2004, 11, 14), QTime(12, 0));
    ASSERT_TRUE(Calendar().today);
    EXPECT_EQ(*Calendar().today, QLineF(14.5 * 103, 0, 14.5 * 103, 500));
}

} // namespace timeline::testing
