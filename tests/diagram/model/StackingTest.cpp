#include "diagram/model/Stacking.h"

#include "tests/diagram/model/RandomSurface.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace diagram;
using namespace diagram::testing;

TEST(Stacking, NewItemsComeOnTopNodesAndLinksTogether) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1, 1), &b = surface.Nodes().Add(9, 9, 1, 1);
    Link &link = a.Links().Add(b);
    EXPECT_EQ(a.ZOrder(), 0);
    EXPECT_EQ(b.ZOrder(), 1);
    EXPECT_EQ(link.Zorder(), 2);
    link.SetZorder(1);
    EXPECT_EQ(b.ZOrder(), 2);
    a.BringToFront();
    EXPECT_EQ(a.ZOrder(), 2);
    EXPECT_EQ(link.Zorder(), 0);
    b.SetZOrder(-5);
    EXPECT_EQ(b.ZOrder(), 0);
    b.SetZOrder(99);
    EXPECT_EQ(b.ZOrder(), 2);
}

TEST(Stacking, SettingPositionsAgreesWithAPlainList) {
    Dice dice(11);
    Surface surface;
    std::vector<Item *> order;
    for (int i = 0; i < 40; ++i) order.push_back(&surface.Nodes().Add(0, 0, 1, 1));
    for (int round = 0; round < 5000; ++round) {
        const int from = dice.Roll(0, 39), to = dice.Flip() ? dice.Roll(0, 39) : dice.Roll(7, 9);
        Item *item = order[std::size_t(from)];
        order.erase(order.begin() + from);
        order.insert(order.begin() + to, item);
        item->AsNode()->SetZOrder(to);
        ASSERT_EQ(surface.Stacking().Order(), order);
        ASSERT_EQ(item->AsNode()->ZOrder(), to);
    }
}

TEST(Stacking, ManyChangesBeforeTheOrderIsReadAgreeWithAPlainList) {
    Dice dice(13);
    Surface surface;
    std::vector<Item *> order;
    const auto add = [&] { order.push_back(&surface.Nodes().Add(0, 0, 1, 1)); };
    for (int i = 0; i < 40; ++i) add();
    for (int round = 0; round < 500; ++round) {
        for (int i = dice.Roll(1, 30); i > 0; --i) {
            const auto from = order.begin() + dice.Roll(0, int(order.size()) - 1);
            Item *item = *from;
            order.erase(from);
            switch (dice.Roll(0, 3)) {
            case 0:
                surface.Remove(*item->AsNode());
                add();
                break;
            case 1:
                item->AsNode()->BringToFront();
                order.push_back(item);
                break;
            default:
                item->AsNode()->SendToBack();
                order.insert(order.begin(), item);
            }
        }
        ASSERT_EQ(surface.Stacking().Order(), order);
    }
}

TEST(Stacking, BringingTheHighestToTheFrontAndSendingTheLowestToTheBackWriteNothing) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 1, 1);
    Node &b = surface.Nodes().Add(0, 0, 1, 1);
    const auto keys = [&] { return std::pair(a.Stack(), b.Stack()); };
    auto before = keys();
    b.BringToFront(), a.SendToBack();
    EXPECT_EQ(keys(), before);
    a.BringToFront(), b.SendToBack();
    before = keys();
    a.BringToFront(), b.SendToBack(); // the order hasn't been read since
    EXPECT_EQ(keys(), before);
}

TEST(Stacking, ItemsOfTheSameKeyAreStackedInTheOrderOfAddingUntilOneIsRaised) {
    Surface surface;
    Node &a = surface.Restore(1, NodeData{}), &b = surface.Restore(2, NodeData{});
    EXPECT_EQ(surface.Stacking().Order(), (std::vector<Item *>{&a, &b}));
    a.BringToFront();
    EXPECT_EQ(surface.Stacking().Order(), (std::vector<Item *>{&b, &a}));
    b.BringToFront(), b.SendToBack();
    EXPECT_EQ(surface.Stacking().Order(), (std::vector<Item *>{&b, &a}));
}

TEST(Stacking, RestackGivesTheStoredOrderWhenAllAreNamed) {
    Dice dice(12);
    Surface surface;
    for (int i = 0; i < 200; ++i) surface.Nodes().Add(0, 0, 1, 1);
    for (int i = 0; i < 200; ++i) AnyNode(surface, dice).Links().Add(AnyNode(surface, dice));
    std::vector<Item *> expected = surface.Stacking().Order();
    std::shuffle(expected.begin(), expected.end(), std::mt19937(3));
    std::vector<std::pair<Item *, int>> positions;
    for (std::size_t i = 0; i < expected.size(); ++i) positions.emplace_back(expected[i], int(i));
    std::shuffle(positions.begin(), positions.end(), std::mt19937(4));
    surface.Stacking().Restack(positions);
    EXPECT_EQ(surface.Stacking().Order(), expected);
    for (std::size_t i = 0; i < expected.size(); ++i)
        ASSERT_LE(expected[i]->Stack(), StackKey(401) * kStackGap);
}

TEST(Stacking, RestackLeavesTheOthersInOrderAroundTheNamed) {
    Surface surface;
    std::vector<Node *> n;
    for (int i = 0; i < 6; ++i) n.push_back(&surface.Nodes().Add(0, 0, 1, 1));
    surface.Stacking().Restack({{n[5], 0}, {n[0], 3}, {n[1], 90}});
    const std::vector<Item *> expected{n[5], n[2], n[3], n[0], n[4], n[1]};
    EXPECT_EQ(surface.Stacking().Order(), expected);
}

TEST(Stacking, AnItemThatUndoBringsBackStandsByItsKey) {
    Surface surface;
    std::vector<Item *> order;
    for (int i = 0; i < 3; ++i) order.push_back(&surface.Nodes().Add(0, 0, 1, 1));
    order[1]->AsNode()->BringToFront(); // not read before it goes
    const NodeData data = order[1]->AsNode()->Data();
    const ItemId id = order[1]->Id();
    surface.Remove(*order[1]->AsNode());
    Node &back = surface.Restore(id, data);
    EXPECT_EQ(surface.Stacking().Order(), (std::vector<Item *>{order[0], order[2], &back}));
    back.SendToBack();
    EXPECT_EQ(surface.Stacking().Order(), (std::vector<Item *>{&back, order[0], order[2]}));
}
