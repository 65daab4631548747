#include "diagram/model/Surface.h"

#include "diagram/model/Stacking.h"
#include "tests/diagram/model/RandomSurface.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

class Listener : public SurfaceObserver {
public:
    void SurfaceChanged(Change) override { ++surfaceChanges; }
    int surfaceChanges = 0;
};

} // namespace

TEST(Surface, ValuesAreCheckedAndTold) {
    Surface surface;
    Listener listener;
    surface.Observers().Add(listener);
    surface.SetxZoom(0);
    surface.SetyZoom(10000);
    EXPECT_EQ(tests::NumberOf([&] { surface.SetxZoom(-1); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { surface.SetyZoom(10001); }), 380);
    surface.SetTag(QStringLiteral("|A=b"));
    EXPECT_EQ(listener.surfaceChanges, 3);
    NodeLook defaults;
    defaults.shape = 20;
    EXPECT_EQ(tests::NumberOf([&] { surface.SetDefaults(defaults); }), 380);
    EXPECT_EQ(surface.Defaults().shape, 1);
}

TEST(Surface, ExtentLeavesHiddenItemsOut) {
    Surface surface;
    EXPECT_TRUE(surface.Extent().isEmpty());
    surface.Nodes().Add(100, 100, 50, 50);
    Node &far = surface.Nodes().Add(9000, 9000, 50, 50);
    EXPECT_EQ(surface.Extent(), QRectF(100, 100, 8950, 8950));
    far.SetHidden(true);
    EXPECT_EQ(surface.Extent(), QRectF(100, 100, 50, 50));
}

TEST(Surface, ResetEmptiesItAndKeepsItsValues) {
    Dice dice(4);
    Surface surface;
    Fill(surface, dice, 200);
    surface.SetTag(QStringLiteral("kept"));
    surface.Reset();
    EXPECT_EQ(surface.Nodes().Count(), 0);
    EXPECT_EQ(surface.Links().size(), 0U);
    EXPECT_TRUE(surface.SelectedNodes().empty());
    EXPECT_TRUE(surface.Stacking().Order().empty());
    EXPECT_EQ(surface.Tag(), QStringLiteral("kept"));
}
