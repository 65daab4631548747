#include "timeline/AdjustLinks.h"

#include "diagram/model/Calendar.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Shapes.h"
#include "timeline/DateWays.h"
#include "timeline/Strip.h"
#include "timeline/TimelineNodes.h"

namespace timeline {

namespace {

// Its points are never routed anew: the end that doesn't stand on the day goes with its node.
void JoinSource(diagram::Link &link) {
    const diagram::Node &source = link.Source();
    const diagram::Point towards = link.Points().Item(1);
    const QPointF end = diagram::OutlineCrossing(source.Shape(), source.ShapeOrientation(), source.Bounds(),
                                                 diagram::ToQPointF(towards));
    link.Points().SetItem(0, {float(end.x()), float(end.y())});
}

} // namespace

void AdjustLinks(diagram::Node &Node, bool Horizontal) {
    for (diagram::Link *link : Node.Links()) {
        if (NodeIsTimeline(link->Source())) {
            DoAdjustLink(*link, Horizontal, 0);
        } else if (NodeIsTimeline(link->Destination())) {
            DoAdjustLink(*link, Horizontal, link->Points().Count() - 1);
            if (diagram::IsQuietDateLink(*link))
                LayDateWay(*link, Horizontal);
            else
                JoinSource(*link);
        }
    }
}

void AdjustLinksOf(const std::vector<diagram::Node *> &nodes) {
    if (nodes.empty()) return;
    const bool horizontal = RunsRightwards(nodes.front()->Owner());
    for (diagram::Node *node : nodes) AdjustLinks(*node, horizontal);
}

void AdjustDateWaysOf(const std::vector<diagram::Node *> &nodes) {
    if (nodes.empty()) return;
    const bool horizontal = RunsRightwards(nodes.front()->Owner());
    for (const diagram::Node *node : nodes)
        for (diagram::Link *link : node->Links())
            if (NodeIsTimeline(link->Destination()) && diagram::IsQuietDateLink(*link))
                LayDateWay(*link, horizontal);
}

void DoAdjustLink(diagram::Link &Link, bool Horizontal, int Index) {
    const diagram::Node &day = Link.Destination(), &origin = Link.Source();
    Link.SetMovePointsMode(true);
    diagram::Point point = Link.Points().Item(Index);
    if (Horizontal) {
        point.x = day.Left() + day.Width() / 2;
        point.y = NodeIsAboveNode(day, origin) ? day.Top() : day.Top() + day.Height();
    } else {
        point.y = day.Top() + day.Height() / 2;
        point.x = NodeIsLeftNode(day, origin) ? day.Left() + day.Width() : day.Left();
    }
    Link.Points().SetItem(Index, point);
}

bool NodeIsLeftNode(const diagram::Node &A, const diagram::Node &B) { return A.Left() < B.Left(); }
bool NodeIsAboveNode(const diagram::Node &A, const diagram::Node &B) { return B.Top() < A.Top(); }

} // namespace timeline
