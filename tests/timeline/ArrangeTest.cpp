#include "timeline/Arrange.h"

#include "diagram/model/ScreenValues.h"
#include "document/clsfrmMain.h"
#include "document/Tags.h"
#include "support/Error.h"
#include "tests/Errors.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/DateText.h"

namespace timeline::testing {

namespace {

using namespace document::tags;

class Arranging : public TimelineTest {
protected:
    // A timeline of months with a dated node in each.
    void Dated(std::initializer_list<const char *> days) {
        for (const char *day : days) Day(QString::fromLatin1(day));
        CopyTemplateLook(flow);
    }
    diagram::Node &At(const char *date) {
        return *LocateTimelineNode(flow, QString::fromLatin1(date), false);
    }
    long ErrorOfArranging() {
        return tests::NumberOf([&] { Arrange(); });
    }
};

} // namespace

TEST_F(Arranging, WithoutMonthsNothingIsMarkedAndTheTemplateNodeIsThere) {
    window.clsSettings().Dirty = false;
    Arrange();
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_NE(LocateTimeLineTemplateNode(flow, false), nullptr);
    EXPECT_EQ(window.statuses.back(), QString());
}

TEST_F(Arranging, SettingsComeFromTheTemplateNodeWhereTheSurfaceHasNone) {
    diagram::Node &look = Template(3100, 500);
    document::SetTag(look, kTimelineAlign, QStringLiteral("2"));
    document::SetTag(look, kMissing, QStringLiteral("True"));
    Arrange();
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("2"));
    EXPECT_EQ(Get(kMissing), QStringLiteral("True"));
    EXPECT_EQ(document::GetTag(look, kDateFormat), QStringLiteral("MMMM YYYY"));
    Set(kTimelineAlign, QString());
    document::SetTag(look, kTimelineAlign, QString());
    Arrange();
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("4"));
}

TEST_F(Arranging, ASurfaceCarriesTheArrangementOfItsTemplateNodeElseTheMiddle) {
    CarryArrangement(flow);
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("4"));
    EXPECT_EQ(flow.Nodes().Count(), 0);
    Set(kTimelineAlign, QString());
    document::SetTag(Template(0, 0), kTimelineAlign, QStringLiteral("1"));
    CarryArrangement(flow);
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("1"));
    Set(kTimelineAlign, QStringLiteral("0"));
    CarryArrangement(flow);
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("0")) << "what is stored stays";
}

TEST_F(Arranging, EachArrangementPutsMonthsEdgeToEdgeOnItsSide) {
    Template(3100, 500);
    Dated({"10 April 2004", "05 March 2004"});
    const struct {
        int arrangement;
        float marchLeft, marchTop, aprilLeft, aprilTop;
    } rows[] = {
        {0, 0, 0, 0, 500},        {1, 8900, 0, 8900, 500},  {2, 0, 0, 3100, 0},
        {3, 0, 8200, 3100, 8200}, {4, 0, 4250, 3100, 4250},
    };
    for (const auto &row : rows) {
        Arrange(row.arrangement);
        EXPECT_EQ(At("March 2004").Left(), row.marchLeft) << row.arrangement;
        EXPECT_EQ(At("March 2004").Top(), row.marchTop) << row.arrangement;
        EXPECT_EQ(At("April 2004").Left(), row.aprilLeft) << row.arrangement;
        EXPECT_EQ(At("April 2004").Top(), row.aprilTop) << row.arrangement;
    }
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Arranging, DaysStandOneSlotBehindTheirMonthsBeginning) {
    Template(3100, 500);
    Dated({"31 March 2004", "01 March 2004", "15 February 2004"});
    Arrange(4);
    const diagram::Node &march = At("March 2004");
    EXPECT_EQ(march.Left(), 3100);
    EXPECT_EQ(At("31 March 2004").Width(), 100);
    EXPECT_EQ(At("31 March 2004").Left(), march.Left() + 3100);
    EXPECT_EQ(At("01 March 2004").Left(), march.Left() + 100);
    EXPECT_EQ(At("01 March 2004").Top(), march.Top());
    EXPECT_EQ(At("01 March 2004").Height(), 500);
    EXPECT_EQ(At("15 February 2004").Width(), 3100 / 29);
    Arrange(0);
    EXPECT_EQ(At("31 March 2004").Height(), 500 / 31);
    EXPECT_EQ(At("31 March 2004").Top(), 500 + 31 * (500 / 31));
    EXPECT_EQ(At("31 March 2004").Width(), 3100);
}

