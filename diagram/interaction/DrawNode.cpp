#include "diagram/interaction/DrawNode.h"

#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/interaction/Snap.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

DrawNode::DrawNode(Surface &surface, const PointerInput &press) : surface_(surface), press_(press) {}

QRectF DrawNode::Box(const PointerInput &input) const {
    QPointF from = press_.at;
    QPointF to = input.at;
    if (input.Shift()) {
        const double side = qMax(qAbs(to.x() - from.x()), qAbs(to.y() - from.y()));
        to = from + QPointF(to.x() < from.x() ? -side : side, to.y() < from.y() ? -side : side);
    }
    if (Snaps(surface_, input)) {
        from = SnapPoint(surface_, from);
        to = SnapPoint(surface_, to);
    }
    return QRectF(from, to).normalized() & QRectF(QPointF(0, 0), QSizeF(1e9, 1e9));
}

std::unique_ptr<Gesture> DrawNode::Move(const PointerInput &input) {
    box_ = Box(input);
    return nullptr;
}

void DrawNode::Commit(const PointerInput &input) {
    const QRectF box = Box(input);
    ChangeSelection(surface_, [&] {
        surface_.UnselectAll();
        if (box.width() < kDragDistance * input.pixel.width()) return;
        if (box.height() < kDragDistance * input.pixel.height()) return;
        Node &node = surface_.Nodes().Add(float(box.left()), float(box.top()), float(box.width()),
                                          float(box.height()));
        node.SetSelected(true);
        surface_.Events().AfterAddNode(surface_, node);
    });
}

void DrawNode::Show(Overlay &overlay) const {
    const NodeDefaults &look = surface_.Defaults();
    overlay.ghost = Outline(look.shape, look.shapeOrientation, box_);
    overlay.size = SizeText(box_.size());
    overlay.sizeUnder = box_;
}

} // namespace diagram
