// What the screen shows of the selection: frames, handles and the focus ring. Never printed or exported.
#pragma once

#include "diagram/model/Item.h"

#include <QRegion>

class QPainter;

namespace diagram {

class Scene;
class Sights;
class Surface;
class Viewport;

// Pixels that handles, rings and the marks of gestures reach beyond the bounds of an item.
constexpr int kHandleReach = 22;

// How the item that the keyboard acts on is told from the others.
enum class FocusRing : unsigned char { None, Faint, Strong };

// What of an item's marks depends on all that is selected.
struct SelectionForm {
    bool nodeHandles = true, linkHandles = true; // with very many only frames and lines are shown
    ItemId focus = kNoItem;                      // the node with the ring
    bool operator==(const SelectionForm &) const = default;
};
SelectionForm FormOf(const Surface &surface);

// Paints into viewport pixels what lies in `area` and is in sight. `loose` is a link that shows no handles.
void PaintSelection(QPainter &painter, Scene &scene, const Viewport &viewport, const QRegion &area,
                    FocusRing ring, ItemId loose, const Sights &sights);

} // namespace diagram
