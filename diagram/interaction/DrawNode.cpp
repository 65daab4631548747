#include "diagram/interaction/DrawNode.h"

#include "diagram/interaction/NewNode.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/interaction/Snap.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

namespace {

Moving SideTowards(double distance) { return distance < 0 ? Moving::Low : Moving::High; }

QPointF SquareCorner(const QPointF &from, const QPointF &to) {
    const double side = qMax(qAbs(to.x() - from.x()), qAbs(to.y() - from.y()));
    return from + QPointF(to.x() < from.x() ? -side : side, to.y() < from.y() ? -side : side);
}

} // namespace

DrawNode::DrawNode(Scene &scene, const Stage &stage, const PointerInput &press)
    : surface_(scene.Model()),
      stage_(stage),
      press_(press),
      snapping_(scene, stage, nullptr),
      shape_(stage.ShapeToDraw()) {}

QPointF DrawNode::FarCorner(const QPointF &from, const PointerInput &input) {
    if (input.Shift()) {
        const QPointF to = SquareCorner(from, input.at);
        return Snaps(surface_, input) ? SnapPoint(surface_, to) : to;
    }
    const QPointF way = input.at - from;
    const QRectF start(from, QSizeF(0, 0));
    return from + snapping_.Resize(start, SideTowards(way.x()), SideTowards(way.y()), way, input);
}

QRectF DrawNode::Box(const PointerInput &input) {
    const QPointF from = snapping_.Corner(press_.at, input);
    const QPointF to = FarCorner(from, input);
    const QRectF box = QRectF(from, to).normalized();
    snapping_.Note(box, SideTowards(to.x() - from.x()), SideTowards(to.y() - from.y()), input);
    return box;
}

std::unique_ptr<Gesture> DrawNode::Move(const PointerInput &input) {
    box_ = Box(input);
    return nullptr;
}

// Too small a box was no drag: it only ends the selection.
void DrawNode::Commit(const PointerInput &input) {
    const QRectF box = Box(input);
    const QSizeF least = kDragDistance * input.pixel;
    if (box.width() < least.width() || box.height() < least.height())
        return ChangeSelection(surface_, [&] { surface_.UnselectAll(); });
    NewNode node;
    node.place = box;
    node.shape = shape_;
    node.days = &stage_.Days();
    AddNewNode(surface_, node);
}

void DrawNode::Show(Overlay &overlay) const {
    const NodeLook &look = surface_.Defaults();
    overlay.ghost = Outline(shape_.value_or(look.shape), look.shapeOrientation, box_);
    overlay.size = SizeText(box_.size());
    overlay.sizeUnder = box_;
    snapping_.Show(overlay);
}

} // namespace diagram
