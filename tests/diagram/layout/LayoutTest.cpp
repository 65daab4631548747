#include "diagram/layout/Layout.h"

#include "diagram/edit/History.h"
#include "diagram/layout/TidyTree.h"
#include "diagram/model/Surface.h"

#include <gmock/gmock.h>

namespace diagram {
namespace {

constexpr auto kAll = LayoutScope::All;
const LayoutOptions kOptions;
bool Always() { return true; }

// Five nodes nearly at one place, without links.
struct LayoutTest : ::testing::Test {
    Surface surface;
    std::vector<Node *> nodes;

    LayoutTest() {
        AttachHistory(surface);
        for (int i = 0; i < 5; ++i)
            nodes.push_back(&surface.Nodes().Add(3000 + 10 * float(i), 2000, 1500, 900));
    }
    Link &Join(int from, int to) { return nodes[std::size_t(from)]->Links().Add(*nodes[std::size_t(to)]); }
    std::vector<QRectF> Boxes() const {
        std::vector<QRectF> boxes;
        for (const Node *node : nodes) boxes.push_back(node->Bounds());
        return boxes;
    }
    QRectF All() const {
        QRectF all;
        for (const QRectF &box : Boxes()) all |= box;
        return all;
    }
};

TEST_F(LayoutTest, LayersGoDownAlongTheLinksAndNothingOverlaps) {
    Join(0, 1), Join(1, 2), Join(1, 3), Join(3, 4), Join(4, 0);
    ASSERT_TRUE(LayOutInLayers(surface, kAll, kOptions, Always));
    EXPECT_LT(nodes[0]->Top(), nodes[1]->Top());
    EXPECT_LT(nodes[1]->Top(), nodes[2]->Top());
    EXPECT_EQ(nodes[2]->Top(), nodes[3]->Top());
    EXPECT_LT(nodes[3]->Top(), nodes[4]->Top());
    EXPECT_NEAR(nodes[1]->Top() - nodes[0]->Top(), 900 + kOptions.levelDistance, 20);
    const auto boxes = Boxes();
    for (std::size_t a = 0; a < boxes.size(); ++a)
        for (std::size_t b = a + 1; b < boxes.size(); ++b) EXPECT_FALSE(boxes[a].intersects(boxes[b]));
}

TEST_F(LayoutTest, TheDiagramKeepsItsLeftTopCorner) {
    Join(0, 1), Join(0, 2), Join(0, 3), Join(3, 4);
    ASSERT_TRUE(LayOutInLayers(surface, kAll, kOptions, Always));
    EXPECT_NEAR(All().left(), 3000, 1);
    EXPECT_NEAR(All().top(), 2000, 1);
    LayOutAsTree(surface, kAll, kOptions);
    EXPECT_NEAR(All().left(), 3000, 1);
    EXPECT_NEAR(All().top(), 2000, 1);
}

TEST_F(LayoutTest, TheSameDiagramGivesTheSamePlaces) {
    Join(0, 1), Join(0, 2), Join(2, 3), Join(1, 3), Join(3, 4);
    ASSERT_TRUE(LayOutInLayers(surface, kAll, kOptions, Always));
    const auto once = Boxes();
    ASSERT_TRUE(LayOutInLayers(surface, kAll, kOptions, Always));
    EXPECT_EQ(Boxes(), once);
}

TEST_F(LayoutTest, HiddenNodesAndThoseOfATimelineStayWhereTheyAre) {
    Join(0, 1), Join(1, 2), Join(2, 3), Join(3, 4);
    nodes[2]->SetHidden(true);
    nodes[4]->SetSelectable(false);
    const auto before = Boxes();
    ASSERT_TRUE(LayOutInLayers(surface, kAll, kOptions, Always));
    LayOutAsTree(surface, kAll, kOptions);
    EXPECT_EQ(nodes[2]->Bounds(), before[2]);
    EXPECT_EQ(nodes[4]->Bounds(), before[4]);
    EXPECT_NE(nodes[1]->Bounds(), before[1]);
}

TEST_F(LayoutTest, OfASelectionOnlyThoseNodesMove) {
    Join(0, 1), Join(1, 2), Join(2, 3);
    nodes[0]->SetSelected(true);
    nodes[1]->SetSelected(true);
    const auto before = Boxes();
    LayOutAsTree(surface, LayoutScope::Selection, kOptions);
    EXPECT_NE(nodes[1]->Bounds(), before[1]);
    for (const std::size_t still : {2U, 3U, 4U}) EXPECT_EQ(nodes[still]->Bounds(), before[still]);
}

TEST_F(LayoutTest, ALinkLosesTheBendsOfItsOldPlace) {
    Link &link = Join(0, 1);
    link.Points().Assign({{3000, 2000}, {9000, 9000}, {3010, 2000}});
    LayOutAsTree(surface, kAll, kOptions);
    EXPECT_EQ(link.Points().Count(), 2);
}

TEST_F(LayoutTest, ALinkPastOtherNodesBendsRoundThemAndIsRoutedAnewWhenItsNodeMoves) {
    Join(0, 1), Join(1, 2), Join(2, 3);
    Link &past = Join(0, 3);
    past.SetStyle(0);
    ASSERT_TRUE(LayOutInLayers(surface, kAll, kOptions, Always));
    EXPECT_GT(past.Points().Count(), 2);
    EXPECT_FALSE(past.OwnBends());
    for (const std::size_t between : {1U, 2U})
        for (const Point &point : past.Route())
            EXPECT_FALSE(nodes[between]->Bounds().contains(ToQPointF(point)));
    const auto route = past.Route();
    nodes[3]->SetLeft(nodes[3]->Left() + 9000);
    EXPECT_NE(past.Route(), route);
    EXPECT_FALSE(past.OwnBends());
}

TEST_F(LayoutTest, LevelAndUprightLinksGetTheStyleThatFits) {
    Link &next = Join(0, 1);
    Join(1, 2), Join(2, 3);
    Link &past = Join(0, 3);
    for (Link *link : {&next, &past}) link->SetStyle(3);
    ASSERT_TRUE(LayOutInLayers(surface, kAll, kOptions, Always));
    EXPECT_EQ(next.Style(), 4);
    EXPECT_TRUE(past.Style() == 4 || past.Style() == 8) << past.Style();
    EXPECT_EQ(past.Route().front().x, past.Route()[1].x);
    EXPECT_FALSE(past.OwnBends());
    LayoutOptions right;
    right.orientation = LayoutOrientation::Right;
    ASSERT_TRUE(LayOutInLayers(surface, kAll, right, Always));
    EXPECT_EQ(next.Style(), 5);
    EXPECT_EQ(past.Route().front().y, past.Route()[1].y);
}

TEST_F(LayoutTest, UndoGivesTheStylesAndBendsBack) {
    Join(0, 1), Join(1, 2);
    Link &past = Join(0, 2);
    past.SetStyle(3);
    const auto before = past.Route();
    surface.BeginAction(1);
    ASSERT_TRUE(LayOutInLayers(surface, kAll, kOptions, Always));
    surface.EndAction();
    const auto after = past.Route();
    surface.Undo();
    EXPECT_EQ(past.Style(), 3);
    EXPECT_EQ(past.Route(), before);
    surface.Redo();
    EXPECT_EQ(past.Route(), after);
    EXPECT_FALSE(past.OwnBends());
}

TEST_F(LayoutTest, OneUndoTakesALayoutBack) {
    Join(0, 1).Points().Assign({{3000, 2000}, {9000, 9000}, {3010, 2000}});
    const auto before = Boxes();
    const auto route = surface.Links()[0]->Route();
    surface.BeginAction(1);
    LayOutAsTree(surface, kAll, kOptions);
    surface.EndAction();
    EXPECT_NE(Boxes(), before);
    surface.Undo();
    EXPECT_EQ(Boxes(), before);
    EXPECT_EQ(surface.Links()[0]->Route(), route);
}

TEST_F(LayoutTest, ALayoutThatIsGivenUpChangesNothing) {
    for (int i = 5; i < 4000; ++i) {
        nodes.push_back(&surface.Nodes().Add(float(i), 0, 1500, 900));
        Join(i, i * 7 % i), Join(i, i * 31 % 997 % i), Join(i / 2, i);
    }
    const auto before = Boxes();
    EXPECT_FALSE(LayOutInLayers(surface, kAll, kOptions, [] { return false; }));
    EXPECT_EQ(Boxes(), before);
}

TEST_F(LayoutTest, WhatIsNoTreeIsLaidOutByASpanningTree) {
    Join(0, 1), Join(0, 2);
    EXPECT_TRUE(LayOutAsTree(surface, kAll, kOptions));
    const auto asTree = Boxes();
    Join(2, 1), Join(1, 2), Join(2, 0), Join(1, 1);
    EXPECT_FALSE(LayOutAsTree(surface, kAll, kOptions));
    EXPECT_LT(nodes[0]->Top(), nodes[1]->Top());
    EXPECT_EQ(nodes[1]->Top(), nodes[2]->Top());
    EXPECT_EQ(Boxes(), asTree);
}

TEST_F(LayoutTest, AnEmptySurfaceIsLaidOutAtOnce) {
    Surface empty;
    EXPECT_TRUE(LayOutInLayers(empty, kAll, kOptions, Always));
    LayOutAsTree(empty, kAll, kOptions);
    EXPECT_EQ(empty.Nodes().Count(), 0);
}

} // namespace
} // namespace diagram
