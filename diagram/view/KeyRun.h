// Keys pressed in a row that together are one step of undo.
#pragma once

#include "diagram/model/Revision.h"
#include "diagram/model/Surface.h"

#include <functional>
#include <vector>

namespace diagram {

// Milliseconds without a key that end a run.
constexpr quint64 kRunPause = 1500;

// A run ends with another selection, with any other change of the content, with a pause, and with End.
class KeyRun {
public:
    enum class Kind : unsigned char { None, Move, Resize, Date };

    explicit KeyRun(Surface &surface) : surface_(surface) {}

    // Runs `change` for a key that was pressed at `time` (milliseconds of whatever clock). It is told whether
    // its step goes on with the last one.
    bool Do(Kind kind, quint64 time, const std::function<bool(bool goesOn)> &change);
    void End() { kind_ = Kind::None; }

private:
    bool GoesOn(Kind kind, quint64 time) const;
    std::vector<ItemId> Selected() const;

    Surface &surface_;
    Kind kind_ = Kind::None;
    Revision before_, after_; // of the surface, around the run
    std::vector<ItemId> selected_;
    quint64 time_ = 0; // of the last key
};

} // namespace diagram
