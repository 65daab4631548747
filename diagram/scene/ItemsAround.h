// How the parts of a scene ask it for items while it brings itself up to date.
#pragma once

#include "diagram/model/BoxIndex.h"

#include <functional>

namespace diagram {

class Item;

// The items that aren't hidden and whose bounds touch a box, in any order.
using ItemsAround = std::function<void(const FloatBox &, const std::function<void(const Item &)> &)>;

// Rounded outwards, as a float may lie on the wrong side of the value.
FloatBox BoxAround(const QRectF &rect);

} // namespace diagram
