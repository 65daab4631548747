// Months, quarters and years folded to slivers.
#include "timeline/Folding.h"

#include "diagram/edit/History.h"
#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/DaysOfStrip.h"
#include "timeline/LineUp.h"

namespace timeline::testing {

namespace {

using namespace document::tags;
using diagram::StripPiece;

// November 2004 to March 2005, 3100 by 500 each, at the top; one node in December, two in February.
class FoldingTest : public TimelineTest {
protected:
    FoldingTest() {
        Template(3100, 500);
        Set(kTimelineAlign, QStringLiteral("2"));
        Set(kMissing, QStringLiteral("True"));
        AddTimelineLinks(window, flow,
                         {{&UserNode(), QStringLiteral("14 November 2004")},
                          {&december, QStringLiteral("10 December 2004")},
                          {&february, QStringLiteral("02 February 2005")},
                          {&late, QStringLiteral("20 February 2005")},
                          {&UserNode(), QStringLiteral("15 March 2005")}});
    }
    static PieceOfStrip MonthOf(int year, int month) {
        return PieceAround(StripPiece::Month, QDate(year, month, 9));
    }
    static PieceOfStrip Year(int year) { return PieceAround(StripPiece::Year, QDate(year, 9, 9)); }
    bool Fold(const PieceOfStrip &piece) { return SetFolded(window, flow, piece, true); }
    bool Unfold(const PieceOfStrip &piece) { return SetFolded(window, flow, piece, false); }
    diagram::Node &At(const char *month) {
        return *LocateTimelineNode(flow, QString::fromLatin1(month), false);
    }
    QLineF PlaceOf(int year, int month, int day) {
        return DaysOfStrip(window).PlaceOf(flow, QDate(year, month, day)).value_or(QLineF());
    }
    std::optional<QDate> DayAt(double along) { return DaysOfStrip(window).DayAt(flow, QPointF(along, 0)); }

