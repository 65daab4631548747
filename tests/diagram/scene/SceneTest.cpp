#include "diagram/scene/Scene.h"

#include "diagram/geometry/Polyline.h"
#include "tests/diagram/model/RandomSurface.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

class TenTwipsALetter : public TextMeasure {
public:
    QSizeF Measure(const QString &text, const Font &, double) override {
        return {10.0 * double(text.size()), 200};
    }
};

std::vector<ItemId> IdsIn(Scene &scene, const QRectF &area) {
    std::vector<Item *> items;
    scene.ItemsIn(area, items);
    std::vector<ItemId> ids;
    for (const Item *item : items) ids.push_back(item->Id());
    return ids;
}

void ExpectSame(Scene &kept, Scene &fresh, Dice &dice) {
    Surface &surface = kept.Model();
    EXPECT_EQ(kept.Extent(), fresh.Extent());
    const QRectF everything(-1e6, -1e6, 2e6, 2e6);
    EXPECT_EQ(IdsIn(kept, everything), IdsIn(fresh, everything));
    for (int i = 0; i < 10; ++i) {
        const QRectF area(dice.Real(-9000, 9000), dice.Real(-9000, 9000), dice.Real(0, 5000),
                          dice.Real(0, 5000));
        EXPECT_EQ(IdsIn(kept, area), IdsIn(fresh, area));
    }
    for (Node &node : surface.Nodes()) EXPECT_EQ(kept.Bounds(node), fresh.Bounds(node));
    for (const auto &link : surface.Links()) {
        EXPECT_EQ(kept.Bounds(*link), fresh.Bounds(*link));
        EXPECT_EQ(kept.Crossings(*link).size(), fresh.Crossings(*link).size());
    }
}

struct Drawn {
    Surface surface;
    Scene scene{surface};
    Node &AddNode(float left, float top) { return surface.Nodes().Add(left, top, 1000, 1000); }
    Link &AddLine(float x1, float y1, float x2, float y2) {
        Node &a = surface.Nodes().Add(x1, y1, 0, 0), &b = surface.Nodes().Add(x2, y2, 0, 0);
        Link &link = a.Links().Add(b);
        link.SetAddPointsMode(true);
        link.Points().Assign({{x1, y1}, {x2, y2}});
        return link;
    }
};

bool Covers(const Scene::Damage &damage, const QRectF &area) {
    if (damage.everything) return true;
    for (const QRectF &each : damage.areas) {
        if (each.contains(area)) return true;
    }
    return false;
}

} // namespace

class SceneAtRandom : public ::testing::TestWithParam<unsigned> {};

TEST_P(SceneAtRandom, IsTheSameAsOneBuiltAnew) {
    Dice dice(GetParam());
    TenTwipsALetter measure;
    Surface surface;
    surface.SetMeasure(&measure);
    Fill(surface, dice, 50 + int(GetParam()) * 40);
    auto kept = std::make_unique<Scene>(surface);
    for (int round = 0; round < 40; ++round) {
        Fill(surface, dice, dice.Roll(1, 25));
        if (dice.Roll(0, 3) == 0) kept->TakeDamage();
        Scene fresh(surface);
        ExpectSame(*kept, fresh, dice);
        if (dice.Roll(0, 9) == 0) kept = std::make_unique<Scene>(surface);
        if (HasFailure()) break;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SceneAtRandom, ::testing::Range(1U, 13U));

TEST(Scene, ItemsInGivesWhatTouchesFromTheLowestToTheHighest) {
    Drawn drawn;
    Node &a = drawn.AddNode(0, 0), &b = drawn.AddNode(500, 500);
    drawn.AddNode(9000, 9000);
    EXPECT_EQ(IdsIn(drawn.scene, QRectF(0, 0, 600, 600)), (std::vector{a.Id(), b.Id()}));
    a.BringToFront();
    EXPECT_EQ(IdsIn(drawn.scene, QRectF(0, 0, 600, 600)), (std::vector{b.Id(), a.Id()}));
}

TEST(Scene, HiddenItemsAreInNoArea) {
    Drawn drawn;
    Node &a = drawn.AddNode(0, 0);
    EXPECT_FALSE(drawn.scene.Extent().isEmpty());
    a.SetHidden(true);
    EXPECT_TRUE(IdsIn(drawn.scene, QRectF(-100, -100, 9000, 9000)).empty());
    EXPECT_TRUE(drawn.scene.Extent().isEmpty());
}

TEST(Scene, BoundsHoldBorderAndShadow) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    node.SetDrawWidth(8);
    node.SetShadow(1);
    const QRectF bounds = drawn.scene.Bounds(node);
    EXPECT_TRUE(bounds.contains(QRectF(-60, -60, 1120, 1120)));
    EXPECT_TRUE(bounds.contains(QPointF(1000 + 75 + 60, 1000 + 75 + 60)));
}

