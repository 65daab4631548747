// Selects what a rectangle encloses.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/model/Item.h"

#include <unordered_set>
#include <vector>

namespace diagram {

class Scene;

// The selection follows the band while it is drawn; Ctrl keeps what was selected before.
class RubberBand : public Gesture {
public:
    RubberBand(Scene &scene, const PointerInput &press);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterSelect
    void Cancel() override;
    void Show(Overlay &overlay) const override { overlay.band = band_; }

private:
    void Follow(const QRectF &band, bool add);
    void SelectAsAtThePress();
    bool DiffersFromThePress() const;

    Scene &scene_;
    PointerInput press_;
    std::vector<ItemId> before_;          // selected at the press, nodes and links in their order
    std::unordered_set<ItemId> wasThere_; // the same
    QRectF band_;
    bool adds_ = true; // until the first move nothing is unselected
};

} // namespace diagram
