#include "diagram/interaction/MoveNodes.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/CopyNodes.h"
#include "diagram/interaction/DateNodes.h"
#include "diagram/interaction/GrowPage.h"
#include "diagram/scene/Scene.h"

namespace diagram {

namespace {

void MoveInOneStep(Surface &surface, DayStrip &days, const HeldItems &held, const QPointF &distance) {
    if (distance.isNull()) return;
    const ActionGroup group(surface);
    held.MoveBy(surface, distance);
    GrowPage(surface, days, held.Extent().translated(distance), held.Extent());
    surface.Events().AfterMove(surface);
}

} // namespace

MoveNodes::MoveNodes(Scene &scene, const Stage &stage, Node &pressed, const PointerInput &press)
    : scene_(scene),
      stage_(stage),
      surface_(scene.Model()),
      press_(press),
      pressed_(pressed.Id()),
      held_(surface_.SelectedNodes()),
      snapping_(scene, stage, &held_),
      extent_(held_.Extent()),
      corner_(pressed.Bounds().topLeft()) {}

QPointF MoveNodes::Distance(const PointerInput &input) {
    return snapping_.Move(extent_, corner_, input.at - press_.at, input);
}

std::unique_ptr<Gesture> MoveNodes::Move(const PointerInput &input) {
    Node *pressed = surface_.FindNode(pressed_);
    if (pressed && input.Ctrl()) {
        held_.Restore(surface_);
        return std::make_unique<CopyNodes>(scene_, stage_, *pressed, press_);
    }
    if (pressed && DateNodes::Begins(stage_, *pressed, input)) {
        held_.Restore(surface_);
        return std::make_unique<DateNodes>(scene_, stage_, *pressed, press_);
    }
    held_.MoveBy(surface_, Distance(input));
    return nullptr;
}

void MoveNodes::Commit(const PointerInput &input) {
    const QPointF distance = Distance(input);
    held_.Restore(surface_);
    MoveInOneStep(surface_, stage_.Days(), held_, distance);
}

void MoveNodes::Cancel() { held_.Restore(surface_); }

bool MoveSelection(Surface &surface, DayStrip &days, const QPointF &distance, bool goesOn) {
    if (surface.SelectedNodes().empty()) return false;
    const ActionGroup group(surface, goesOn);
    MoveInOneStep(surface, days, HeldItems(surface.SelectedNodes()), distance);
    days.Settle(surface, surface.SelectedNodes());
    return true;
}

} // namespace diagram
