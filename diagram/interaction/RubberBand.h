// Selects what a rectangle encloses.
#pragma once

#include "diagram/interaction/Gesture.h"

namespace diagram {

class Scene;

// Ctrl adds to the selection.
class RubberBand : public Gesture {
public:
    RubberBand(Scene &scene, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterSelect
    void Cancel() override {}
    void Show(Overlay &overlay) const override { overlay.band = band_; }

private:
    Scene &scene_;
    PointerInput press_;
    QRectF band_;
};

} // namespace diagram
