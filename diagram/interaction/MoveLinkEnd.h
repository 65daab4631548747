// Drags an end of a link to another node.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/model/Surface.h"

namespace diagram {

class Scene;

class MoveLinkEnd : public Gesture {
public:
    // `atSource` tells which end is loose.
    MoveLinkEnd(Scene &scene, Stage &stage, Link &link, bool atSource);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterStretch
    void Cancel() override {}
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override { return Qt::CrossCursor; }

private:
    Scene &scene_;
    Stage &stage_;
    ItemId link_;
    ItemId target_ = kNoItem;
    QPointF at_;
    bool atSource_;
};

} // namespace diagram
