#include "timeline/TimelineNodes.h"

#include "diagram/model/Surface.h"

namespace timeline {

int CountOccurencies(const QString &Text, const QString &Find) {
    return Find.isEmpty() ? 0 : int(Text.count(Find));
}

namespace {
bool IsMonth(const diagram::Node &node) {
    if (node.Selectable() || !node.Marked()) return false;
    return CountOccurencies(node.Text(), QStringLiteral("-")) == 1 ||
           CountOccurencies(node.Text(), QStringLiteral(" ")) == 1;
}
} // namespace

std::vector<diagram::Node *> LocateTimelineNodes(const diagram::Surface &Flow) {
    std::vector<diagram::Node *> months;
    for (diagram::Node &node : Flow.Nodes())
        if (IsMonth(node)) months.push_back(&node);
    return months;
}

bool NodeIsTimeline(const diagram::Node &Node) {
    return !Node.Selectable() && Node.Marked() && Node.Hidden();
}

} // namespace timeline
