// A part of a diagram is laid out while the rest is held.
#include "diagram/layout/FreePlace.h"
#include "diagram/layout/Layouts.h"
#include "diagram/model/Surface.h"

#include <gmock/gmock.h>
#include <QLineF>
#include <random>

namespace diagram {
namespace {

const LayoutOptions kOptions;
bool Always() { return true; }
LayoutOrder OfSelection() {
    LayoutOrder order;
    order.scope = LayoutScope::Selection;
    return order;
}

// The centre found by trying every candidate: the wish, and where sides and corners of what is closed lie.
QPointF BySearch(const QRectF &box, const std::vector<QRectF> &held, double gap, const QPointF &least) {
    const QPointF half(box.width() / 2, box.height() / 2);
    const QPointF wish(std::max(box.center().x(), least.x() + half.x()),
                       std::max(box.center().y(), least.y() + half.y()));
    std::vector<double> xs{wish.x(), least.x() + half.x()}, ys{wish.y(), least.y() + half.y()};
    std::vector<QRectF> closed;
    for (const QRectF &one : held)
        closed.push_back(one.adjusted(-half.x() - gap, -half.y() - gap, half.x() + gap, half.y() + gap));
    for (const QRectF &one : closed) {
        xs.insert(xs.end(), {one.left(), one.right()});
        ys.insert(ys.end(), {one.top(), one.bottom()});
    }
    QPointF best(1e9, 1e9);
    for (const double x : xs)
        for (const double y : ys) {
            if (x < least.x() + half.x() || y < least.y() + half.y()) continue;
            const bool free = std::ranges::none_of(closed, [&](const QRectF &one) {
                return one.left() < x - 1 && x + 1 < one.right() && one.top() < y - 1 && y + 1 < one.bottom();
            });
            const QPointF off = QPointF(x, y) - wish, so = best - wish;
            if (free && QPointF::dotProduct(off, off) < QPointF::dotProduct(so, so)) best = {x, y};
        }
    return best;
}

TEST(FreePlace, WhatIsFreeStays) {
    EXPECT_EQ(NearestFree({100, 200, 50, 60}, {}, 10, {0, 0}), QPointF(125, 230));
    EXPECT_EQ(NearestFree({100, 200, 50, 60}, {{160, 200, 50, 50}}, 10, {0, 0}), QPointF(125, 230));
}

TEST(FreePlace, WhatLiesOnSomethingGoesTheShortWay) {
    EXPECT_EQ(NearestFree({100, 100, 50, 50}, {{140, 90, 500, 500}}, 10, {0, 0}), QPointF(105, 125));
    EXPECT_EQ(NearestFree({100, 100, 50, 50}, {{90, 140, 500, 500}}, 10, {0, 0}), QPointF(125, 105));
}

TEST(FreePlace, NothingGoesBeyondTheEdge) {
    EXPECT_EQ(NearestFree({0, 0, 50, 50}, {{40, 0, 200, 20}}, 10, {0, 0}), QPointF(25, 55));
    EXPECT_EQ(NearestFree({-90, -90, 50, 50}, {}, 10, {0, 0}), QPointF(25, 25));
}

TEST(FreePlace, NoNearerPlaceIsFree) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        std::mt19937 random(seed);
        const auto upTo = [&](unsigned most) { return double(random() % most); };
        std::vector<QRectF> held;
        for (unsigned i = 0; i < seed % 12; ++i)
            held.emplace_back(upTo(2000), upTo(2000), 50 + upTo(600), 50 + upTo(600));
        const QRectF box(upTo(2000), upTo(2000), 50 + upTo(900), 50 + upTo(900));
        const QPointF found = NearestFree(box, held, 20, {0, 0}), best = BySearch(box, held, 20, {0, 0});
        EXPECT_NEAR(QLineF(found, box.center()).length(), QLineF(best, box.center()).length(), 1) << seed;
        const QRectF there = box.translated(found - box.center());
        for (const QRectF &one : held) EXPECT_FALSE(there.adjusted(-19, -19, 19, 19).intersects(one)) << seed;
        EXPECT_GE(there.left(), -0.1);
        EXPECT_GE(there.top(), -0.1);
    }
}

