#include "diagram/interaction/LinkTarget.h"

#include "diagram/hit/HitTest.h"
#include "diagram/interaction/Overlay.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Router.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

namespace {

QPointF EndOn(const Node &node, const QPointF &from) {
    return OutlineCrossing(node.Shape(), node.ShapeOrientation(), node.Bounds(), from);
}

QPolygonF LoopAt(const Node &node) {
    const RouteEnd end{node.Bounds(), node.Shape(), node.ShapeOrientation()};
    RouteRequest request;
    request.source = end;
    request.destination = end;
    request.sameNode = true;
    QPolygonF loop;
    for (const Point &point : Route(request)) loop << ToQPointF(point);
    return loop;
}

} // namespace

Node *LinkTargetAt(Scene &scene, const QPointF &at) {
    Node *node = NodeAtPoint(scene, float(at.x()), float(at.y()));
    return node && node->Selectable() ? node : nullptr;
}

void ShowLooseLink(Scene &scene, const Node &fixed, const Node *target, const QPointF &at, Overlay &overlay) {
    if (target) overlay.target = scene.NodeOutline(*target);
    if (target == &fixed) {
        overlay.line = LoopAt(fixed);
        return;
    }
    const QPointF loose = target ? EndOn(*target, fixed.Bounds().center()) : at;
    overlay.line = {EndOn(fixed, target ? target->Bounds().center() : at), loose};
}

} // namespace diagram
