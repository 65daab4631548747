#include "timeline/StripPlan.h"

#include "support/Error.h"

#include <gtest/gtest.h>

namespace timeline {

namespace {

AxisRow Row(const char *key, const char *month) {
    return {QString::fromLatin1(key), QString::fromLatin1(month)};
}

// From January 2004 on, 3100 long and 500 across on a surface of 12000 by 9000.
PlacesTask Months(int count, Arrangement arrangement = Arrangement::Top) {
    PlacesTask task{int(arrangement), 12000, 9000, {}, {}};
    const bool rightwards = RunsRightwards(int(arrangement));
    for (int i = 0; i < count; ++i)
        task.months.push_back(
            {QDate(2004, 1, 1).addMonths(i), rightwards ? 3100.0F : 500.0F, rightwards ? 500.0F : 3100.0F});
    return task;
}

std::vector<float> Lefts(const PlacesTask &task) {
    std::vector<float> lefts;
    for (const PlacedMonth &month : PlanPlaces(task)) lefts.push_back(month.box.left);
    return lefts;
}

PieceOfStrip QuarterOf(int month) { return PieceAround(diagram::StripPiece::Quarter, QDate(2004, month, 1)); }

// The months from January 2004 on, of which some are folded to their quarter.
std::vector<MonthToFold> FoldedQuarters(std::initializer_list<bool> folded) {
    std::vector<MonthToFold> months;
    for (const bool isFolded : folded) {
        const int month = int(months.size()) + 1;
        months.push_back({QDate(2004, month, 1), false, {}});
        if (isFolded) months.back().fold = QuarterOf(month);
    }
    return months;
}

} // namespace

TEST(PlanPlaces, NothingAndNoArrangementHaveNoPlaces) {
    EXPECT_TRUE(PlanPlaces(Months(0)).empty());
    PlacesTask task = Months(2);
    for (const int none : {-1, 5, 7}) {
        task.arrangement = none;
        EXPECT_TRUE(PlanPlaces(task).empty()) << none;
    }
}

TEST(PlanPlaces, EachArrangementHasItsSideAndRunsItsWay) {
    const std::pair<Arrangement, StripBox> second[] = {{Arrangement::Left, {0, 3100, 500, 3100}},
                                                       {Arrangement::Right, {11500, 3100, 500, 3100}},
                                                       {Arrangement::Top, {3100, 0, 3100, 500}},
                                                       {Arrangement::Bottom, {3100, 8200, 3100, 500}},
                                                       {Arrangement::Center, {3100, 4250, 3100, 500}}};
    for (const auto &[arrangement, box] : second)
        EXPECT_EQ(PlanPlaces(Months(2, arrangement))[1].box, box) << int(arrangement);
}

TEST(PlanPlaces, EndsOfMonthsAreRoundedHalvesToTheEvenNumber) {
    PlacesTask task = Months(3);
    for (MonthToPlace &month : task.months) month.width = 100.5F;
    EXPECT_EQ(Lefts(task), (std::vector<float>{0, 100, 200}));
}

TEST(PlanPlaces, AHiddenMonthKeepsItsPlaceAndTakesNoRoom) {
    PlacesTask task = Months(3);
    task.months[1].hidden = true;
    task.months[1].width = 0;
    task.days = {QDate(2004, 2, 14)};
    EXPECT_EQ(Lefts(task), (std::vector<float>{0, 3100, 3100}));
    EXPECT_EQ(PlanPlaces(task)[1].days[0].box, (StripBox{3100, 0, 0, 500}));
}

TEST(PlanPlaces, MonthsOfOneFoldLieOnTopOfEachOtherWithAllTheirDays) {
    PlacesTask task = Months(5);
    for (int i = 1; i < 4; ++i) {
        task.months[std::size_t(i)].fold = QuarterOf(1);
        task.months[std::size_t(i)].width = 450;
    }
    task.months[2].hidden = true;
    task.months[2].width = 0;
    task.days = {QDate(2004, 2, 14), QDate(2004, 4, 30)};
    EXPECT_EQ(Lefts(task), (std::vector<float>{0, 3100, 3550, 3100, 3550}));
    const StripBox sliver{3100, 0, 450, 500};
    EXPECT_EQ(PlanPlaces(task)[1].days, (std::vector<PlacedDay>{{0, sliver}}));
    EXPECT_EQ(PlanPlaces(task)[3].days, (std::vector<PlacedDay>{{1, sliver}}));
    task.months[3].fold = QuarterOf(4);
    EXPECT_EQ(Lefts(task)[3], 3550) << "another fold has its own sliver";
}

TEST(PlanFolds, NothingIsPlannedForMonthsWithoutAFold) {
    EXPECT_TRUE(PlanFolds({}, 3100).empty());
    EXPECT_EQ(PlanFolds(FoldedQuarters({false, false}), 3100), (std::vector<std::optional<FoldedMonth>>(2)));
}

TEST(PlanFolds, AMonthThatCameToAFoldedQuarterBelongsToIt) {
    std::vector<MonthToFold> months = FoldedQuarters({true, false, false, false});
    months[1].fold = PieceAround(diagram::StripPiece::Month, QDate(2004, 2, 1));
    const FoldedMonth sliver{QuarterOf(1), kSliver};
    EXPECT_EQ(PlanFolds(months, 3100),
              (std::vector<std::optional<FoldedMonth>>{sliver, sliver, sliver, std::nullopt}));
}

TEST(PlanFolds, ASliverIsNoLongerThanItsMonthsInSight) {
    std::vector<MonthToFold> months = FoldedQuarters({true, true, true});
    EXPECT_EQ(PlanFolds(months, 200)[0]->length, kSliver);
    EXPECT_EQ(PlanFolds(months, 100)[0]->length, 300);
    months[1].hidden = true;
    const auto planned = PlanFolds(months, 100);
    EXPECT_EQ(planned[0]->length, 200);
    EXPECT_EQ(planned[1], (FoldedMonth{QuarterOf(1), std::nullopt})) << "a hidden one keeps its size";
}

TEST(PlanFolds, AMonthWithoutADateJoinsNoFold) {
    std::vector<MonthToFold> months = FoldedQuarters({true, false});
    months[1].first.reset();
    EXPECT_FALSE(PlanFolds(months, 3100)[1]);
}

TEST(PlanPlaces, DaysStandInTheirSlotsOneBehindTheBeginning) {
    PlacesTask task = Months(2);
    task.days = {QDate(2004, 1, 31), QDate(2004, 2, 1), QDate(2004, 1, 1), QDate(2004, 3, 1)};
    const std::vector<PlacedMonth> places = PlanPlaces(task);
    EXPECT_EQ(places[0].days, (std::vector<PlacedDay>{{0, {3100, 0, 100, 500}}, {2, {100, 0, 100, 500}}}))
        << "in their order";
    EXPECT_EQ(places[1].days, (std::vector<PlacedDay>{{1, {3100 + 106, 0, 106, 500}}}))
        << "a leap year's February, without rest; and there is no March";
    task = Months(1, Arrangement::Left);
    task.days = {QDate(2004, 1, 2)};
    EXPECT_EQ(PlanPlaces(task)[0].days[0].box, (StripBox{0, 200, 500, 100}));
}

TEST(PlanPlaces, OfTwoEqualMonthsTheFirstHasTheDays) {
    PlacesTask task = Months(1);
    task.months.push_back(task.months[0]);
    task.days = {QDate(2004, 1, 2)};
    EXPECT_EQ(PlanPlaces(task)[0].days.size(), 1u);
    EXPECT_TRUE(PlanPlaces(task)[1].days.empty());
}

TEST(EndOnDay, IsTheMiddleOfTheEdgeThatFacesTheLinksBeginning) {
    const StripBox day{1000, 2000, 200, 300}, above{0, 0, 10, 10}, level{5000, 2000, 10, 10};
    EXPECT_EQ(EndOnDay(day, above, {7, 7}, true), (diagram::Point{1100, 2000}));
    EXPECT_EQ(EndOnDay(day, level, {7, 7}, true), (diagram::Point{1100, 2300}));
    EXPECT_EQ(EndOnDay(day, above, {7, 7}, false), (diagram::Point{1000, 2150}));
    EXPECT_EQ(EndOnDay(day, level, {7, 7}, false), (diagram::Point{1200, 2150}));
}

TEST(UnusedMonths, AreThoseInWhichNoDayAndNoEndLies) {
    const AxisTable rows{Row("a", "January 2004"), Row("b", "February 2004"), Row("c", "no date"),
                         Row("d", "January 2005")};
    EXPECT_EQ(UnusedMonths(rows, {QDate(2004, 1, 1)}),
              QStringList({QStringLiteral("February 2004"), QStringLiteral("no date"),
                           QStringLiteral("January 2005")}));
    EXPECT_TRUE(UnusedMonths({}, {}).isEmpty());
}

TEST(FillAxis, LooksAtEachMonthBehindTheFirstAndAddsWhatIsMissing) {
    const AxisTable rows{Row("a", "January 2004"), Row("b", "March 2004")};
    const auto [first, last] = EndsOf({rows[1], rows[0]});
    EXPECT_EQ(first + last, QStringLiteral("January 2004March 2004"));
    const FilledAxis filled = FillAxis(rows, first, last);
    EXPECT_EQ(filled.rows, (AxisTable{rows[0], rows[1], Row("", "February 2004")}));
    EXPECT_EQ(filled.walked, QStringList({QStringLiteral("February 2004"), QStringLiteral("March 2004")}));
    EXPECT_EQ(FillAxis(rows, first, first).rows, rows);
}

TEST(FillAxis, StopsAtTheMostAndRefusesMoreRowsThanMonths) {
    AxisTable rows{Row("a", "January 2000"), Row("b", "January 2005")};
    EXPECT_EQ(FillAxis(rows, rows[0][1], rows[1][1]).walked.size(), kMostCreated);
    rows = {Row("a", "January 2004"), Row("b", "February 2004"), Row("c", "January 2004")};
    EXPECT_THROW(FillAxis(rows, rows[0][1], rows[1][1]), support::Error);
}

TEST(GapIn, IsTheFirstOneAmongRowsWithNodes) {
    AxisTable rows{Row("a", "January 2004"), Row("b", "February 2004"), Row("c", "May 2004"),
                   Row("d", "August 2004")};
    EXPECT_EQ(GapIn(rows), std::pair(QStringLiteral("February 2004"), QStringLiteral("May 2004")));
    rows[2][0].clear();
    EXPECT_EQ(GapIn(rows), std::nullopt);
    EXPECT_EQ(GapIn({}), std::nullopt);
}

} // namespace timeline
