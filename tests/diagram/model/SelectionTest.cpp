#include "diagram/model/Selection.h"

#include "diagram/model/Surface.h"

#include <gtest/gtest.h>

using namespace diagram;

namespace {

class Listener : public SurfaceObserver {
public:
    void ItemChanged(Item &item, Change what) override { told.emplace_back(item.Id(), what); }
    std::vector<std::pair<ItemId, Change>> told;
};

} // namespace

TEST(Selection, TheFocusIsTheLastSelectedOfThoseStillSelected) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1, 1), &b = surface.Nodes().Add(0, 0, 1, 1),
         &c = surface.Nodes().Add(0, 0, 1, 1);
    EXPECT_EQ(surface.SelectedNode(), nullptr);
    for (Node *node : {&b, &a, &c}) node->SetSelected(true);
    EXPECT_EQ(surface.SelectedNode(), &c);
    c.SetSelected(false);
    EXPECT_EQ(surface.SelectedNode(), &a);
    surface.Remove(a);
    EXPECT_EQ(surface.SelectedNode(), &b);
    EXPECT_EQ(surface.SelectedNodes(), std::vector{&b});
    surface.UnselectAll();
    EXPECT_FALSE(b.Selected());
}

TEST(Selection, OneThatCantBeSelectedNeverIs) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1, 1), &b = surface.Nodes().Add(9, 9, 1, 1);
    Link &link = a.Links().Add(b);
    a.SetSelectable(false), link.SetSelectable(false);
    a.SetSelected(true), link.SetSelected(true);
    EXPECT_FALSE(a.Selected());
    EXPECT_TRUE(surface.SelectedNodes().empty());
    EXPECT_TRUE(surface.SelectedLinks().empty());
    a.SetSelectable(true), link.SetSelectable(true);
    a.SetSelected(true), link.SetSelected(true);
    ASSERT_EQ(surface.SelectedNode(), &a);
    ASSERT_EQ(surface.SelectedLink(), &link);
    NodeData data = a.Data();
    data.selectable = false;
    surface.Overwrite(a, data);
    link.SetSelectable(false);
    EXPECT_TRUE(surface.SelectedNodes().empty());
    EXPECT_TRUE(surface.SelectedLinks().empty());
}

TEST(Selection, EachChangeIsToldOnce) {
    Surface surface;
    Listener listener;
    Node &a = surface.Nodes().Add(0, 0, 1, 1), &b = surface.Nodes().Add(9, 9, 1, 1);
    surface.Observers().Add(listener);
    surface.Selection().Select(a, true), surface.Selection().Select(a, true);
    surface.Selection().Select(b, false);
    EXPECT_EQ(listener.told, (std::vector<std::pair<ItemId, Change>>{{a.Id(), Change::Selection}}));
    surface.Selection().Clear(), surface.Selection().Clear();
    EXPECT_EQ(listener.told.size(), 2U);
    EXPECT_TRUE(surface.Selection().IsEmpty());
}

TEST(Selection, WhatHasGoneComesBackUnselected) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1, 1), &b = surface.Nodes().Add(9, 9, 1, 1);
    Link &link = a.Links().Add(b);
    a.SetSelected(true), b.SetSelected(true), link.SetSelected(true);
    const NodeData data = a.Data();
    const ItemId id = a.Id();
    surface.Remove(a);
    EXPECT_EQ(surface.SelectedNodes(), std::vector{&b});
    EXPECT_TRUE(surface.SelectedLinks().empty());
    Node &back = surface.Restore(id, data);
    EXPECT_FALSE(back.Selected());
    back.SetSelected(true);
    EXPECT_EQ(surface.SelectedNodes(), (std::vector{&b, &back}));
    surface.Reset();
    EXPECT_TRUE(surface.Selection().IsEmpty());
    EXPECT_FALSE(surface.Restore(id, data).Selected());
}