// Three selected nodes on one spot, the first linked to the others, and one that isn't.
struct SelectionLayout : ::testing::Test {
    Surface surface;
    Node *first = &Add(6000, 6000), *left = &Add(6000, 6000), *right = &Add(6100, 6000);
    Node *still = &Add(12000, 12000);

    SelectionLayout() {
        first->Links().Add(*left);
        first->Links().Add(*right);
        for (Node *node : {first, left, right}) node->SetSelected(true);
    }
    Node &Add(float x, float y) { return surface.Nodes().Add(x, y, 1500, 900); }
    QRectF Part() const { return first->Bounds() | left->Bounds() | right->Bounds(); }
    void LayOut() { ASSERT_TRUE(LayOutInLayers(surface, LayoutScope::Selection, kOptions, Always)); }
};

TEST_F(SelectionLayout, ThePartKeepsItsMiddle) {
    const QPointF before = Part().center();
    LayOut();
    EXPECT_GT(left->Top(), first->Top() + first->Height());
    EXPECT_NEAR(Part().center().x(), before.x(), 1);
    EXPECT_NEAR(Part().center().y(), before.y(), 1);
    EXPECT_EQ(still->Bounds(), QRectF(12000, 12000, 1500, 900));
}

TEST_F(SelectionLayout, EveryKindOfLayoutLeavesWhatIsHeldUncovered) {
    for (const LayoutRow &row : LayoutTable()) {
        still->SetBounds(6800, 6900, 1500, 900);
        for (Node *node : {first, left, right}) node->SetBounds(6000, 6000, 1500, 900);
        row.layOut(surface, OfSelection());
        EXPECT_EQ(still->Bounds(), QRectF(6800, 6900, 1500, 900)) << row.name;
        EXPECT_FALSE(Part().intersects(still->Bounds())) << row.name;
    }
}

TEST_F(SelectionLayout, WhatTheSelectionStandsOnIsNotInItsWay) {
    still->SetBounds(3000, 3000, 9000, 9000);
    const QPointF before = Part().center();
    LayOut();
    EXPECT_NEAR(Part().center().x(), before.x(), 1);
    EXPECT_NEAR(Part().center().y(), before.y(), 1);
}

TEST_F(SelectionLayout, WhatIsHiddenIsNotInItsWay) {
    still->SetBounds(6800, 6900, 1500, 900);
    still->SetHidden(true);
    const QPointF before = Part().center();
    LayOut();
    EXPECT_NEAR(Part().center().y(), before.y(), 1);
}

TEST_F(SelectionLayout, AtTheEdgeThePartStaysOnThePage) {
    for (Node *node : {first, left, right}) node->SetBounds(150, 150, 1500, 900);
    LayOut();
    EXPECT_GE(Part().left(), 0);
    EXPECT_GE(Part().top(), 0);
}

TEST_F(SelectionLayout, LinksToWhatIsHeldAreRoutedAnew) {
    Link &out = right->Links().Add(*still);
    out.Points().Assign({{6100, 6000}, {300, 300}, {12000, 12000}});
    ASSERT_TRUE(out.OwnBends());
    LayOut();
    EXPECT_FALSE(out.OwnBends());
    EXPECT_EQ(out.Points().Count(), 2);
}

TEST_F(SelectionLayout, ASingleNodeStaysWhereItIs) {
    for (const LayoutRow &row : LayoutTable()) {
        left->SetSelected(false);
        right->SetSelected(false);
        row.layOut(surface, OfSelection());
        EXPECT_EQ(first->Bounds(), QRectF(6000, 6000, 1500, 900)) << row.name;
    }
}

TEST_F(SelectionLayout, WithNothingSelectedNothingMoves) {
    for (Node *node : {first, left, right}) node->SetSelected(false);
    LayOut();
    EXPECT_EQ(left->Bounds(), QRectF(6000, 6000, 1500, 900));
}

} // namespace
} // namespace diagram
