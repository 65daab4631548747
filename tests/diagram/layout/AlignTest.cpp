#include "diagram/layout/Align.h"

#include "diagram/model/Surface.h"

#include <gmock/gmock.h>

namespace diagram {
namespace {

using ::testing::ElementsAre;

struct AlignTest : ::testing::Test {
    Surface surface;
    Node &a = surface.Nodes().Add(100, 900, 200, 100);
    Node &b = surface.Nodes().Add(1000, 100, 400, 300);
    Node &c = surface.Nodes().Add(500, 400, 100, 200);
    std::vector<Node *> all{&a, &b, &c};

    std::vector<float> Lefts() const { return {a.Left(), b.Left(), c.Left()}; }
    std::vector<float> Tops() const { return {a.Top(), b.Top(), c.Top()}; }
};

TEST_F(AlignTest, NodesLineUpAtTheOutermostEdgeOrTheMiddleOfAll) {
    AlignNodes(all, AlignTo::Right);
    EXPECT_THAT(Lefts(), ElementsAre(1200, 1000, 1300));
    AlignNodes(all, AlignTo::Left);
    EXPECT_THAT(Lefts(), ElementsAre(1000, 1000, 1000));
    AlignNodes(all, AlignTo::Centre);
    EXPECT_THAT(Lefts(), ElementsAre(1100, 1000, 1150));
    EXPECT_THAT(Tops(), ElementsAre(900, 100, 400));
    AlignNodes(all, AlignTo::Bottom);
    EXPECT_THAT(Tops(), ElementsAre(900, 700, 800));
    AlignNodes(all, AlignTo::Middle);
    EXPECT_THAT(Tops(), ElementsAre(800, 700, 750));
    AlignNodes(all, AlignTo::Top);
    EXPECT_THAT(Tops(), ElementsAre(700, 700, 700));
}

TEST_F(AlignTest, DistributingMakesTheGapsEqualAndKeepsTheOutermost) {
    DistributeNodes(all, Spread::Across);
    EXPECT_THAT(Lefts(), ElementsAre(100, 1000, 600));
    DistributeNodes(all, Spread::Down);
    EXPECT_THAT(Tops(), ElementsAre(900, 100, 550));
}

TEST_F(AlignTest, TwoNodesAreNotDistributed) {
    DistributeNodes({&a, &b}, Spread::Across);
    EXPECT_THAT(Lefts(), ElementsAre(100, 1000, 500));
}

TEST_F(AlignTest, NodesTakeTheSizeOfTheModelAroundTheirCentres) {
    MakeSameSize(all, b, SameSize::Width);
    EXPECT_THAT(Lefts(), ElementsAre(0, 1000, 350));
    EXPECT_EQ(a.Width(), 400);
    EXPECT_EQ(a.Height(), 100);
    MakeSameSize(all, b, SameSize::Both);
    EXPECT_THAT(Tops(), ElementsAre(800, 100, 350));
    EXPECT_EQ(c.Height(), 300);
}

TEST_F(AlignTest, NothingSelectedIsNothingToDo) {
    AlignNodes({}, AlignTo::Left);
    DistributeNodes({}, Spread::Down);
    MakeSameSize({}, a, SameSize::Both);
    EXPECT_THAT(Lefts(), ElementsAre(100, 1000, 500));
}

} // namespace
} // namespace diagram
