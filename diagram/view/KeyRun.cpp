#include "diagram/view/KeyRun.h"

#include "diagram/model/Actions.h"

namespace diagram {

std::vector<ItemId> KeyRun::Selected() const {
    std::vector<ItemId> ids;
    for (const Node *node : surface_.SelectedNodes()) ids.push_back(node->Id());
    for (const Link *link : surface_.SelectedLinks()) ids.push_back(link->Id());
    return ids;
}

bool KeyRun::GoesOn(Kind kind, quint64 time) const {
    return kind == kind_ && surface_.Actions().Revision() == after_ && time < time_ + kRunPause &&
           Selected() == selected_;
}

// A run that has come back to where it began has left no step for the next key to go on with.
bool KeyRun::Do(Kind kind, quint64 time, const std::function<bool(bool)> &change) {
    const bool goesOn = GoesOn(kind, time);
    if (!goesOn) before_ = surface_.Actions().Revision();
    const bool done = change(goesOn);
    after_ = surface_.Actions().Revision();
    kind_ = after_ == before_ ? Kind::None : kind;
    selected_ = Selected();
    time_ = time;
    return done;
}

} // namespace diagram