TEST_F(Arranging, OffsetsAreRoundedHalvesToTheEvenNumber) {
    Template(100.5F, 500);
    Dated({"01 March 2004", "01 April 2004", "01 May 2004"});
    Arrange(2);
    EXPECT_EQ(At("April 2004").Left(), 100);
    EXPECT_EQ(At("May 2004").Left(), 200); // 200.5
}

TEST_F(Arranging, LinksEndInTheMiddleOfTheirDaysSlot) {
    Template(3100, 500);
    diagram::Node &user = UserNode();
    diagram::Node &day = *LocateTimelineNode(flow, QStringLiteral("10 March 2004"), true, &user);
    CopyTemplateLook(flow);
    Arrange(4);
    diagram::Link &link = user.Links().Item(1);
    const diagram::Point end = link.Points().Item(link.Points().Count() - 1);
    EXPECT_EQ(end.x, day.Left() + day.Width() / 2);
    EXPECT_EQ(end.y, day.Top());
}

TEST_F(Arranging, MissingMonthsAreAddedAndSortedByDate) {
    Template(1000, 500);
    Set(kMissing, QStringLiteral("True"));
    Dated({"10 April 2004", "05 January 2004"});
    Arrange(2);
    EXPECT_EQ(Strip(), QStringList({QStringLiteral("January 2004"), QStringLiteral("February 2004"),
                                    QStringLiteral("March 2004"), QStringLiteral("April 2004")}));
    EXPECT_EQ(At("February 2004").Left(), 1000);
    EXPECT_TRUE(window.statuses.contains(QStringLiteral("Searching / Creating Date February 2004")));
    EXPECT_TRUE(window.statuses.contains(QStringLiteral("Creating for February 2004")));
    EXPECT_TRUE(window.statuses.contains(QStringLiteral("Updating nodes...")));
}

TEST_F(Arranging, OneMonthAloneHasNothingMissing) {
    Template(1000, 500);
    Set(kMissing, QStringLiteral("True"));
    Dated({"10 April 2004"});
    Arrange();
    EXPECT_EQ(Strip(), QStringList(QStringLiteral("April 2004")));
}

TEST_F(Arranging, ARunAddsFortyEightMonthsAtMostAndTheNextGoesOn) {
    Template(1000, 500);
    Set(kMissing, QStringLiteral("True"));
    Dated({"10 January 2000", "05 January 2005"}); // 59 between them
    Arrange(2);
    EXPECT_EQ(Strip().size(), 50);
    EXPECT_EQ(Strip().at(48), QStringLiteral("January 2004"));
    Arrange(2);
    EXPECT_EQ(Strip().size(), 61);
}

TEST_F(Arranging, MonthsWithoutDatedNodesGoAndTheOthersCloseUp) {
    Template(1000, 500);
    Set(kMissing, QStringLiteral("False"));
    Month(QStringLiteral("February 2004"));
    Dated({"10 January 2004", "05 March 2004"});
    Arrange(2);
    EXPECT_EQ(Strip(), QStringList({QStringLiteral("January 2004"), QStringLiteral("March 2004")}));
    EXPECT_EQ(At("March 2004").Left(), 1000);
}

TEST_F(Arranging, AHiddenMonthTakesNoRoomAndItsDaysStandAtItsBeginning) {
    Template(1000, 500);
    Dated({"10 January 2004", "05 February 2004", "05 March 2004"});
    At("February 2004").SetHidden(true);
    Arrange(4);
    EXPECT_EQ(At("February 2004").Width(), 0);
    EXPECT_EQ(At("February 2004").Left(), 1000);
    EXPECT_EQ(At("March 2004").Left(), 1000);
    EXPECT_EQ(At("05 February 2004").Left(), 1000);
    EXPECT_EQ(At("05 February 2004").Width(), 0);
}

TEST_F(Arranging, MonthsShowTheirDatesInTheTemplatesPattern) {
    document::SetTag(Template(1000, 500), kDateFormat, QStringLiteral("MMM-YY"));
    Dated({"10 January 2004"});
    Arrange();
    EXPECT_EQ(At("January 2004").Text(), QStringLiteral("Jan-04"));
    EXPECT_EQ(document::GetTag(At("January 2004"), kTheDate), QStringLiteral("January 2004"));
}

