#include "timeline/DaySlots.h"

#include <gtest/gtest.h>

namespace timeline {

TEST(SlotOf, IsTheRoundedMonthDividedByItsDaysWithoutRest) {
    EXPECT_EQ(SlotOf(3100, 31), 100);
    EXPECT_EQ(SlotOf(3100, 29), 106);
    EXPECT_EQ(SlotOf(30.6F, 31), 1) << "31, rounded";
    EXPECT_EQ(SlotOf(30.5F, 31), 0) << "halves go to the even number";
    EXPECT_EQ(SlotOf(0, 31), 0);
}

TEST(DaySlots, TheFirstDayStandsOneSlotBehindTheMonthsBeginning) {
    const DaySlots<double> march = SlotsIn(1000.25, 3100.0, 31);
    EXPECT_EQ(march.start, 1000.25);
    EXPECT_EQ(march.slot, 100);
    EXPECT_EQ(march.Begin(1), 1100.25);
    EXPECT_EQ(march.Centre(1), 1150.25);
    EXPECT_EQ(march.End(1), 1200.25);
    EXPECT_EQ(march.Begin(31), 4100.25) << "where the next month begins";
    EXPECT_EQ(march.End(31), 4200.25);
}

TEST(DaySlots, TheRestOfAMonthBelongsToNoDay) {
    const DaySlots<double> february = SlotsIn(0.0, 3100.0, 29);
    EXPECT_EQ(february.Begin(29), 3074);
    EXPECT_EQ(february.End(28), february.Begin(29));
}

TEST(DaySlots, APlaceIsInTheSlotThatBeginsThere) {
    const DaySlots<double> march = SlotsIn(1000.0, 3100.0, 31);
    EXPECT_EQ(march.DayAt(1000), 0);
    EXPECT_EQ(march.DayAt(1099.9), 0);
    EXPECT_EQ(march.DayAt(1100), 1);
    EXPECT_EQ(march.DayAt(2499.9), 14);
    EXPECT_EQ(march.DayAt(4150), 31);
    for (int day = 1; day <= 31; ++day) EXPECT_EQ(march.DayAt(march.Centre(day)), day);
}

TEST(DaySlots, PlacesAreTheNumbersInWhichTheCallerReckons) {
    constexpr double kThird = 1.0 / 3;
    EXPECT_EQ(SlotsIn(kThird, 3100.0, 31).Begin(3), kThird + 300);
    EXPECT_EQ(SlotsIn(float(kThird), 3100.0F, 31).Begin(3), float(kThird) + 300.0F);
    EXPECT_NE(double(SlotsIn(float(kThird), 3100.0F, 31).Begin(3)), float(kThird) + 300.0);
}

TEST(DaySlots, WithoutLengthAllLieAtTheStart) {
    const DaySlots<double> none{500, 0};
    EXPECT_EQ(none.Begin(1), 500);
    EXPECT_EQ(none.Centre(17), 500);
    EXPECT_EQ(none.End(31), 500);
}

} // namespace timeline
