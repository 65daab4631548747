#include "diagram/interaction/PlaceNode.h"

#include "diagram/interaction/GrowPage.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

void AddNodeIn(Surface &surface, DayStrip &days, const QRectF &box, std::optional<int> shape) {
    Node &node =
        surface.Nodes().Add(float(box.left()), float(box.top()), float(box.width()), float(box.height()));
    if (shape) node.SetShape(*shape);
    node.SetSelected(true);
    GrowPage(surface, days, box);
    surface.Events().AfterAddNode(surface, node);
}

PlacedNode::PlacedNode(Scene &scene, const Stage &stage, const PointerInput &input)
    : surface_(scene.Model()), stage_(stage), snapping_(scene, stage, nullptr), box_(QPointF(), kUsualSize) {
    box_.moveCenter(input.at);
    box_.moveTopLeft({qMax(0.0, box_.left()), qMax(0.0, box_.top())});
    box_.translate(snapping_.Move(box_, box_.topLeft(), {}, input));
}

void PlacedNode::Add(int shape) {
    ChangeSelection(surface_, [&] {
        surface_.UnselectAll();
        AddNodeIn(surface_, stage_.Days(), box_, shape);
    });
}

void PlacedNode::Show(int shape, Overlay &overlay) const {
    overlay.ghost = Outline(shape, surface_.Defaults().shapeOrientation, box_);
    snapping_.Show(overlay);
}

} // namespace diagram
