#include "diagram/model/ScreenValues.h"

#include "tests/Errors.h"

#include <gtest/gtest.h>

using namespace diagram;

namespace {

class Listener : public SurfaceObserver {
public:
    void SurfaceChanged(Change what) override { told.push_back(what); }
    std::vector<Change> told;
};

struct ScreenValuesTest : ::testing::Test {
    Listener listener;
    ScreenValues screen{listener};
};

} // namespace

TEST_F(ScreenValuesTest, TheGridIsCheckedAndTold) {
    EXPECT_EQ(tests::NumberOf([&] { screen.SetGridSize(0); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { screen.SetGridSize(2e8F); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { screen.SetGridStyle(3); }), 380);
    EXPECT_TRUE(listener.told.empty());
    EXPECT_EQ(screen.GridSize(), 150);
    screen.SetGridSize(300), screen.SetGridStyle(1), screen.SetGridColor(7);
    EXPECT_EQ(screen.GridSize(), 300);
    EXPECT_EQ(screen.GridStyle(), 1);
    EXPECT_EQ(screen.GridColor(), 7U);
    EXPECT_EQ(listener.told, std::vector<Change>(3, Change::Look));
}

TEST_F(ScreenValuesTest, ShowingBothTextsIsToldWhenItChanges) {
    screen.SetShowsBothTexts(false);
    EXPECT_TRUE(listener.told.empty());
    screen.SetShowsBothTexts(true), screen.SetShowsBothTexts(true);
    EXPECT_EQ(listener.told, std::vector<Change>{Change::Text | Change::Look});
}

TEST_F(ScreenValuesTest, SizeScrollAndModesAreToldToNobody) {
    screen.SetSize(900, 600), screen.SetScroll(10, 20);
    screen.SetShiftMode(true), screen.SetSnapToGrid(true);
    EXPECT_EQ(screen.Width(), 900);
    EXPECT_EQ(screen.Height(), 600);
    EXPECT_EQ(screen.xScroll(), 10);
    EXPECT_EQ(screen.yScroll(), 20);
    EXPECT_TRUE(screen.ShiftMode() && screen.SnapToGrid());
    EXPECT_TRUE(listener.told.empty());
}
