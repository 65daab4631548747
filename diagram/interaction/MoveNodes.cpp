#include "diagram/interaction/MoveNodes.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/Snap.h"

namespace diagram {

MoveNodes::MoveNodes(Surface &surface, Node &pressed, const PointerInput &press)
    : surface_(surface), press_(press), held_(surface.SelectedNodes()), corner_(pressed.Bounds().topLeft()) {}

QPointF MoveNodes::Distance(const PointerInput &input) const {
    QPointF distance = input.at - press_.at;
    if (Snaps(surface_, input)) distance = SnapPoint(surface_, corner_ + distance) - corner_;
    return KeepOnSurface(held_.Extent(), distance);
}

void MoveNodes::Apply(const QPointF &distance) {
    held_.RestoreBends(surface_);
    const auto dx = float(distance.x());
    const auto dy = float(distance.y());
    for (const HeldNode &held : held_.Nodes()) {
        const NodeData &from = held.data;
        if (Node *node = surface_.FindNode(held.id))
            node->SetBounds(from.left + dx, from.top + dy, from.width, from.height);
    }
    held_.MoveInnerLinks(surface_, distance);
}

std::unique_ptr<Gesture> MoveNodes::Move(const PointerInput &input) {
    Apply(Distance(input));
    return nullptr;
}

void MoveNodes::Commit(const PointerInput &input) {
    const QPointF distance = Distance(input);
    held_.Restore(surface_);
    if (distance.isNull()) return;
    const ActionGroup group(surface_);
    Apply(distance);
    surface_.Events().AfterMove(surface_);
}

void MoveNodes::Cancel() { held_.Restore(surface_); }

bool MoveSelection(Surface &surface, const QPointF &distance) {
    if (surface.SelectedNodes().empty()) return false;
    PointerInput input;
    input.modifiers = Qt::AltModifier;
    MoveNodes move(surface, *surface.SelectedNodes().front(), input);
    input.at = distance;
    move.Commit(input);
    return true;
}

} // namespace diagram
