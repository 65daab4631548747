// Routes that are routed and nudged once more.
#include "diagram/edit/History.h"
#include "diagram/model/Routing.h"
#include "tests/diagram/model/RouteChecks.h"

#include <gtest/gtest.h>

using namespace diagram;
using namespace diagram::testing;

namespace {

int CountChanged(const RoutesById &before, const RoutesById &after) {
    int count = 0;
    for (const auto &[id, route] : before) count += after.at(id) != route;
    return count;
}

class NudgedAgain : public ::testing::TestWithParam<unsigned> {};

} // namespace

TEST_P(NudgedAgain, RoutingAndNudgingAgainChangesNothing) {
    Dice dice(GetParam());
    Surface surface;
    BuildGrid(surface, dice, 6, 5, 1000, 40, 0);
    surface.Routes().TidyAll();
    const RoutesById before = AllRoutes(surface);
    surface.Routes().TidyAll();
    EXPECT_EQ(CountChanged(before, AllRoutes(surface)), 0);
}

TEST_P(NudgedAgain, WhatComesBackInTheGroupChangesNothing) {
    Dice dice(GetParam());
    Surface surface;
    AttachHistory(surface);
    BuildGrid(surface, dice, 5, 4, 1000, 25, 0);
    surface.Routes().TidyAll();
    const RoutesById before = AllRoutes(surface);
    for (const auto &link : surface.Links()) {
        const ActionGroup group(surface);
        const int style = link->Style();
        link->SetStyle(style == 4 ? 5 : 4);
        if (dice.Flip()) link->Route();
        link->SetStyle(style);
    }
    EXPECT_EQ(CountChanged(before, AllRoutes(surface)), 0);
    Node *moved = nullptr;
    {
        const ActionGroup group(surface);
        Node &node = AnyNode(surface, dice);
        const float left = node.Left();
        for (const float off : {60.0F, 30.0F, 0.0F}) {
            node.SetLeft(left + off);
            surface.Routes().Recalculate();
        }
        moved = &node;
    }
    for (Link *link : moved->Links()) EXPECT_EQ(link->Route(), before.at(link->Id())) << link->Id();
}

INSTANTIATE_TEST_SUITE_P(Seeds, NudgedAgain, ::testing::Range(1U, 41U));
