// What a picture shows and hides, whatever the items' own Hidden says.
#pragma once

#include "diagram/model/AnyItem.h"

#include <vector>

namespace diagram {

// A list about the items of one surface, which knows nothing of it. An item that isn't in the list, as it was
// added later, is shown or hidden as its own value says.
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
    // Hidden items that are set to be shown. An item may stand in it twice, or be gone by now.
    const std::vector<ItemId> &BroughtBack() const { return broughtBack_; }

private:
    enum class Sight : unsigned char { AsItSays, Shown, Hidden };
    std::vector<Sight> sights_; // by identity
    std::vector<ItemId> broughtBack_;
};

} // namespace diagram
