#include "diagram/interaction/CopyNodes.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/interaction/CopiedDates.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/scene/Scene.h"

namespace diagram {

namespace {

constexpr size_t kMostOutlines = 300; // beyond it one frame stands for all

std::vector<Node *> NodesToCopy(Node &pressed) {
    return pressed.Selected() ? pressed.Owner().SelectedNodes() : std::vector<Node *>{&pressed};
}

} // namespace

CopyNodes::CopyNodes(Scene &scene, const Stage &stage, Node &pressed, const PointerInput &press)
    : scene_(scene),
      stage_(stage),
      press_(press),
      pressed_(pressed.Id()),
      held_(NodesToCopy(pressed)),
      snapping_(scene, stage, nullptr),
      extent_(held_.Extent()),
      corner_(pressed.Bounds().topLeft()) {
    const std::vector<Node *> nodes = NodesToCopy(pressed);
    if (nodes.size() > kMostOutlines) {
        outlines_.addRect(extent_);
        return;
    }
    for (const Node *node : nodes) outlines_.addPath(scene.NodeOutline(*node));
    for (const HeldLink &held : held_.Links()) {
        const Link *link = held.inner ? scene.Model().FindLink(held.id) : nullptr;
        if (link && !link->Hidden()) links_.addPath(scene.LinkPath(*link));
    }
}

QPointF CopyNodes::Distance(const PointerInput &input) {
    return snapping_.Move(extent_, corner_, input.at - press_.at, input);
}

std::unique_ptr<Gesture> CopyNodes::Move(const PointerInput &input) {
    Node *pressed = input.Ctrl() ? nullptr : scene_.Model().FindNode(pressed_);
    if (pressed) {
        if (!pressed->Selected()) SelectOnly(*pressed);
        return std::make_unique<MoveNodes>(scene_, stage_, *pressed, press_);
    }
    distance_ = Distance(input);
    return nullptr;
}

void CopyNodes::SelectHeld() const {
    Surface &surface = scene_.Model();
    surface.UnselectAll();
    for (const HeldNode &held : held_.Nodes())
        if (Node *node = surface.FindNode(held.id)) node->SetSelected(true);
}

void CopyNodes::Commit(const PointerInput &input) {
    const QPointF distance = Distance(input);
    if (distance.isNull()) return;
    Surface &surface = scene_.Model();
    ChangeSelection(surface, [&] {
        SelectHeld();
        const std::vector<QDate> dates = DatesOfSelected(surface, stage_.Days());
        PasteBytes(surface, SaveSelection(surface), float(distance.x()), float(distance.y()));
        const std::vector<Link *> links = surface.SelectedLinks();
        for (Link *link : links) link->SetSelected(false);
        SettleCopies(surface, stage_.Days(), dates, extent_.translated(distance), extent_);
        surface.Events().AfterMove(surface);
    });
}

void CopyNodes::Show(Overlay &overlay) const {
    overlay.ghost = outlines_.translated(distance_);
    overlay.ghostLinks = links_.translated(distance_);
    snapping_.Show(overlay);
}

} // namespace diagram
