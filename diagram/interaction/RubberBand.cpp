#include "diagram/interaction/RubberBand.h"

#include "diagram/interaction/Selecting.h"

namespace diagram {

RubberBand::RubberBand(Scene &scene, const PointerInput &press) : scene_(scene), press_(press) {}

std::unique_ptr<Gesture> RubberBand::Move(const PointerInput &input) {
    band_ = QRectF(press_.at, input.at).normalized();
    return nullptr;
}

void RubberBand::Commit(const PointerInput &input) {
    Move(input);
    SelectInside(scene_, band_, input.Ctrl());
}

} // namespace diagram
