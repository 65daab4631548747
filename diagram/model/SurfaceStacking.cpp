// The stacking of a surface. Each item has a key, with gaps between the keys, so that moving one item writes
// one item.
#include "diagram/model/Surface.h"

#include <algorithm>
#include <utility>

namespace diagram {

namespace {

bool LiesBelow(const Item *a, const Item *b) {
    return std::pair(a->Stack(), a->Id()) < std::pair(b->Stack(), b->Id());
}

} // namespace

const std::vector<Item *> &Surface::StackingOrder() const {
    if (!stackingStale_) return stacking_;
    stacking_.clear();
    stacking_.reserve(nodes_.size() + links_.size());
    for (const auto &node : nodes_) stacking_.push_back(node.get());
    for (const auto &link : links_) stacking_.push_back(link.get());
    std::ranges::sort(stacking_, LiesBelow);
    stackingStale_ = false;
    return stacking_;
}

// An item has come into the collections.
void Surface::NoteStacked(Item &item) {
    if (!stackingStale_ && (stacking_.empty() || LiesBelow(stacking_.back(), &item))) {
        stacking_.push_back(&item);
    } else {
        stackingStale_ = true;
    }
    topStack_ = std::max(topStack_, item.Stack());
}

// The key of an item was written.
void Surface::NoteRestacked(Item &item) {
    stackingStale_ = true;
    topStack_ = std::max(topStack_, item.Stack());
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
    topStack_ = std::max(topStack_, key);
    Notify(item, Change::Stacking);
}

// Gives every item a new key in the present order, with even gaps.
void Surface::SpreadKeys() {
    StackKey key = 0;
    for (Item *item : StackingOrder()) WriteStack(*item, key += kStackGap);
    topStack_ = key;
}

void Surface::SetStackPosition(Item &item, int position) {
    StackingOrder();
    const int last = int(stacking_.size()) - 1;
    const int from = StackPosition(item);
    const int to = std::clamp(position, 0, last);
    if (from == to) return;
    if (to == last) return BringToFront(item);
    if (to == 0) return SendToBack(item);
    const auto below = [&] { return stacking_[std::size_t(to < from ? to - 1 : to)]->Stack(); };
    const auto above = [&] { return stacking_[std::size_t(to < from ? to : to + 1)]->Stack(); };
    if (above() - below() < 2) SpreadKeys();
    const StackKey key = below() + (above() - below()) / 2;
    const auto begin = stacking_.begin();
    if (from < to) {
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    } else {
        std::rotate(begin + to, begin + from, begin + from + 1);
    }
    WriteStack(item, key);
}

void Surface::BringToFront(Item &item) {
    StackingOrder();
    if (stacking_.back() == &item) return;
    std::erase(stacking_, &item);
    stacking_.push_back(&item);
    WriteStack(item, topStack_ + kStackGap);
}

void Surface::SendToBack(Item &item) {
    StackingOrder();
    if (stacking_.front() == &item) return;
    const StackKey bottom = stacking_.front()->Stack();
    std::erase(stacking_, &item);
    stacking_.insert(stacking_.begin(), &item);
    WriteStack(item, bottom - kStackGap);
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
    if (order == stacking_) return;
    stacking_ = std::move(order);
    SpreadKeys();
}

} // namespace diagram
