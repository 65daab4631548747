#include "output/print/PrnFlow.h"

#include "diagram/model/Node.h"
#include "diagram/model/ScreenValues.h"
#include "output/print/ZoomToPages.h"
#include "tests/output/print/PrintTest.h"

namespace print::testing {

namespace {

class PrnFlowTest : public ::testing::Test {
protected:
    PrnFlowTest() {
        flow.FitToPage = false;
        flow.Preview = true;
        flow.OnShown([this] { ++runs; });
        surface.Screen().SetSize(12000, 9000);
    }
    // One box of so many millimetres.
    void Show(double width, double height) {
        AddBox(surface, 0, 0, width, height);
        Take();
    }
    void Take() {
        flow.SetSource([this](const PageSetup &) {
            PrintedMap map;
            if (!gone) map.slices.emplace_back(CopyOf(surface), QStringLiteral("Slice"));
            return map;
        });
        flow.Run();
        runs = 0;
    }
    diagram::Surface &AF() { return *flow.Surface(); }
    void Ask(PagesWanted wanted, int number) {
        AskForPages(flow, wanted, number, {255, 255}, [this] {
            ++clicks;
            flow.Run();
        });
    }

    support::testing::ScriptedDesktop desktop;
    diagram::Surface surface;
    PrnFlow flow;
    bool gone = false;
    int runs = 0, clicks = 0;
};

TEST_F(PrnFlowTest, TellsItsPages) {
    Show(500, 500);
    EXPECT_EQ(flow.HorizontalPages(), 3);
    EXPECT_EQ(flow.VerticalPages(), 2);
    EXPECT_EQ(flow.Pages(), 6);
    EXPECT_EQ(flow.Page(), 1);
    flow.Orientation = kLandscape;
    flow.Run();
    EXPECT_EQ(flow.HorizontalPages(), 2);
    EXPECT_EQ(flow.VerticalPages(), 3);
}

TEST_F(PrnFlowTest, WithoutAnySliceThereIsNothing) {
    flow.Run();
    EXPECT_EQ(flow.Pages(), 0);
    EXPECT_EQ(flow.Page(), 0);
    EXPECT_EQ(flow.HorizontalPages(), 0);
    EXPECT_EQ(flow.Surface(), nullptr);
    flow.NextPage();
    ZoomBack(flow);
    Ask(PagesWanted::Down, 3);
    EXPECT_EQ(flow.Page(), 0);
}

TEST_F(PrnFlowTest, PagesEndAtTheFirstAndTheLast) {
    Show(500, 100);
    flow.PreviousPage();
    EXPECT_EQ(flow.Page(), 1);
    for (int i = 0; i < 5; ++i) flow.NextPage();
    EXPECT_EQ(flow.Page(), 3);
    flow.FitToPage = true;
    flow.Run();
    EXPECT_EQ(flow.Page(), 1);
}

TEST_F(PrnFlowTest, RunShowsOrPrints) {
    Show(10, 10);
    int printed = 0;
    flow.OnPrint([&] { ++printed; });
    flow.Run();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(printed, 0);
    flow.Preview = false;
    flow.Run();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(printed, 1);
}

TEST_F(PrnFlowTest, ShowsACopyAtFullSizeWhateverTheWindowsZoom) {
    surface.SetxZoom(37);
    surface.SetyZoom(37);
    Show(10, 10);
    EXPECT_EQ(AF().xZoom(), 100);
    AF().SetxZoom(50);
    EXPECT_EQ(surface.xZoom(), 37);
}

TEST_F(PrnFlowTest, RefreshTakesChangesAndKeepsTheScaling) {
    Show(100, 100);
    AF().SetxZoom(60);
    AddBox(surface, 700, 0, 10, 10);
    flow.Refresh();
    flow.Run();
    EXPECT_EQ(AF().xZoom(), 60);
    EXPECT_EQ(AF().Nodes().Count(), 2);
    EXPECT_FALSE(flow.IsGone());
}

TEST_F(PrnFlowTest, AMapThatIsGoneStaysAsItWas) {
    Show(500, 100);
    gone = true;
    flow.Refresh();
    flow.Run();
    EXPECT_TRUE(flow.IsGone());
    EXPECT_EQ(flow.Pages(), 3);
    EXPECT_EQ(AF().Nodes().Count(), 1);
}

TEST_F(PrnFlowTest, ZoomToPagesTakesTheSmallerOfBothDirections) {
    Show(400, 100); // 22677 by 5669 twips
    const QSizeF extent = AF().Extent().size();
    ZoomToPages(AF(), 2, {255, 300});
    const int across = int(std::round(2 * 100 * (12000 - 255) / extent.width()));
    const int down = int(std::round(2 * 100 * (9000 - 300) / extent.height()));
    EXPECT_LT(across, down);
    EXPECT_EQ(AF().xZoom(), across);
    EXPECT_EQ(AF().yZoom(), across);
    EXPECT_EQ(across, 104);
}

TEST_F(PrnFlowTest, AnEmptySurfaceKeepsItsZoom) {
    Take();
    AF().SetxZoom(60);
    AF().SetyZoom(70);
    ZoomToPages(AF(), 3, {});
    EXPECT_EQ(AF().xZoom(), 60);
    EXPECT_EQ(AF().yZoom(), 70);
    Ask(PagesWanted::Down, 1);
    EXPECT_EQ(AF().xZoom(), 100);
    EXPECT_EQ(AF().yZoom(), 100);
}

TEST_F(PrnFlowTest, ZoomStaysWithinWhatASurfaceTakes) {
    Show(0.5, 0.5);
    ZoomToPages(AF(), 10, {});
    EXPECT_EQ(AF().xZoom(), 10000);
    ZoomToPages(AF(), 1, {20000, 20000}); // no room at all
    EXPECT_EQ(AF().xZoom(), 0);
}

TEST_F(PrnFlowTest, PagesAskedForAreReached) {
    Show(300, 300);
    for (const int number : {2, 3, 5}) {
        Ask(PagesWanted::Down, number);
        EXPECT_GE(flow.VerticalPages(), number);
        Ask(PagesWanted::Wide, number);
        EXPECT_GE(flow.HorizontalPages(), number);
    }
    EXPECT_EQ(clicks, 6);
}

TEST_F(PrnFlowTest, TryingEndsAfterTwentyTimes) {
    Take(); // an empty page never becomes two
    Ask(PagesWanted::Down, 2);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(runs, 1 + 1 + 20 + 1); // of the button, for the first scaling, of the tries, at the end
    runs = 0;
    flow.FitToPage = true;
    Show(500, 500);
    Ask(PagesWanted::Wide, 10);
    EXPECT_EQ(runs, 23);
}

TEST_F(PrnFlowTest, PagesThatAreThereNeedNoTries) {
    Show(500, 500);
    Ask(PagesWanted::Down, 1);
    EXPECT_EQ(runs, 3);
}

TEST_F(PrnFlowTest, ScalingGoesBack) {
    Show(500, 500);
    Ask(PagesWanted::Wide, 3);
    EXPECT_NE(AF().xZoom(), 100);
    ZoomBack(flow);
    EXPECT_EQ(AF().xZoom(), 100);
    EXPECT_EQ(AF().yZoom(), 100);
}

} // namespace

} // namespace print::testing
