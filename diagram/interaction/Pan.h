// Drags the sheet under the window.
#pragma once

#include "diagram/interaction/Gesture.h"

namespace diagram {

class Pan : public Gesture {
public:
    Pan(Stage &stage, const PointerInput &press)
        : stage_(stage), press_(press), start_(stage.ScrollOffset()) {}

    std::unique_ptr<Gesture> Move(const PointerInput &input) override {
        stage_.SetScrollOffset(start_ - (input.screen - press_.screen));
        return nullptr;
    }
    void Commit(const PointerInput &input) override { Move(input); }
    void Cancel() override { stage_.SetScrollOffset(start_); }
    Qt::CursorShape Pointer() const override { return Qt::ClosedHandCursor; }
    bool ScrollsAtEdges() const override { return false; }
    bool MovesTheView() const override { return true; }

private:
    Stage &stage_;
    PointerInput press_;
    QPointF start_;
};

} // namespace diagram
