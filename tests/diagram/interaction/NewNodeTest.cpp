#include "diagram/interaction/NewNode.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/PointerInput.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

namespace diagram::testing {

namespace {

class CountingEvents : public SurfaceEvents {
public:
    void AfterAddNode(Surface &surface, Node &node) override {
        ++nodes;
        if (removes) surface.Remove(node);
    }
    void AfterAddNodeLike(Surface &, Node &, const Node &like) override { modelled = like.Id(); }
    void AfterAddLink(Surface &, Link &link) override { style = link.Style(); }
    void AfterSelect(Surface &) override { ++selects; }
    int nodes = 0, selects = 0, style = -1;
    ItemId modelled = kNoItem;
    bool removes = false;
};

} // namespace

class NewNodes : public ::testing::Test {
protected:
    NewNodes() {
        AttachHistory(surface);
        surface.SetEvents(&events);
    }
    int Steps() {
        int steps = 0;
        while (surface.CanUndo()) surface.Undo(), ++steps;
        return steps;
    }
    static PointerInput At(double x, double y, Qt::KeyboardModifiers modifiers = {}) {
        return {{x, y}, {}, {15, 15}, modifiers};
    }
    Surface surface;
    CountingEvents events;
};

TEST_F(NewNodes, ClickPlacesANodeOfTheUsualSizeAroundThePointer) {
    surface.SetDefaults([] {
        NodeLook look;
        look.shape = 8;
        return look;
    }());
    const Node *node = PlaceNode(surface, At(3000, 2000));
    ASSERT_TRUE(node);
    EXPECT_EQ(node->Bounds().center(), QPointF(3000, 2000));
    EXPECT_EQ(node->Bounds().size(), kUsualSize);
    EXPECT_EQ(node->Shape(), 8);
    EXPECT_TRUE(node->Selected());
    EXPECT_EQ(events.nodes, 1);
    EXPECT_EQ(events.selects, 1);
    EXPECT_EQ(Steps(), 1);
}

TEST_F(NewNodes, AChosenShapeComesBeforeTheDefault) {
    EXPECT_EQ(PlaceNode(surface, At(3000, 2000), 5)->Shape(), 5);
    EXPECT_EQ(surface.Defaults().shape, 1);
}

TEST_F(NewNodes, TheGridDrawsTheCornerUnlessAltIsHeld) {
    surface.Screen().SetSnapToGrid(true);
    surface.Screen().SetGridSize(200);
    EXPECT_EQ(PlaceNode(surface, At(3010, 2010))->Bounds().topLeft(), QPointF(2200, 1600));
    EXPECT_EQ(PlaceNode(surface, At(3010, 2010, Qt::AltModifier))->Bounds().topLeft(), QPointF(2260, 1560));
}

TEST_F(NewNodes, BesideTheEdgeItIsMovedOntoTheSurface) {
    EXPECT_EQ(PlaceNode(surface, At(10, 2000))->Bounds().topLeft(), QPointF(0, 1550));
}

TEST_F(NewNodes, LookOfAnotherNodeIsTakenOver) {
    Node &model = surface.Nodes().Add(0, 0, 500, 500);
    model.SetFillColor(support::Rgb(1, 2, 3));
    model.SetShape(0);
    model.SetTransparent(true);
    model.SetxTextMargin(7);
    model.SetText(QStringLiteral("text"));
    NewNode wanted;
    wanted.place = {2000, 2000, 500, 500};
    wanted.like = wanted.linkedFrom = model.Id();
    wanted.linkStyle = 5;
    const Node *node = AddNewNode(surface, wanted);
    ASSERT_TRUE(node);
    EXPECT_EQ(node->Look(), model.Look());
    EXPECT_TRUE(node->Transparent());
    EXPECT_EQ(node->xTextMargin(), 7);
    EXPECT_TRUE(node->Text().isEmpty());
    EXPECT_EQ(events.modelled, model.Id());
    EXPECT_EQ(events.nodes, 0) << "it belongs where its model does";
    EXPECT_EQ(events.style, 5) << "the handler sees the link as it is";
    ASSERT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(&surface.Links()[0]->Destination(), node);
    EXPECT_EQ(Steps(), 1);
}

TEST_F(NewNodes, HandlerThatTakesTheNodeAwayGivesNone) {
    events.removes = true;
    const Node &start = surface.Nodes().Add(0, 0, 500, 500);
    NewNode wanted;
    wanted.place = {2000, 2000, 500, 500};
    wanted.linkedFrom = start.Id();
    EXPECT_EQ(AddNewNode(surface, wanted), nullptr);
    EXPECT_TRUE(surface.Links().empty());
}

} // namespace diagram::testing
