// A picture that shows and hides something else than the items say.
#include "diagram/model/Sights.h"

#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

constexpr QRgb kRed = qRgb(200, 10, 20), kGreen = qRgb(10, 150, 20);

struct SightsTest : Painting, ::testing::Test {
    Node &seen = AddColoured(10, kRed), &unseen = AddColoured(110, kGreen);
    Link &link = seen.Links().Add(unseen);
    Sights sights;

    SightsTest() {
        unseen.SetHidden(true);
        link.SetHidden(true);
        options.sights = &sights;
    }
    Node &AddColoured(float left, QRgb colour) {
        Node &node = Add(left, 20, 60, 40);
        node.SetFillColor(support::Rgb(qRed(colour), qGreen(colour), qBlue(colour)));
        node.SetDrawWidth(0);
        return node;
    }
    bool Shows(QRgb colour, double zoom = 1) { return CountOf(Paint(zoom), colour) > 0; }
    bool ShowsLink() { return CountOf(Paint(), QRect(80, 35, 20, 10), qRgb(255, 255, 255)) < 200; }
};

} // namespace

TEST_F(SightsTest, EmptyOnesShowWhatTheItemsSay) {
    EXPECT_TRUE(sights.IsEmpty());
    EXPECT_TRUE(Shows(kRed));
    EXPECT_FALSE(Shows(kGreen));
    EXPECT_FALSE(ShowsLink());
}

TEST_F(SightsTest, HideAndBringBackAtEveryZoomAndChangeNothing) {
    const Revision before = surface.Actions().Revision();
    sights.Set(seen, true);
    sights.Set(unseen, false);
    sights.Set(link, false);
    for (const double zoom : {1.0, 0.2, 3.0}) EXPECT_FALSE(Shows(kRed, zoom)) << zoom;
    for (const double zoom : {1.0, 0.2, 0.15}) EXPECT_TRUE(Shows(kGreen, zoom)) << zoom;
    EXPECT_TRUE(ShowsLink());
    EXPECT_FALSE(seen.Hidden());
    EXPECT_TRUE(unseen.Hidden());
    EXPECT_EQ(surface.Actions().Revision(), before);
}

TEST_F(SightsTest, KeepTheOrderOfTheStack) {
    Node &above = AddColoured(110, kRed);
    sights.Set(seen, true);
    sights.Set(unseen, false);
    EXPECT_FALSE(Shows(kGreen)) << "it lies below the other";
    above.SetHidden(true);
    EXPECT_TRUE(Shows(kGreen));
}

TEST_F(SightsTest, SurviveWhatComesAndGoesMeanwhile) {
    sights.Set(seen, true);
    sights.Set(unseen, false);
    sights.Set(unseen, false);
    surface.Remove(unseen);
    EXPECT_FALSE(Shows(kGreen));
    AddColoured(60, kGreen);
    EXPECT_TRUE(Shows(kGreen)) << "what is added is as it says";
}

TEST(Renderer, PaintsOnlyAsLongAsItIsWanted) {
    Painting painting;
    for (int i = 0; i < 1000; ++i) painting.Add(float(i % 20), 0, 5, 5);
    int asked = 0;
    painting.options.goOn = [&asked] { return ++asked < 3; };
    painting.Paint();
    EXPECT_EQ(asked, 3);
}

} // namespace diagram
