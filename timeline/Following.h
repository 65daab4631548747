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

// What follows the nodes that get these spans, itself not among them, with the spans that it gets: a node
// that ends later than before moves what its links lead to by as many days, where that begins before the new
// end, and so on. Of several ways to a node the longest counts. Nodes without a date end a way. What would
// come to lie beyond the years of dates stays.
std::vector<NodeSpan> Following(const std::vector<NodeSpan> &changed);

} // namespace timeline
