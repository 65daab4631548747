// The stacking of a surface. Each item has a key, with gaps between the keys, so that moving one item writes
// one item.
#include "diagram/model/AnyItem.h"
#include "diagram/model/Surface.h"

#include <algorithm>
#include <utility>

namespace diagram {

const std::vector<Item *> &Surface::StackingOrder() const {
    if (restacked_.empty()) return stacking_;
    std::erase_if(stacking_, [](const Item *item) { return item->restacked_; });
    std::ranges::sort(restacked_, LiesBelow);
    for (Item *item : restacked_) item->restacked_ = false;
    const auto sorted = std::ptrdiff_t(stacking_.size());
    stacking_.insert(stacking_.end(), restacked_.begin(), restacked_.end());
    std::inplace_merge(stacking_.begin(), stacking_.begin() + sorted, stacking_.end(), LiesBelow);
    restacked_.clear();
    return stacking_;
}

// An item has come into the collections.
void Surface::NoteStacked(Item &item) {
    if (!restacked_.empty() || (!stacking_.empty() && !LiesBelow(stacking_.back(), &item))) {
        return NoteRestacked(item);
    }
    stacking_.push_back(&item);
    topStack_ = std::max(topStack_, item.Stack());
    bottomStack_ = std::min(bottomStack_, item.Stack());
}

// The key of an item was written.
void Surface::NoteRestacked(Item &item) {
    if (!std::exchange(item.restacked_, true)) restacked_.push_back(&item);
    topStack_ = std::max(topStack_, item.Stack());
    bottomStack_ = std::min(bottomStack_, item.Stack());
}

int Surface::StackPosition(const Item &item) const {
    const auto &order = StackingOrder();
    return int(std::lower_bound(order.begin(), order.end(), &item, LiesBelow) - order.begin());
}

void Surface::WriteStack(Item &item, StackKey key) {
    if (item.Stack() == key) return;
    if (Node *node = item.AsNode()) {
        Record(*node);
        node->data_.stack = key;
    } else {
        Record(*item.AsLink());
        item.AsLink()->data_.stack = key;
    }
    NoteRestacked(item);
    Notify(item, Change::Stacking);
}

// Gives every item a new key, with even gaps, so that they stand in this order.
void Surface::SpreadKeys(const std::vector<Item *> &order) {
    StackKey key = 0;
    for (Item *item : order) WriteStack(*item, key += kStackGap);
    topStack_ = key;
    stacking_ = order;
    for (Item *item : std::exchange(restacked_, {})) item->restacked_ = false;
}

void Surface::SetStackPosition(Item &item, int position) {
    const auto &order = StackingOrder();
    const int last = int(order.size()) - 1;
    const int from = StackPosition(item);
    const int to = std::clamp(position, 0, last);
    if (from == to) return;
    if (to == last) return BringToFront(item);
    if (to == 0) return SendToBack(item);
    const Item &below = *order[std::size_t(to < from ? to - 1 : to)];
    const Item &above = *order[std::size_t(to < from ? to : to + 1)];
    if (above.Stack() - below.Stack() < 2) SpreadKeys(std::vector<Item *>(order));
    WriteStack(item, below.Stack() + (above.Stack() - below.Stack()) / 2);
}

// False for an item that surely doesn't stand at the end of the order where keys go up to `outermost`, and
// for one of which only sorting would tell: writing a key too many is cheaper than sorting for each item.
bool Surface::MayBeAtEnd(const Item &item, StackKey outermost) const {
    return restacked_.empty() || item.Stack() == outermost;
}

void Surface::BringToFront(Item &item) {
    if (MayBeAtEnd(item, topStack_) && StackingOrder().back() == &item) return;
    WriteStack(item, topStack_ + kStackGap);
}

void Surface::SendToBack(Item &item) {
    if (MayBeAtEnd(item, bottomStack_) && StackingOrder().front() == &item) return;
    WriteStack(item, bottomStack_ - kStackGap);
}

void Surface::Restack(const std::vector<std::pair<Item *, int>> &positions) {
    std::vector<std::pair<Item *, int>> named = positions;
    std::ranges::stable_sort(named, {}, &std::pair<Item *, int>::second);
    for (const auto &entry : named) entry.first->doomed_ = true; // here: taken out of the rest
    std::vector<Item *> order;
    order.reserve(StackingOrder().size());
    std::vector<Item *> rest;
    for (Item *item : stacking_) {
        if (!item->doomed_) rest.push_back(item);
    }
    auto other = rest.begin();
    for (const auto &[item, position] : named) {
        if (!std::exchange(item->doomed_, false)) continue; // named twice: the first counts
        while (other != rest.end() && int(order.size()) < position) order.push_back(*other++);
        order.push_back(item);
    }
    order.insert(order.end(), other, rest.end());
    if (order != stacking_) SpreadKeys(order);
}

} // namespace diagram
