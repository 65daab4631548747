// Trials, during which routes give way for a time, and writing without any giving way.
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"

namespace diagram {

Routing::Trial::Trial(Surface &surface, std::vector<ItemId> nodes, std::vector<ItemId> links)
    : surface_(surface), nodes_(std::move(nodes)), links_(std::move(links)) {
    surface_.Routes().Settle();
    displaced_ = std::make_shared<Displaced>();
    surface_.Routes().displaced_ = displaced_;
}

void Routing::Trial::Move(const std::function<bool()> &move) {
    PutBack();
    if (!move()) return;
    Routing &routing = surface_.Routes();
    for (const ItemId id : nodes_)
        if (Node *node = surface_.FindNode(id)) routing.AfterNodeChange(*node);
    routing.moved_.insert(routing.moved_.end(), links_.begin(), links_.end());
}

void Routing::Trial::GiveUp(const std::function<void()> &restore) {
    restore();
    PutBack();
}

// Links that the nodes lie on don't give way to that.
void Routing::Trial::PutBack() {
    surface_.Routes().Keep();
    for (const auto &[id, data] : std::exchange(*displaced_, {}))
        if (Link *link = surface_.FindLink(id)) surface_.Overwrite(*link, data);
}

Routing::AsTold::AsTold(Surface &surface) : routing_(surface.Routes()) { ++routing_.asTold_; }

Routing::AsTold::~AsTold() {
    routing_.Keep();
    --routing_.asTold_;
}

} // namespace diagram
