#include "diagram/model/AutomaticStyle.h"

#include "diagram/model/Calendar.h"
#include "diagram/model/LinkDraft.h"
#include "tests/diagram/model/RouteChecks.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

constexpr int kVH = 2, kHV = 3, kVHV = 4, kHVH = 5;

struct TenTwipsALetter : TextMeasure {
    QSizeF Measure(const QString &text, const Font &, double) override {
        return {10.0 * double(text.size()), 240};
    }
};

struct TwoNodes {
    Surface surface;
    Node &a;
    Node &b;
    TwoNodes(float x, float y)
        : a(surface.Nodes().Add(1000, 5000, 1000, 600)), b(surface.Nodes().Add(x, y, 1000, 600)) {}
    int Best() { return StyleFor(a.Links().Add(b), kAutomaticStyle); }
};

} // namespace

TEST(AutomaticStyle, OfNodesInARowOrAColumnIsStraight) {
    EXPECT_EQ(TwoNodes(6000, 5000).Best(), kHVH);
    EXPECT_EQ(TwoNodes(1000, 9000).Best(), kVHV);
}

TEST(AutomaticStyle, OfNodesAslantHasOneBend) {
    const int style = TwoNodes(6000, 9000).Best();
    EXPECT_TRUE(style == kVH || style == kHV) << style;
}

TEST(AutomaticStyle, EndsInTheMiddleOfASideBeforeItSavesABend) {
    EXPECT_EQ(TwoNodes(3000, 5200).Best(), kHVH) << "beside and a little lower";
    EXPECT_EQ(TwoNodes(1300, 6600).Best(), kVHV) << "below and a little to the right";
}

TEST(AutomaticStyle, LeavesRoomForTheHeadBeforeItSavesABend) {
    EXPECT_EQ(TwoNodes(2700, 5400).Best(), kHVH) << "its middle is a little below the first one";
}

TEST(AutomaticStyle, DoesNotRunThroughTheTextBehindABar) {
    TenTwipsALetter measure;
    TwoNodes nodes(6000, 9000);
    nodes.surface.SetMeasure(&measure);
    Link &link = nodes.a.Links().Add(nodes.b);
    nodes.a.SetText(QString(150, u'x'));
    link.SetStyle(kHV);
    EXPECT_EQ(StyleFor(link, kAutomaticStyle), kHV);
    SetCalendarSource(nullptr, [](const Node &node) { return !node.Text().isEmpty(); });
    EXPECT_EQ(StyleFor(link, kAutomaticStyle), kVH);
    SetCalendarSource(nullptr);
    nodes.surface.SetMeasure(nullptr);
}

TEST(AutomaticStyle, OfTwoWithOneBendTakesTheOneThatCrossesNoOther) {
    for (const bool below : {true, false}) {
        TwoNodes map(9000, 12000);
        Node &c = map.surface.Nodes().Add(below ? 4000.0F : 9100.0F, below ? 11000.0F : 7000.0F, 800, 400);
        Node &d = map.surface.Nodes().Add(below ? 4000.0F : 11500.0F, below ? 14000.0F : 7000.0F, 800, 400);
        if (!below) c.SetLeft(6500);
        c.Links().Add(d).SetStyle(below ? kVHV : kHVH);
        EXPECT_EQ(map.Best(), below ? kHV : kVH);
    }
}

// Two links lie across the far leg of each way with one bend; one bend more leads past all of them.
TEST(AutomaticStyle, BendsOnceMoreRatherThanCrossTwoLinks) {
    TwoNodes map(9000, 12000);
    const auto lieAcross = [&map](float x, float y) {
        Node &from = map.surface.Nodes().Add(x - 1900, y, 400, 400);
        from.Links().Add(map.surface.Nodes().Add(x + 1500, y, 400, 400)).SetStyle(0);
    };
    for (const float y : {6500.0F, 7500.0F}) lieAcross(9500, y);
    for (const float y : {10000.0F, 11000.0F}) lieAcross(1500, y);
    const int style = map.Best();
    EXPECT_TRUE(style == kVHV || style == kHVH) << style;
}

TEST(AutomaticStyle, AvoidsANodeBeforeItSavesABend) {
    TwoNodes nodes(6000, 9000);
    nodes.surface.Nodes().Add(1100, 7000, 800, 800); // on the way of V H
    EXPECT_EQ(nodes.Best(), kHV);
    nodes.surface.Nodes().Add(6100, 6500, 800, 800); // and on that of H V
    const int style = nodes.Best();
    EXPECT_TRUE(style == kVHV || style == kHVH) << style;
}

TEST(AutomaticStyle, IsTheOwnOneWhereThatIsAsGoodAsAny) {
    for (const int style : {kVH, kHV}) {
        TwoNodes nodes(6000, 9000);
        Link &link = nodes.a.Links().Add(nodes.b);
        link.SetStyle(style);
        EXPECT_EQ(StyleFor(link, kAutomaticStyle), style);
    }
}

TEST(AutomaticStyle, AnyOtherStyleIsItself) {
    TwoNodes nodes(6000, 9000);
    Link &link = nodes.a.Links().Add(nodes.b);
    for (const LinkStyleRow &row : LinkStyleTable()) EXPECT_EQ(StyleFor(link, row.value), row.value);
}

TEST(AutomaticStyle, ChangesNothingItself) {
    TwoNodes nodes(6000, 9000);
    Link &link = nodes.a.Links().Add(nodes.b);
    link.Points().Insert(1, {3000, 3000});
    link.Route();
    const LinkData before = link.Data();
    StyleFor(link, kAutomaticStyle);
    EXPECT_EQ(link.Style(), before.style);
    EXPECT_EQ(link.Route(), before.points);
    EXPECT_TRUE(link.OwnBends());
}

TEST(AutomaticStyle, OfALinkFromANodeToItselfIsAnOrthogonalOne) {
    Surface surface;
    Node &node = surface.Nodes().Add(1000, 1000, 1000, 600);
    Link &link = node.Links().Add(node);
    const int style = StyleFor(link, kAutomaticStyle);
    EXPECT_EQ(FindLinkStyle(style)->form, LinkForm::Orthogonal);
}

class AutomaticMap : public ::testing::TestWithParam<unsigned> {};

TEST_P(AutomaticMap, NoLinkRunsThroughANode) {
    Dice dice(GetParam());
    Surface surface;
    FillWithGaps(surface, dice, 7, 200);
    for (int i = 0; i < 20; ++i) {
        Node &from = AnyNode(surface, dice), &to = AnyNode(surface, dice);
        if (&from == &to) continue;
        Link &link = from.Links().Add(to);
        link.SetStyle(StyleFor(link, kAutomaticStyle));
    }
    for (const auto &link : surface.Links()) EXPECT_EQ(NodesOnRoute(*link), 0) << link->Style();
}

INSTANTIATE_TEST_SUITE_P(Seeds, AutomaticMap, ::testing::Range(1U, 101U));
