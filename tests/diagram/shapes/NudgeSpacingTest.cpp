#include "diagram/shapes/NudgeSpacing.h"

#include <gtest/gtest.h>
#include <random>

using namespace diagram;

namespace {

using Values = std::vector<double>;

Values Space(std::vector<WishedPlace> places, std::vector<PlaceDistance> distances) {
    return SpaceOut(places, std::move(distances));
}

void ExpectNear(const Values &values, const Values &expected) {
    ASSERT_EQ(values.size(), expected.size());
    for (std::size_t i = 0; i < values.size(); ++i) EXPECT_NEAR(values[i], expected[i], 1e-6) << i;
}

} // namespace

TEST(NudgeSpacing, NoneAndOneStayWhereTheyWish) {
    EXPECT_TRUE(Space({}, {}).empty());
    ExpectNear(Space({{70, 0, 100}}, {}), {70});
    ExpectNear(Space({{170, 0, 100}}, {}), {100});
}

TEST(NudgeSpacing, WhatWishesForOnePlaceSpreadsAroundIt) {
    ExpectNear(Space({{0, -900, 900}, {0, -900, 900}}, {{0, 1, 150}}), {-75, 75});
    ExpectNear(
        Space({{0, -900, 900}, {0, -900, 900}, {0, -900, 900}}, {{0, 1, 150}, {1, 2, 150}, {0, 2, 150}}),
        {-150, 0, 150});
}

TEST(NudgeSpacing, WhatIsFarEnoughApartStays) {
    ExpectNear(Space({{0, -900, 900}, {150, -900, 900}, {400, 0, 900}}, {{0, 1, 150}, {1, 2, 150}}),
               {0, 150, 400});
}

TEST(NudgeSpacing, OthersGiveWayToWhatIsFixed) {
    ExpectNear(Space({{0, -900, 900}, {50, 50, 50}, {60, -900, 900}}, {{0, 1, 150}, {1, 2, 150}}),
               {-100, 50, 200});
}

TEST(NudgeSpacing, WhereThereIsNoRoomDistancesShrinkEvenly) {
    ExpectNear(Space({{50, 0, 100}, {50, 0, 100}, {50, 0, 100}, {50, 0, 100}, {50, 0, 100}},
                     {{0, 1, 150}, {1, 2, 150}, {2, 3, 150}, {3, 4, 150}}),
               {0, 25, 50, 75, 100});
}

TEST(NudgeSpacing, AnOrderThatCantBeHadIsLetGo) {
    ExpectNear(Space({{500, 500, 600}, {50, 0, 100}}, {{0, 1, 150}}), {500, 50});
}

TEST(NudgeSpacing, AnyPlacesKeepTheirLimits_AndTheirDistancesWhereThereIsRoom) {
    std::mt19937 random(11);
    const auto real = [&random](double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(random);
    };
    for (int round = 0; round < 500; ++round) {
        const bool roomy = round % 2 == 0;
        std::vector<WishedPlace> places;
        for (int i = 0; i < 12; ++i) {
            const double low = roomy ? -5000 : real(-300, 300), high = roomy ? 5000 : low + real(0, 600);
            places.push_back({real(low, high), low, high});
        }
        std::vector<PlaceDistance> distances;
        for (std::size_t i = 0; i < places.size(); ++i)
            for (std::size_t j = i + 1; j < places.size(); ++j)
                if (random() % 3 == 0) distances.push_back({i, j, 150});
        const Values at = SpaceOut(places, distances);
        for (std::size_t i = 0; i < places.size(); ++i) {
            ASSERT_GE(at[i], places[i].low);
            ASSERT_LE(at[i], places[i].high);
        }
        if (!roomy) continue;
        for (const PlaceDistance &each : distances) ASSERT_GE(at[each.after] - at[each.before], 150 - 1e-6);
    }
}
