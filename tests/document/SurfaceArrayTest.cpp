#include "document/SurfaceArray.h"

#include "support/Error.h"
#include "tests/document/MapTest.h"

using namespace document;
using document::testing::ErrorOf;

TEST(SurfaceArray, SlotZeroIsAlwaysThere) {
    SurfaceArray surfaces;
    EXPECT_EQ(surfaces.Count(), 1);
    EXPECT_EQ(surfaces[0].Index(), 0);
    EXPECT_EQ(ErrorOf([&] { surfaces.Unload(0); }).Number(), 362);
}

TEST(SurfaceArray, GapsStayAndMissingSlotsAreErrors) {
    SurfaceArray surfaces;
    EXPECT_EQ(surfaces.Load(5).Index(), 5);
    EXPECT_EQ(surfaces.Indices(), (std::vector<int>{0, 5}));
    EXPECT_EQ(surfaces.UBound(), 5);
    EXPECT_EQ(ErrorOf([&] { (void)surfaces[3]; }).Number(), 340);
    EXPECT_EQ(ErrorOf([&] { (void)surfaces[-1]; }).Number(), 340);
    EXPECT_EQ(ErrorOf([&] { surfaces.Load(5); }).Number(), 360);
    EXPECT_EQ(ErrorOf([&] { surfaces.Load(SurfaceArray::kLargestIndex + 1); }).Number(), 340);
    EXPECT_EQ(ErrorOf([&] { surfaces.Unload(4); }).Number(), 340);
    surfaces.Unload(5);
    EXPECT_EQ(surfaces.UBound(), 0);
}

TEST(SurfaceArray, EverySurfaceHasAHistoryOfItsOwn) {
    SurfaceArray surfaces;
    surfaces[0].BeginAction(1);
    surfaces[0].Nodes().Add(0, 0, 10, 10);
    surfaces[0].EndAction();
    EXPECT_TRUE(surfaces[0].CanUndo());
    EXPECT_FALSE(surfaces.Load(1).CanUndo());
}

TEST(SurfaceArray, WatchersHearOfSlotZeroAndOfAllThatComeAndGo) {
    SurfaceArray surfaces;
    std::vector<int> loaded, gone;
    surfaces.SetWatchers([&](diagram::Surface &surface) { loaded.push_back(surface.Index()); },
                         [&](diagram::Surface &surface) { gone.push_back(surface.Index()); });
    surfaces.Load(2);
    surfaces.Unload(2);
    EXPECT_EQ(loaded, (std::vector<int>{0, 2}));
    EXPECT_EQ(gone, (std::vector<int>{2}));
}