TEST(Scene, AMarkOfWhatCanNotBeSelectedNeedsNoRoom) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    const QRectF bare = drawn.scene.Bounds(node);
    node.SetMarked(true);
    EXPECT_GT(drawn.scene.Bounds(node).width(), bare.width());
    node.SetSelectable(false);
    EXPECT_EQ(drawn.scene.Bounds(node), bare);
}

TEST(Scene, BoundsOfALinkHoldItsLabel) {
    Drawn drawn;
    TenTwipsALetter measure;
    drawn.surface.SetMeasure(&measure);
    Link &link = drawn.AddLine(0, 0, 0, 2000);
    link.SetText(QString(300, QLatin1Char('x')));
    const QRectF label = drawn.scene.LabelBounds(link);
    EXPECT_EQ(label, QRectF(-1500, 900, 3000, 200));
    EXPECT_TRUE(drawn.scene.Bounds(link).contains(label));
}

TEST(Scene, LabelsAreMeasuredAnewByAnotherMeasure) {
    Drawn drawn;
    Link &link = drawn.AddLine(0, 0, 0, 2000);
    link.SetText(QString(3000, QLatin1Char('x')));
    drawn.scene.Bounds(link);
    TenTwipsALetter measure;
    drawn.surface.SetMeasure(&measure);
    EXPECT_LT(drawn.scene.Bounds(link).width(), 31000);
}

TEST(Scene, ALinkFollowsItsNode) {
    Drawn drawn;
    Node &a = drawn.AddNode(0, 0), &b = drawn.AddNode(5000, 0);
    Link &link = a.Links().Add(b);
    drawn.scene.Bounds(link);
    b.SetTop(7000);
    EXPECT_GT(drawn.scene.Bounds(link).bottom(), 7000);
}

TEST(Scene, DamageHoldsTheOldAndTheNewPlace) {
    Drawn drawn;
    for (int i = 0; i < 100; ++i) drawn.AddNode(float(i) * 2000, 0);
    drawn.scene.TakeDamage();
    Node &node = drawn.surface.Nodes().Item(1);
    node.SetTop(5000);
    const auto damage = drawn.scene.TakeDamage();
    EXPECT_FALSE(damage.everything);
    EXPECT_TRUE(Covers(damage, QRectF(0, 0, 1000, 1000)));
    EXPECT_TRUE(Covers(damage, QRectF(0, 5000, 1000, 1000)));
    EXPECT_FALSE(Covers(damage, QRectF(0, 3000, 10, 10)));
    EXPECT_TRUE(drawn.scene.TakeDamage().areas.empty());
}

TEST(Scene, DamageHoldsWhatWasRemoved) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    drawn.AddNode(5000, 0);
    drawn.scene.TakeDamage();
    drawn.surface.Remove(node);
    EXPECT_TRUE(Covers(drawn.scene.TakeDamage(), QRectF(0, 0, 1000, 1000)));
}

TEST(Scene, SelectingDamagesNothing_AsHandlesAreTheViews) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    drawn.scene.TakeDamage();
    node.SetSelected(true);
    const auto damage = drawn.scene.TakeDamage();
    EXPECT_FALSE(damage.everything);
    EXPECT_TRUE(damage.areas.empty());
}

TEST(Scene, ChangesOfKeyAndTagDamageNothing) {
    Drawn drawn;
    Node &node = drawn.AddNode(0, 0);
    drawn.scene.TakeDamage();
    node.SetKey(QStringLiteral("{A}"));
    node.SetTag(QStringLiteral("|A=b"));
    drawn.surface.SetTag(QStringLiteral("|A=b"));
    const auto damage = drawn.scene.TakeDamage();
    EXPECT_TRUE(damage.areas.empty());
    EXPECT_FALSE(damage.everything);
}

TEST(Scene, ALinkJumpsOverTheLowerOneOnly) {
    Drawn drawn;
    Link &lower = drawn.AddLine(0, 1000, 4000, 1000);
    Link &upper = drawn.AddLine(1000, 0, 1000, 3000);
    lower.SetJumpStyle(1);
    upper.SetJumpStyle(1);
    EXPECT_TRUE(drawn.scene.Crossings(lower).empty());
    const auto crossings = drawn.scene.Crossings(upper);
    ASSERT_EQ(crossings.size(), 1U);
    EXPECT_EQ(crossings[0].segment, 0);
    EXPECT_DOUBLE_EQ(crossings[0].along, 1000);
    EXPECT_EQ(crossings[0].point, QPointF(1000, 1000));
    upper.SetJumpStyle(0);
    EXPECT_TRUE(drawn.scene.Crossings(upper).empty());
}

TEST(Scene, ALinkJumpsOverOnesThatDontWhereverTheyLie) {
    Drawn drawn;
    Link &lower = drawn.AddLine(0, 1000, 4000, 1000);
    Link &upper = drawn.AddLine(1000, 0, 1000, 3000);
    lower.SetJumpStyle(2);
    EXPECT_EQ(drawn.scene.Crossings(lower).size(), 1U);
    EXPECT_TRUE(drawn.scene.Crossings(upper).empty());
    upper.SetHidden(true);
    EXPECT_TRUE(drawn.scene.Crossings(lower).empty());
}

