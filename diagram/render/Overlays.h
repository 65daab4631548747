// What lies above the diagram: marks and handles.
#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

class Item;

// The marking of a marked item, below the item itself.
void PaintMark(Paint &paint, const Item &item);
// The handles of all selected items that touch the area.
void PaintHandles(Paint &paint);

} // namespace diagram