    diagram::Node &december = UserNode(), &february = UserNode(), &late = UserNode();
};

} // namespace

TEST_F(FoldingTest, AMonthBecomesASliverAndWhatFollowsClosesUp) {
    EXPECT_TRUE(Fold(MonthOf(2004, 12)));
    EXPECT_EQ(At("November 2004").Bounds(), QRectF(0, 0, 3100, 500));
    EXPECT_EQ(At("December 2004").Bounds(), QRectF(3100, 0, 450, 500));
    EXPECT_EQ(At("January 2005").Bounds(), QRectF(3550, 0, 3100, 500));
    EXPECT_FALSE(At("December 2004").Hidden());
    EXPECT_FALSE(Fold(MonthOf(2004, 12))) << "it is folded already";
    EXPECT_TRUE(Unfold(MonthOf(2004, 12)));
    EXPECT_EQ(At("December 2004").Bounds(), QRectF(3100, 0, 3100, 500));
    EXPECT_EQ(At("January 2005").Left(), 6200);
    EXPECT_FALSE(Unfold(MonthOf(2004, 12)));
    EXPECT_FALSE(Fold(MonthOf(2010, 1))) << "the strip doesn't reach it";
}

TEST_F(FoldingTest, InEachArrangementTheSliverIsAsLongAlongTheStripAndAsBroadAsTheOthers) {
    Fold(MonthOf(2004, 12));
    for (const char *arrangement : {"0", "1", "2", "3", "4", "0"}) {
        Set(kTimelineAlign, QLatin1String(arrangement));
        Arrange();
        const diagram::Node &month = At("December 2004"), &next = At("January 2005");
        const bool downwards = *arrangement < '2';
        EXPECT_EQ(downwards ? month.Height() : month.Width(), kSliver) << arrangement;
        EXPECT_EQ(downwards ? month.Width() : month.Height(), downwards ? 3100 : 500) << arrangement;
        EXPECT_EQ(downwards ? next.Top() : next.Left(), (downwards ? 500 : 3100) + kSliver) << arrangement;
    }
}

TEST_F(FoldingTest, ASliverIsNoLongerThanItsMonths) {
    Template(200, 500);
    Fold(MonthOf(2004, 12));
    EXPECT_EQ(At("December 2004").Width(), 200);
    Fold(Year(2005));
    EXPECT_EQ(At("January 2005").Width(), 450) << "three months of 200";
}

TEST_F(FoldingTest, AYearIsOneSliver) {
    EXPECT_TRUE(Fold(MonthOf(2005, 2)));
    EXPECT_TRUE(Fold(Year(2005)));
    for (const char *month : {"January 2005", "February 2005", "March 2005"})
        EXPECT_EQ(At(month).Bounds(), QRectF(6200, 0, 450, 500)) << month;
    EXPECT_TRUE(IsFolded(flow, Year(2005)));
    EXPECT_FALSE(IsFolded(flow, Year(2004)));
    EXPECT_TRUE(Unfold(MonthOf(2005, 3))) << "a month of it takes all of it along";
    EXPECT_EQ(At("March 2005").Left(), 4 * 3100);
    EXPECT_FALSE(IsFolded(flow, MonthOf(2005, 1)));
}

TEST_F(FoldingTest, QuartersEndWithTheYear) {
    Fold(PieceAround(StripPiece::Quarter, QDate(2004, 11, 1)));
    EXPECT_EQ(At("December 2004").Bounds(), QRectF(0, 0, 450, 500));
    EXPECT_EQ(At("January 2005").Left(), 450);
    EXPECT_TRUE(UnfoldAll(window, flow));
    EXPECT_EQ(At("January 2005").Left(), 6200);
    EXPECT_FALSE(UnfoldAll(window, flow));
}

TEST_F(FoldingTest, EveryDayOfAFoldHasItsMiddleForItsPlace) {
    Fold(Year(2005));
    EXPECT_EQ(PlaceOf(2005, 1, 1), QLineF(6425, 0, 6425, 500));
    EXPECT_EQ(PlaceOf(2005, 3, 31), QLineF(6425, 0, 6425, 500));
    const diagram::Node &day = *LocateTimelineNode(flow, QStringLiteral("20 February 2005"), false);
    EXPECT_EQ(day.Bounds(), At("February 2005").Bounds());
    EXPECT_EQ(late.Links().Item(1).Route().back().x, 6425);
}

TEST_F(FoldingTest, PlacesWithinAFoldStandForItsDaysAndThoseBeyondForMonthsOfFullLength) {
    Fold(Year(2005));
    EXPECT_EQ(DayAt(6200), QDate(2005, 1, 1));
    EXPECT_EQ(DayAt(6649), QDate(2005, 3, 31));
    EXPECT_EQ(DayAt(6649 + 1550), QDate(2005, 4, 15));
    Fold(Year(2004));
    EXPECT_EQ(DayAt(449), QDate(2004, 12, 31));
    EXPECT_EQ(DayAt(-900), QDate(2004, 10, 15)) << "none is unfolded";
}

TEST_F(FoldingTest, NodesStandAtTheSliversMiddleOneAboveTheOther) {
    SetKeepsNodesAtDates(flow, true);
    Fold(Year(2005));
    EXPECT_NEAR(february.Bounds().center().x(), 6425, 1);
    EXPECT_NEAR(late.Bounds().center().x(), 6425, 1);
    EXPECT_FALSE(february.Bounds().intersects(late.Bounds()));
    Unfold(Year(2005));
    EXPECT_GT(late.Left(), february.Left());
}

TEST_F(FoldingTest, HiddenMonthsStayHiddenAndComeBackFolded) {
    Fold(MonthOf(2004, 12));
    HideMonth(At("December 2004"));
    Arrange();
    EXPECT_EQ(At("January 2005").Left(), 3100);
    DoUnHideTimelineNodes(window, flow);
    EXPECT_EQ(At("December 2004").Width(), kSliver);
    HideMonth(At("January 2005"));
    Fold(Year(2005));
    EXPECT_EQ(At("January 2005").Width(), 0);
    EXPECT_EQ(At("February 2005").Bounds(), At("March 2005").Bounds());
    EXPECT_EQ(At("March 2005").Left(), 3550);
}

TEST_F(FoldingTest, AStripThatWasHiddenMeanwhileIsAsItWas) {
    Fold(Year(2005));
    Fold(MonthOf(2004, 12));
    ShowTimeline(window, flow, false);
    EXPECT_TRUE(Strip().isEmpty());
    ShowTimeline(window, flow, true);
    EXPECT_EQ(At("December 2004").Bounds(), QRectF(3100, 0, 450, 500));
    EXPECT_EQ(At("March 2005").Bounds(), QRectF(3550, 0, 450, 500));
    ShowTimeline(window, flow, false);
    AddTimelineLink(window, flow, UserNode(), QStringLiteral("03 April 2005"));
    ShowTimeline(window, flow, true);
    EXPECT_EQ(At("April 2005").Bounds(), QRectF(3550, 0, 450, 500)) << "it has come to a folded year";
}

TEST_F(FoldingTest, TheScaleAndTheLookOfTheOthersLeaveItASliver) {
    Fold(MonthOf(2004, 12));
    Template(6200, 700).SetAutoSize(3);
    UpdateTimeLineNodes(window, flow, true);
    EXPECT_EQ(At("December 2004").Bounds(), QRectF(At("December 2004").Left(), 0, 450, 700));
}

TEST_F(FoldingTest, WithoutASizeOfTheTemplateAMonthGetsThatOfItsNeighbours) {
    Fold(MonthOf(2004, 12));
    Template(0, 0);
    Unfold(MonthOf(2004, 12));
    EXPECT_EQ(At("December 2004").Bounds(), QRectF(3100, 0, 3100, 500));
}

TEST_F(FoldingTest, OneStepOfUndoTakesItBack) {
    diagram::AttachHistory(flow);
    document::BeginAction(flow);
    Fold(Year(2005));
    flow.EndAction();
    flow.Undo();
    EXPECT_EQ(At("March 2005").Bounds(), QRectF(12400, 0, 3100, 500));
    EXPECT_FALSE(IsFolded(flow, Year(2005)));
    flow.Redo();
    EXPECT_EQ(At("March 2005").Bounds(), QRectF(6200, 0, 450, 500));
    EXPECT_TRUE(IsFolded(flow, Year(2005)));
}

TEST_F(FoldingTest, CountsTheNodesInSight) {
    EXPECT_EQ(NodesIn(flow, Year(2005)).size(), 3u);
    EXPECT_EQ(FoldInWords(flow, MonthOf(2004, 12)), QStringLiteral("folded, one node"));
    EXPECT_EQ(FoldInWords(flow, MonthOf(2005, 2)), QStringLiteral("folded, 2 nodes"));
    EXPECT_EQ(FoldInWords(flow, MonthOf(2005, 1)), QStringLiteral("folded, 0 nodes"));
    late.SetHidden(true);
    EXPECT_EQ(NodesIn(flow, MonthOf(2005, 2)), std::vector<diagram::Node *>{&february});
}

TEST_F(FoldingTest, TheCalendarShowsFoldsByTheirCounts) {
    Fold(MonthOf(2004, 12));
    Fold(Year(2005));
    const diagram::Calendar calendar = CalendarOfStrip(flow);
    ASSERT_EQ(calendar.folds.size(), 2u);
    EXPECT_EQ(calendar.folds[0].name, QStringLiteral("December 2004"));
    EXPECT_EQ(calendar.folds[0].count, QStringLiteral("1"));
    EXPECT_EQ(calendar.folds[1].name, QStringLiteral("2005"));
    EXPECT_EQ(calendar.folds[1].count, QStringLiteral("3"));
    EXPECT_EQ(calendar.folds[1].months.size(), 3u);
    EXPECT_EQ(calendar.FoldWith(At("February 2005").Id()), &calendar.folds[1]);
    EXPECT_EQ(calendar.FoldWith(At("November 2004").Id()), nullptr);
    using Spans = std::vector<diagram::Calendar::Span>;
    EXPECT_EQ(calendar.years,
              (Spans{{0, 3550, QStringLiteral("2004")}, {3550, 4000, QStringLiteral("2005"), true}}));
    EXPECT_EQ(calendar.quarters, (Spans{{0, 3550, QStringLiteral("Q4")}, {3550, 4000, QString(), true}}));
    EXPECT_EQ(calendar.months.size(), 3u);
    EXPECT_EQ(calendar.weeks.size(), 5u) << "of November alone";
    EXPECT_EQ(calendar.strip, QRectF(0, 0, 4000, 500));
}

TEST_F(FoldingTest, WhatLiesAtAPlaceIsToldAndToggled) {
    DaysOfStrip days(window);
    const auto words = [&](StripPiece piece, double along) {
        return days.PieceInWords(flow, piece, QPointF(along, 0));
    };
    EXPECT_EQ(words(StripPiece::Month, 4000), QStringLiteral("December 2004\nA double click folds it."));
    EXPECT_EQ(words(StripPiece::Quarter, 7000), QStringLiteral("Q1 2005\nA double click folds it."));
    EXPECT_TRUE(words(StripPiece::Year, 99000).isEmpty());
    EXPECT_TRUE(days.ToggleFold(flow, StripPiece::Year, QPointF(7000, 0)));
    EXPECT_EQ(words(StripPiece::Month, 6300),
              QStringLiteral("2005, folded, 3 nodes\nA double click unfolds it."));
    EXPECT_TRUE(days.ToggleFold(flow, StripPiece::Month, QPointF(6300, 0)));
    EXPECT_FALSE(IsFolded(flow, MonthOf(2005, 1)));
    EXPECT_FALSE(days.ToggleFold(flow, StripPiece::Month, QPointF(-300, 0)));
}

TEST_F(FoldingTest, MonthsThatAreMissingWithinAFoldTearNothing) {
    Set(kMissing, QStringLiteral("False"));
    AddTimelineLink(window, flow, UserNode(), QStringLiteral("15 June 2005"));
    EXPECT_EQ(DaysOfStrip(window).Breaks(flow).size(), 2u);
    Fold(Year(2005));
    EXPECT_EQ(DaysOfStrip(window).Breaks(flow).size(), 1u);
}

TEST_F(FoldingTest, TodayInAFoldIsItsMiddle) {
    desktop.clock.now = QDateTime(QDate(2005, 2, 3), QTime(12, 0));
    Fold(Year(2005));
    support::SetDesktop(&desktop.Get());
    const std::optional<QLineF> today = CalendarOfStrip(flow).today;
    ASSERT_TRUE(today);
    EXPECT_EQ(today->x1(), 6425);
}

} // namespace timeline::testing
