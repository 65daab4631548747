// Keeps orthogonal routes apart that were routed one by one: ends on one side of a node get places of their
// own, and segments that share a channel lie beside each other.
#pragma once

#include "diagram/shapes/Router.h"

#include <cstdint>

namespace diagram {

struct NudgedLink {
    RouteRequest request;          // of an orthogonal style; `old` is the route that it has
    std::uint64_t source = 0;      // the identity of its node
    std::uint64_t destination = 0; // the same
    std::uint64_t look = 0;        // links of one look that leave one node by one side may share a trunk
    bool stays = false;            // isn't moved, only in the way of others
};

// The route `old` of an orthogonal style without the bends that only the style asks for, where that makes it
// meet nothing more. The segments that aren't needed are still there, without a length.
std::vector<Point> WithoutStairs(const RouteRequest &request);

constexpr double kApart = 150; // twips between segments side by side; where there is no room, evenly less

// The routes, in the order of the links. They keep the directions of their styles, and meet no box that they
// didn't meet before. One that needn't be moved is the same to the bit.
//
// Within a channel, routes that turn off to one side lie on that side, so that no two cross that needn't.
// Small jogs are drawn straight where they can be: the segment across is still there, without a length.
std::vector<std::vector<Point>> Nudge(std::span<const NudgedLink> links);

} // namespace diagram
