#include "diagram/layout/Layouts.h"

#include "diagram/edit/History.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"

#include <gmock/gmock.h>

namespace diagram {
namespace {

// A row of six nodes with links from each to the next, and one back.
struct LayoutsTest : ::testing::Test {
    Surface surface;
    std::vector<Node *> nodes;

    LayoutsTest() {
        AttachHistory(surface);
        for (int i = 0; i < 6; ++i)
            nodes.push_back(&surface.Nodes().Add(3000 + 100 * float(i), 2000, 1500, 900));
        for (std::size_t i = 0; i + 1 < 6; ++i) nodes[i]->Links().Add(*nodes[i + 1]);
        nodes[5]->Links().Add(*nodes[0]);
    }
    std::vector<QRectF> Boxes() const {
        std::vector<QRectF> boxes;
        for (const Node *node : nodes) boxes.push_back(node->Bounds());
        return boxes;
    }
};

TEST_F(LayoutsTest, EveryOneKeepsTheCornerAndWhatTakesNoPart) {
    nodes[3]->SetHidden(true);
    nodes[4]->SetSelectable(false);
    for (const LayoutRow &row : LayoutTable()) {
        for (std::size_t i = 0; i < 6; ++i) nodes[i]->SetBounds(3000 + 100 * float(i), 2000, 1500, 900);
        const auto before = Boxes();
        row.layOut(surface, {});
        EXPECT_NE(Boxes(), before) << row.name;
        EXPECT_EQ(nodes[3]->Bounds(), before[3]) << row.name;
        EXPECT_EQ(nodes[4]->Bounds(), before[4]) << row.name;
        QPointF corner(1e9, 1e9);
        for (const std::size_t i : {0U, 1U, 2U, 5U})
            corner = {std::min(corner.x(), nodes[i]->Bounds().left()),
                      std::min(corner.y(), nodes[i]->Bounds().top())};
        EXPECT_NEAR(corner.x(), 3000, 1) << row.name;
        EXPECT_NEAR(corner.y(), 2000, 1) << row.name;
    }
}

TEST_F(LayoutsTest, EveryOneIsOneStep) {
    for (const LayoutRow &row : LayoutTable()) {
        const auto before = Boxes();
        surface.BeginAction(1);
        row.layOut(surface, {});
        surface.EndAction();
        EXPECT_NE(Boxes(), before) << row.name;
        surface.Undo();
        EXPECT_EQ(Boxes(), before) << row.name;
        EXPECT_FALSE(surface.CanUndo()) << row.name;
    }
}

TEST_F(LayoutsTest, OfASelectionOnlyThoseNodesMove) {
    nodes[0]->SetSelected(true);
    nodes[1]->SetSelected(true);
    for (const LayoutRow &row : LayoutTable()) {
        const auto before = Boxes();
        row.layOut(surface, {LayoutScope::Selection, {}});
        for (std::size_t i = 2; i < 6; ++i) EXPECT_EQ(Boxes()[i], before[i]) << row.name;
    }
    EXPECT_FALSE(nodes[0]->Bounds().intersects(nodes[1]->Bounds()));
}

TEST_F(LayoutsTest, WhatIsGivenUpChangesNothing) {
    const auto before = Boxes();
    for (const char *name : {"radial", "organic", "circular", "levels"}) {
        LayoutOrder order;
        order.advance = [](double) { return false; };
        EXPECT_EQ(FindLayout(QLatin1String(name))->layOut(surface, order), LayoutResult::GivenUp) << name;
        EXPECT_EQ(Boxes(), before) << name;
    }
}

TEST_F(LayoutsTest, AnEmptySurfaceIsLaidOut) {
    Surface empty;
    for (const LayoutRow &row : LayoutTable())
        EXPECT_EQ(row.layOut(empty, {}), LayoutResult::LaidOut) << row.name;
}

TEST_F(LayoutsTest, TheTreeTellsOfADiagramThatIsNone) {
    EXPECT_EQ(FindLayout(QStringLiteral("tree"))->layOut(surface, {}), LayoutResult::AsSpanningTree);
    EXPECT_EQ(FindLayout(QStringLiteral("radial"))->layOut(surface, {}), LayoutResult::LaidOut);
    EXPECT_EQ(FindLayout(QStringLiteral("star")), nullptr);
}

TEST_F(LayoutsTest, OrthogonalLinksTakeTheStyleThatSuitsTheirNewPlaces) {
    constexpr int kDownAcrossDown = 4, kSixPieces = 10;
    const auto links = [this] {
        std::vector<Link *> all;
        for (const auto &link : surface.Links()) all.push_back(link.get());
        return all;
    };
    for (const char *name : {"tree", "radial", "organic", "circular", "levels"}) {
        for (Link *link : links()) link->SetStyle(kSixPieces);
        nodes[0]->Links().Item(1).SetStyle(0);
        FindLayout(QLatin1String(name))->layOut(surface, {});
        int changed = 0;
        for (const Link *link : links()) {
            const bool straight = link == &nodes[0]->Links().Item(1);
            EXPECT_EQ(link->Style(), straight ? 0 : StyleFor(*link, kAutomaticStyle)) << name;
            changed += link->Style() != kSixPieces;
        }
        EXPECT_GT(changed, 3) << name;
    }
    surface.Remove(*surface.Links()[5]); // the one back: now it is a tree
    for (Link *link : links()) link->SetStyle(kDownAcrossDown);
    FindLayout(QStringLiteral("tree"))->layOut(surface, {});
    for (const Link *link : links()) EXPECT_EQ(link->Style(), kDownAcrossDown) << "a tree's links look alike";
}

TEST_F(LayoutsTest, LevelsAreAskedForEachNode) {
    LayoutOrder order;
    order.lane = [&](const Node &node) { return &node == nodes[2] ? 0 : 1; };
    FindLayout(QStringLiteral("levels"))->layOut(surface, order);
    for (const std::size_t i : {0U, 1U, 3U, 4U, 5U}) EXPECT_GT(nodes[i]->Left(), nodes[2]->Left()) << i;
}

} // namespace
} // namespace diagram
