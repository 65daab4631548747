// What a surface tells the window that owns it, after the user has done something with it.
#pragma once

#include <QString>

namespace diagram {

class Surface;
class Node;
class Link;

namespace mouse {
constexpr int kLeft = 1, kRight = 2, kMiddle = 4; // Button
}
namespace keys {
constexpr int kShift = 1, kCtrl = 2, kAlt = 4; // Shift masks
}

// Each event is raised once, after the change was made, inside the group of the gesture that made it (so that
// what a handler changes belongs to the same step of undo).
class SurfaceEvents {
public:
    virtual ~SurfaceEvents() = default;
    virtual void AfterAddLink(Surface &, Link &) {}
    virtual void AfterAddNode(Surface &, Node &) {}
    // A node was added with the look of `like`; it is to belong where that one does.
    virtual void AfterAddNodeLike(Surface &surface, Node &node, const Node &like) {
        Q_UNUSED(like)
        AfterAddNode(surface, node);
    }
    virtual void AfterEdit(Surface &) {}    // a text was edited in place
    virtual void AfterMove(Surface &) {}    // nodes were moved
    virtual void AfterResize(Surface &) {}  // nodes were resized
    virtual void AfterSelect(Surface &) {}  // the selection changed
    virtual void AfterStretch(Surface &) {} // points of a link were moved, added or taken away
    virtual void Click(Surface &) {}
    virtual void DblClick(Surface &) {}
    // Asked whether a double click on the node leads somewhere, instead of editing its text.
    virtual bool LeadsElsewhere(const Node &) { return false; }
    // An error inside a gesture. Setting cancelDisplay keeps the component from showing it by itself.
    virtual void Error(Surface &, long number, const QString &description, bool &cancelDisplay) {
        Q_UNUSED(number)
        Q_UNUSED(description)
        Q_UNUSED(cancelDisplay)
    }
    // Windows virtual key codes (8 back, 13 return, 16 Shift, 27 escape, 46 delete ...) and keys:: masks. A
    // handler that sets keyCode to 0 has used the key up: the surface then does nothing with it.
    virtual void KeyDown(Surface &, int &keyCode, int shift) {
        Q_UNUSED(keyCode)
        Q_UNUSED(shift)
    }
    virtual void KeyUp(Surface &, int keyCode, int shift) {
        Q_UNUSED(keyCode)
        Q_UNUSED(shift)
    }
    // x, y in twips from the left top corner of what is seen, without scroll.
    virtual void MouseDown(Surface &, int button, int shift, float x, float y) {
        Q_UNUSED(button)
        Q_UNUSED(shift)
        Q_UNUSED(x)
        Q_UNUSED(y)
    }
    virtual void MouseMove(Surface &, int button, int shift, float x, float y) {
        Q_UNUSED(button)
        Q_UNUSED(shift)
        Q_UNUSED(x)
        Q_UNUSED(y)
    }
    virtual void GotFocus(Surface &) {} // handled by AddFlow1_afGotFocus
};

} // namespace diagram