TEST(Scene, OnlyTrueCrossingsAreJumpedOver) {
    Drawn drawn;
    Link &other = drawn.AddLine(1000, 0, 1000, 1000); // ends on the line
    Link &link = drawn.AddLine(0, 1000, 4000, 1000);
    link.SetJumpStyle(1);
    EXPECT_TRUE(drawn.scene.Crossings(link).empty());
    other.SetAddPointsMode(true);
    other.Points().Assign({{1000, 0}, {1000, 1000}, {1500, 2000}}); // bends on the line, and goes on
    const auto crossings = drawn.scene.Crossings(link);
    ASSERT_EQ(crossings.size(), 1U);
    EXPECT_EQ(crossings[0].point, QPointF(1000, 1000));
}

TEST(Scene, CrossingsMoveWithTheLinksAndDamageWhereTheyWere) {
    Drawn drawn;
    Link &other = drawn.AddLine(1000, 0, 1000, 3000);
    Link &link = drawn.AddLine(0, 1000, 4000, 1000);
    link.SetJumpStyle(1);
    ASSERT_EQ(drawn.scene.Crossings(link)[0].point, QPointF(1000, 1000));
    drawn.scene.TakeDamage();
    other.Points().Assign({{2000, 0}, {2000, 3000}});
    ASSERT_EQ(drawn.scene.Crossings(link)[0].point, QPointF(2000, 1000));
    const Scene::Damage damage = drawn.scene.TakeDamage();
    for (const double x : {1000, 2000}) {
        EXPECT_TRUE(Covers(damage, QRectF(x - 60, 940, 120, 120))) << x;
    }
}

TEST(Scene, CrossingsStandInOrderAlongTheWay) {
    Drawn drawn;
    for (float x : {3000.F, 1000.F, 2000.F}) drawn.AddLine(x, 0, x, 2000);
    Link &link = drawn.AddLine(0, 1000, 4000, 1000);
    link.SetJumpStyle(2);
    const auto crossings = drawn.scene.Crossings(link);
    ASSERT_EQ(crossings.size(), 3U);
    EXPECT_DOUBLE_EQ(crossings[0].along, 1000);
    EXPECT_DOUBLE_EQ(crossings[2].along, 3000);
}

TEST(Scene, CurvesJumpToo) {
    for (const int style : {1, 14}) {
        SCOPED_TRACE(style);
        Drawn drawn;
        drawn.AddLine(1000, 0, 1000, 3000), drawn.AddLine(3000, 0, 3000, 3000);
        Link &curve = drawn.AddLine(0, 1000, 4000, 1000);
        curve.SetStyle(style);
        curve.Points().Assign({{0, 1000}, {1000, 2000}, {3000, 200}, {4000, 1000}});
        EXPECT_TRUE(drawn.scene.Crossings(curve).empty());
        curve.SetJumpStyle(1);
        const auto crossings = drawn.scene.Crossings(curve);
        ASSERT_EQ(crossings.size(), 2U);
        const QPolygonF line = drawn.scene.LinkPath(curve).toSubpathPolygons().front();
        const std::vector<QPointF> route(line.begin(), line.end());
        for (const Crossing &crossing : crossings) {
            EXPECT_EQ(crossing.segment, 0);
            EXPECT_NEAR(NearestOnRoute(route, crossing.point), crossing.along, 15);
        }
        EXPECT_NEAR(crossings[0].point.x(), 1000, 1);
        EXPECT_GT(crossings[0].point.y(), 1050);
        EXPECT_NEAR(crossings[1].point.x(), 3000, 1);
        EXPECT_LT(crossings[1].point.y(), 950);
    }
}

TEST(Scene, ACurveIsCrossedOnceWhereItsPiecesMeet) {
    Drawn drawn;
    Link &curve = drawn.AddLine(0, 1000, 4000, 1000);
    curve.SetStyle(14);
    curve.SetJumpStyle(2);
    curve.Points().Assign({{0, 1000}, {2000, 1000}, {4000, 1000}});
    drawn.AddLine(2000, 0, 2000, 3000);
    EXPECT_EQ(drawn.scene.Crossings(curve).size(), 1U);
}

TEST(Scene, SplinesGoThroughTheirPoints) {
    Drawn drawn;
    Link &link = drawn.AddLine(0, 0, 4000, 0);
    link.SetStyle(14);
    link.Points().Assign({{0, 0}, {2000, 1500}, {4000, 0}});
    const QPainterPath path = drawn.scene.LinkPath(link);
    EXPECT_EQ(path.elementCount(), 7);
    EXPECT_EQ(QPointF(path.elementAt(3)), QPointF(2000, 1500));
    EXPECT_TRUE(drawn.scene.Bounds(link).contains(path.boundingRect()));
}
