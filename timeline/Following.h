// What depends on nodes whose dates change, and goes on with them.
#pragma once

#include "timeline/Span.h"

#include <vector>

namespace diagram {
class Node;
}

namespace timeline {

struct NodeSpan {
    diagram::Node *node;
    Span span;
};

// The nodes that follow those that get these spans, without these themselves, and the spans that they get: a
// node that ends later than before moves what its links lead to by as many days, where that begins before the
// new end, and so on. Of several chains of links to a node the one that moves it farthest counts. A node
// without a date ends a chain. What would come to lie beyond the years of dates stays.
std::vector<NodeSpan> Following(const std::vector<NodeSpan> &changed);

} // namespace timeline
