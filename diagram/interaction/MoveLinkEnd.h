// Drags an end of a link to another node.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/LooseEnd.h"

namespace diagram {

class MoveLinkEnd : public Gesture {
public:
    MoveLinkEnd(Scene &scene, Stage &stage, Link &link, LinkSide side);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterStretch
    void Cancel() override {}
    void Show(Overlay &overlay) const override;
    Qt::CursorShape Pointer() const override { return Qt::CrossCursor; }

private:
    Scene &scene_;
    Stage &stage_;
    LooseEnd end_;
    ItemId target_ = kNoItem;
    QPainterPath line_; // that the link would have, twips
};

} // namespace diagram
