// What a picture shows and hides in place of what the items say themselves.
#pragma once

#include "diagram/model/AnyItem.h"

#include <vector>

namespace diagram {

// Values about the items of one surface, which knows nothing of them. An item that is added later is as it
// says.
class Sights {
public:
    bool IsEmpty() const { return sights_.empty(); }

    void Set(const Item &item, bool hidden) {
        const std::size_t id = item.Id();
        if (id >= sights_.size()) sights_.resize(std::max(2 * sights_.size(), id + 1));
        sights_[id] = hidden ? Sight::Hidden : Sight::Shown;
        if (!hidden && IsHidden(item)) broughtBack_.push_back(item.Id());
    }
    bool Hides(const Item &item) const {
        const Sight sight = item.Id() < sights_.size() ? sights_[item.Id()] : Sight::AsItSays;
        return sight == Sight::AsItSays ? IsHidden(item) : sight == Sight::Hidden;
    }
    // Items that were hidden when they were set as shown, some perhaps twice or gone by now.
    const std::vector<ItemId> &BroughtBack() const { return broughtBack_; }

private:
    enum class Sight : unsigned char { AsItSays, Shown, Hidden };
    std::vector<Sight> sights_; // by identity
    std::vector<ItemId> broughtBack_;
};

} // namespace diagram
