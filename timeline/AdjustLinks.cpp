#include "timeline/AdjustLinks.h"

#include "diagram/model/Calendar.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Shapes.h"
#include "timeline/DateRoutes.h"
#include "timeline/Strip.h"
#include "timeline/StripPlan.h"
#include "timeline/TimelineNodes.h"

namespace timeline {

namespace {

StripBox BoxOf(const diagram::Node &node) { return {node.Left(), node.Top(), node.Width(), node.Height()}; }

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
                LayDateRoute(*link, Horizontal);
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

void AdjustDateRoutesOf(const std::vector<diagram::Node *> &nodes) {
    if (nodes.empty()) return;
    const bool horizontal = RunsRightwards(nodes.front()->Owner());
    for (const diagram::Node *node : nodes)
        for (diagram::Link *link : node->Links())
            if (NodeIsTimeline(link->Destination()) && diagram::IsQuietDateLink(*link))
                LayDateRoute(*link, horizontal);
}

void DoAdjustLink(diagram::Link &Link, bool Horizontal, int Index) {
    Link.SetMovePointsMode(true);
    const diagram::Point end = Link.Points().Item(Index);
    Link.Points().SetItem(Index, EndOnDay(BoxOf(Link.Destination()), BoxOf(Link.Source()), end, Horizontal));
}

} // namespace timeline