TEST_F(Arranging, AnUnknownArrangementMovesNothingAndMarksTheMap) {
    Template(1000, 500);
    Dated({"10 January 2004", "05 March 2004"});
    Arrange(2);
    window.clsSettings().Dirty = false;
    Set(kTimelineAlign, QStringLiteral("7"));
    document::SetTag(*LocateTimeLineTemplateNode(flow, true), kDateFormat, QStringLiteral("MM YY"));
    Arrange();
    EXPECT_EQ(At("March 2004").Left(), 1000);
    EXPECT_EQ(At("March 2004").Text(), QStringLiteral("03 04"));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Arranging, ASurfaceWithoutSizeAndATallMonthGiveNegativePlaces) {
    flow.Screen().SetSize(0, 0);
    Template(1000, 500);
    Dated({"10 January 2004"});
    Arrange(3);
    EXPECT_EQ(At("January 2004").Top(), -800);
    Arrange(4);
    EXPECT_EQ(At("January 2004").Top(), -250);
    Arrange(1);
    EXPECT_EQ(At("January 2004").Left(), -1000);
}

TEST_F(Arranging, AMonthWhoseTextIsNoDateEndsTheRun) {
    Template(1000, 500);
    Dated({"10 January 2004"});
    Month(QStringLiteral("no date"));
    EXPECT_EQ(ErrorOfArranging(), support::kErrSubscriptOutOfRange);
}

TEST_F(Arranging, TwoNodesOfOneMonthEndTheRunWhileMonthsAreAdded) {
    Template(1000, 500);
    Dated({"10 January 2004", "10 February 2004"});
    diagram::Node &twin = Month(QStringLiteral("March 2004"));
    twin.SetText(QStringLiteral("January 2004"));
    document::SetTag(twin, kTheDate, QStringLiteral("January 2004"));
    Set(kMissing, QStringLiteral("True"));
    EXPECT_EQ(ErrorOfArranging(), support::kErrSubscriptOutOfRange);
}

TEST_F(Arranging, AllIsUndoneAsOneStepWithinAGroup) {
    Template(1000, 500);
    Set(kMissing, QStringLiteral("True"));
    Dated({"10 January 2004", "05 March 2004"});
    flow.BeginAction(1001);
    Arrange(2);
    flow.EndAction();
    EXPECT_EQ(Strip().size(), 3);
    flow.Undo();
    EXPECT_EQ(Strip().size(), 2);
    EXPECT_EQ(At("March 2004").Left(), 0);
    flow.Redo();
    EXPECT_EQ(Strip().size(), 3);
    EXPECT_EQ(At("March 2004").Left(), 2000);
}

TEST_F(Arranging, AHundredYearsOfMonthsStandInOrderEdgeToEdge) {
    constexpr int kHundredYears = 1200;
    Template(1000, 500);
    std::vector<NodeDate> dates;
    for (int month = kHundredYears - 1; month >= 0; --month)
        dates.push_back({&UserNode(), FormatDate(QDate(1950, 1, 15).addMonths(month), kDayPattern)});
    AddTimelineLinks(window, flow, dates);
    Arrange(2);
    ASSERT_EQ(LocateTimelineNodes(flow).size(), std::size_t(kHundredYears));
    EXPECT_EQ(At("January 1950").Left(), 0);
    EXPECT_EQ(At("December 2049").Left(), 1000.0F * (kHundredYears - 1));
}

TEST(Sort2DArray, SortsByDateLeavesRowsWithoutAKeyOutAndTheTailAsItWas) {
    AxisTable table{{QStringLiteral("a"), QStringLiteral("March 2004")},
                    {QString(), QStringLiteral("January 2001")},
                    {QStringLiteral("b"), QStringLiteral("December 2003")}};
    Sort2DArray(table, 1);
    EXPECT_EQ(table[0][0] + table[1][0], QStringLiteral("ba"));
    EXPECT_EQ(table[2][0], QStringLiteral("b"));
    Sort2DArray(table, 1);
    EXPECT_EQ(table.size(), 3u);
}

TEST(FillMissingDates, FillsFreeRowsOnlyAndAddsRowsForAll) {
    support::testing::ScriptedDesktop desktop;
    document::MemoryWindow window(desktop.Get(), document::EmptyPools{});
    AxisTable table{{QStringLiteral("a"), QStringLiteral("January 2004")},
                    {QStringLiteral("b"), QStringLiteral("April 2004")}};
    FillMissingDates(table, QStringLiteral("January 2004"), QStringLiteral("April 2004"), window);
    ASSERT_EQ(table.size(), 4u);
    EXPECT_EQ(table[2], (AxisRow{QString(), QStringLiteral("February 2004")}));
    EXPECT_EQ(table[3], (AxisRow{QString(), QStringLiteral("March 2004")}));
    EXPECT_TRUE(DateExists(table, QStringLiteral("March 2004")));
    EXPECT_FALSE(DateExists(table, QStringLiteral("march 2004")));
    FillMissingDates(table, QStringLiteral("May 2004"), QStringLiteral("May 2004"), window);
    EXPECT_EQ(table.size(), 4u);
}

} // namespace timeline::testing
