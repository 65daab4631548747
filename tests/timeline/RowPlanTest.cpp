#include "timeline/Crossings.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>

namespace timeline {

namespace {

constexpr StripEdges kStrip{0, 600};
constexpr RowGaps kGaps{150, 300, 600};

PlannedBar Bar(double begin, double end, double middle) {
    return {.begin = begin, .end = end, .breadth = 600, .middle = middle};
}

double Number(std::mt19937 &random, int below) { return double(random() % unsigned(below)); }

struct Plan {
    std::vector<PlannedBar> bars;
    std::vector<BarLink> links;
};

Plan RandomPlan(unsigned seed, int count) {
    std::mt19937 random(seed);
    Plan plan;
    for (int i = 0; i < count; ++i) {
        const double begin = Number(random, 300 * count);
        PlannedBar bar = Bar(begin, begin + 300 + Number(random, 2400), 1000 + Number(random, 9000));
        bar.lane = int(Number(random, 3));
        if (i % 5 == 0) bar.beside = 200 + Number(random, 900);
        plan.bars.push_back(bar);
    }
    for (int i = 1; i < count; ++i) plan.links.push_back({int(Number(random, i)), i});
    return plan;
}

std::vector<double> Place(const Plan &plan, RowOrder order) {
    return PlanRows(plan.bars, plan.links, kStrip, kGaps, order);
}

void Move(Plan &plan, const std::vector<double> &middles) {
    for (size_t i = 0; i < middles.size(); ++i) plan.bars[i].middle = double(float(middles[i]));
}

bool Touch(const PlannedBar &a, double middleA, const PlannedBar &b, double middleB) {
    return a.begin < b.EndOfRoom() && b.begin < a.EndOfRoom() &&
           std::abs(middleA - middleB) < (a.breadth + b.breadth) / 2 + kGaps.across - 2;
}

void ExpectRoom(const Plan &plan, const std::vector<double> &middles) {
    for (size_t i = 0; i < middles.size(); ++i)
        for (size_t j = i + 1; j < middles.size(); ++j)
            EXPECT_FALSE(Touch(plan.bars[i], middles[i], plan.bars[j], middles[j])) << i << " and " << j;
}

// The lowest and the highest middle of a lane's bars.
std::pair<double, double> Reach(const Plan &plan, const std::vector<double> &middles, int lane) {
    std::pair<double, double> reach{1e9, -1e9};
    for (size_t i = 0; i < middles.size(); ++i)
        if (plan.bars[i].lane == lane)
            reach = {std::min(reach.first, middles[i]), std::max(reach.second, middles[i])};
    return reach;
}

// Rows stacked in a random order within their lanes, as the plan groups them.
std::vector<double> StackedAtRandom(const Plan &plan, const std::vector<double> &middles,
                                    std::mt19937 &random) {
    std::vector<std::pair<int, double>> rows;
    for (size_t i = 0; i < middles.size(); ++i) rows.emplace_back(plan.bars[i].lane, middles[i]);
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::vector<double> places;
    for (const auto &row : rows) places.push_back(row.second);
    for (size_t first = 0, end = 0; first < rows.size(); first = end) {
        while (end < rows.size() && rows[end].first == rows[first].first) ++end;
        for (size_t left = end - first; left > 1; --left)
            std::swap(places[first + left - 1], places[first + random() % left]);
    }
    std::vector<double> shuffled;
    for (size_t i = 0; i < middles.size(); ++i) {
        const auto row = std::ranges::lower_bound(rows, std::pair(plan.bars[i].lane, middles[i]));
        shuffled.push_back(places[size_t(row - rows.begin())]);
    }
    return shuffled;
}

} // namespace

TEST(RowPlan, BetweenTwoThatAreLinkedIsRoomForTheLink) {
    constexpr RowGaps gaps{.along = 150, .across = 300, .lanes = 600, .linked = 400};
    const std::vector<PlannedBar> near{Bar(0, 500, 1200), Bar(700, 1200, 5000)};
    const std::vector<PlannedBar> far{Bar(0, 500, 1200), Bar(900, 1400, 5000)};
    const auto areOneRow = [&](const std::vector<PlannedBar> &bars, const std::vector<BarLink> &links) {
        const std::vector<double> middles = PlanRows(bars, links, kStrip, gaps, RowOrder::Choose);
        return middles[0] == middles[1];
    };
    EXPECT_FALSE(areOneRow(near, {{0, 1}}));
    EXPECT_FALSE(areOneRow(near, {{1, 0}}));
    EXPECT_TRUE(areOneRow(near, {}));
    EXPECT_TRUE(areOneRow(far, {{0, 1}}));
    const std::vector<PlannedBar> byHand{Bar(0, 500, 1200), Bar(700, 1200, 1200)};
    EXPECT_EQ(PlanRows(byHand, {{0, 1}}, kStrip, gaps, RowOrder::Keep), (std::vector{1200.0, 1200.0}))
        << "what stands needn't move";
    EXPECT_FALSE(areOneRow(byHand, {{0, 1}}));
}

TEST(RowPlan, WhatIsLinkedDoesNotStandBehindTheTextBesideABar) {
    for (const double beside : {0.0, 600.0}) {
        Plan plan{{Bar(0, 1000, 1200), Bar(4000, 5000, 1200)}, {{0, 1}}};
        plan.bars[0].beside = beside;
        const std::vector<double> middles = Place(plan, RowOrder::Choose);
        EXPECT_EQ(middles[0] == middles[1], beside == 0) << beside;
    }
}

TEST(RowPlan, BarsOfAStaircaseGatherAtTheStripAndRowsThatStoodThereKeepTheirPlace) {
    Plan stairs;
    for (int i = 0; i < 8; ++i) stairs.bars.push_back(Bar(400 * i, 400 * i + 1200, 2000 + 1100 * i));
    const std::vector<double> gathered = Place(stairs, RowOrder::Choose);
    ExpectRoom(stairs, gathered);
    EXPECT_EQ(*std::ranges::min_element(gathered), 600 + 300 + 300);
    EXPECT_LE(*std::ranges::max_element(gathered), 600 + 4 * 900) << "four rows, one below the other";
    Move(stairs, gathered);
    EXPECT_EQ(Place(stairs, RowOrder::Choose), gathered);
    for (PlannedBar &bar : stairs.bars) bar.middle += 5000;
    EXPECT_EQ(Place(stairs, RowOrder::Choose).front(), gathered.front() + 5000) << "made by hand now";
}

TEST(RowPlan, NothingAndOneBarAreNoTrouble) {
    EXPECT_TRUE(PlanRows({}, {}, kStrip, kGaps, RowOrder::Choose).empty());
    EXPECT_EQ(PlanRows({Bar(0, 500, 3000)}, {}, kStrip, kGaps, RowOrder::Keep), std::vector{3000.0});
}

TEST(RowPlan, WhatLiesOnTheStripMovesBesideIt) {
    EXPECT_EQ(PlanRows({Bar(0, 500, 300)}, {}, kStrip, kGaps, RowOrder::Keep), std::vector{1200.0});
    PlannedBar above = Bar(0, 500, 300);
    above.before = true;
    EXPECT_EQ(PlanRows({above}, {}, kStrip, kGaps, RowOrder::Keep), std::vector{-600.0});
}

TEST(RowPlan, TheBarThatCameLastGivesWay) {
    std::vector<PlannedBar> bars{Bar(0, 1000, 1200), Bar(500, 1500, 1200)};
    bars[0].gives = true;
    EXPECT_EQ(PlanRows(bars, {}, kStrip, kGaps, RowOrder::Keep), (std::vector{2100.0, 1200.0}));
}

TEST(RowPlan, ABarThatGivesWayTakesTheNearestRowWithRoom) {
    std::vector<PlannedBar> bars{Bar(0, 1000, 1200), Bar(0, 1000, 2100), Bar(5000, 6000, 3000),
                                 Bar(200, 900, 1200)};
    bars[3].gives = true;
    EXPECT_EQ(PlanRows(bars, {}, kStrip, kGaps, RowOrder::Keep)[3], 3000);
}

TEST(RowPlan, RowsThatAHandChoseStay) {
    const std::vector<PlannedBar> bars{Bar(0, 1000, 1200), Bar(3000, 4000, 1200), Bar(500, 2000, 5000)};
    EXPECT_EQ(PlanRows(bars, {{0, 2}}, kStrip, kGaps, RowOrder::Keep), (std::vector{1200.0, 1200.0, 5000.0}));
    EXPECT_EQ(PlanRows(bars, {{0, 2}}, kStrip, kGaps, RowOrder::Choose)[1],
              PlanRows(bars, {{0, 2}}, kStrip, kGaps, RowOrder::Choose)[0]);
}

TEST(RowPlan, AChainStandsInOneRow) {
    const std::vector<PlannedBar> bars{Bar(0, 500, 1300), Bar(100, 700, 2300), Bar(1000, 1500, 3300),
                                       Bar(2000, 2500, 4300)};
    const std::vector<double> middles = PlanRows(bars, {{1, 2}, {2, 3}}, kStrip, kGaps, RowOrder::Choose);
    EXPECT_EQ(middles[1], middles[2]);
    EXPECT_EQ(middles[2], middles[3]);
}

TEST(RowPlan, CrossingsAreCountedWithoutThoseThatMeetAtAnEnd) {
    const std::vector<PlannedBar> bars{Bar(0, 0, 0), Bar(0, 0, 0), Bar(100, 100, 0), Bar(100, 100, 0)};
    const std::vector<double> middles{0, 100, 0, 100};
    EXPECT_EQ(CountCrossings(bars, {{0, 3}, {1, 2}}, middles), 1);
    EXPECT_EQ(CountCrossings(bars, {{0, 2}, {1, 3}}, middles), 0);
    EXPECT_EQ(CountCrossings(bars, {{0, 3}, {0, 2}}, middles), 0);
}

class RandomPlans : public testing::TestWithParam<unsigned> {};

TEST_P(RandomPlans, NothingTouches) {
    const Plan plan = RandomPlan(GetParam(), 40);
    ExpectRoom(plan, Place(plan, RowOrder::Keep));
    ExpectRoom(plan, Place(plan, RowOrder::Choose));
}

TEST_P(RandomPlans, LanesStayTogether) {
    const Plan plan = RandomPlan(GetParam(), 40);
    for (RowOrder order : {RowOrder::Keep, RowOrder::Choose}) {
        const std::vector<double> middles = Place(plan, order);
        for (int lane = 1; lane < 3; ++lane)
            EXPECT_LT(Reach(plan, middles, lane - 1).second, Reach(plan, middles, lane).first);
    }
}

TEST_P(RandomPlans, ASecondRunChangesNothing) {
    for (RowOrder order : {RowOrder::Keep, RowOrder::Choose}) {
        Plan plan = RandomPlan(GetParam(), 30);
        Move(plan, Place(plan, order));
        const std::vector<double> again = Place(plan, order);
        for (size_t i = 0; i < again.size(); ++i) EXPECT_EQ(again[i], plan.bars[i].middle) << i;
    }
}

TEST_P(RandomPlans, LinksCrossHardlyMoreOftenThanInTheBestOfFiftyRandomOrders) {
    const Plan plan = RandomPlan(GetParam(), 25);
    const std::vector<double> middles = Place(plan, RowOrder::Choose);
    std::mt19937 random(GetParam() + 1000);
    int fewest = 1 << 30;
    for (int i = 0; i < 50; ++i)
        fewest =
            std::min(fewest, CountCrossings(plan.bars, plan.links, StackedAtRandom(plan, middles, random)));
    EXPECT_LE(CountCrossings(plan.bars, plan.links, middles), 1.1 * fewest);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomPlans, testing::Range(1U, 31U));

} // namespace timeline
