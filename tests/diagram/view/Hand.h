// The user's hand on a view: sends it the events of a mouse and a keyboard.
#pragma once

#include <QPoint>
#include <Qt>

namespace diagram {
class Node;
class SurfaceView;
} // namespace diagram

namespace diagram::testing {

// Points are pixels of the viewport. After each event the event loop has run.
class Hand {
public:
    explicit Hand(SurfaceView &view) : view_(view) {}

    void Press(const QPoint &at, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton);
    void MoveTo(const QPoint &at, Qt::KeyboardModifiers modifiers = {});
    void Release(const QPoint &at, Qt::KeyboardModifiers modifiers = {},
                 Qt::MouseButton button = Qt::LeftButton);
    void DoubleClick(const QPoint &at, Qt::KeyboardModifiers modifiers = {});
    // Press and three moves, without the release.
    void DragAndHold(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = {});
    void Wheel(const QPoint &at, int angle, Qt::KeyboardModifiers modifiers = {});
    // To the widget with the focus, as a keyboard does.
    void KeyPress(int key, Qt::KeyboardModifiers modifiers = {});
    void KeyRelease(int key, Qt::KeyboardModifiers modifiers = {});
    void Key(int key, Qt::KeyboardModifiers modifiers = {});
    void Type(const char *text);

    // Where the pointer is.
    const QPoint &At() const { return at_; }

private:
    SurfaceView &view_;
    QPoint at_;
    Qt::MouseButtons held_;
};

// Where a hand grasps a node, pixels of the viewport.
QPoint LinkStartOf(const SurfaceView &view, const Node &node, int side); // 0 above, clockwise
QPoint HandleOf(const SurfaceView &view, const Node &node, int handle);  // 0 left top, clockwise

} // namespace diagram::testing
