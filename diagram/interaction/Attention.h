// What the user is at while keys lead a gesture, for a screen reader.
#pragma once

#include "diagram/model/Item.h"

namespace diagram {

struct Attention {
    ItemId item = kNoItem;
    ItemId linkedTo = kNoItem; // the node that a link would join it to
    bool asSource = false;     // and whether the link would lead from it
};

} // namespace diagram
