#include "diagram/interaction/PlacedNode.h"

#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

PlacedNode::PlacedNode(Scene &scene, const Stage &stage, const PointerInput &input)
    : surface_(scene.Model()), stage_(stage), snapping_(scene, stage, nullptr), box_(QPointF(), kUsualSize) {
    box_.moveCenter(input.at);
    box_.moveTopLeft({qMax(0.0, box_.left()), qMax(0.0, box_.top())});
    box_.translate(snapping_.Move(box_, box_.topLeft(), {}, input));
}

void PlacedNode::Add(int shape) {
    NewNode node;
    node.place = box_;
    node.shape = shape;
    node.days = &stage_.Days();
    AddNewNode(surface_, node);
}

void PlacedNode::Show(int shape, Overlay &overlay) const {
    overlay.ghost = Outline(shape, surface_.Defaults().shapeOrientation, box_);
    snapping_.Show(overlay);
}

} // namespace diagram
