#include "diagram/view/ZoomSteps.h"

#include <gtest/gtest.h>
#include <vector>

namespace diagram::testing {

TEST(ZoomSteps, GoToTheNeighbouringStepAndStopAtTheEnds) {
    EXPECT_EQ(NextZoom(100), 110);
    EXPECT_EQ(PreviousZoom(100), 90);
    EXPECT_EQ(NextZoom(101), 110);
    EXPECT_EQ(PreviousZoom(101), 100);
    EXPECT_EQ(NextZoom(99.8), 110);
    EXPECT_EQ(NextZoom(800), 800);
    EXPECT_EQ(PreviousZoom(10), 10);
}

TEST(ZoomSteps, AreTheseUpAndDown) {
    const std::vector<double> steps{10,  25,  33,  50,  67,  75,  90,  100, 110,
                                    125, 150, 175, 200, 250, 300, 400, 500, 800};
    std::vector<double> up{10}, down{800};
    while (NextZoom(up.back()) != up.back()) up.push_back(NextZoom(up.back()));
    while (PreviousZoom(down.back()) != down.back()) down.push_back(PreviousZoom(down.back()));
    EXPECT_EQ(up, steps);
    EXPECT_EQ(std::vector<double>(down.rbegin(), down.rend()), steps);
}

} // namespace diagram::testing
