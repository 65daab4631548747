// What the keys do on a surface.
#pragma once

#include "diagram/interaction/AddLinked.h"
#include "diagram/interaction/LooseEnd.h"
#include "diagram/view/KeyRun.h"
#include "diagram/view/KeyWalk.h"
#include "diagram/view/SurfaceViewImpl.h"

namespace diagram {

class SurfaceView::Impl::Keys {
public:
    explicit Keys(Impl &impl);

    void Press(QKeyEvent *event);
    void Release(QKeyEvent *event);
    void TypeByInputMethod(QInputMethodEvent *event);
    // As those of the view.
    bool BeginLink(LinkSide loose);
    bool BeginBend();
    bool AddKin(Kin kin);
    // Of a node that was resized by keys.
    void HideSize();
    // Space is down: a press moves the view.
    bool MovesTheView() const { return spaceHeld_; }
    // Keys that are down are somebody else's from now on.
    void LetGo() { spaceHeld_ = false, run_.End(); }
    // Arrow keys pressed from now on are another step of undo.
    void EndRun() { run_.End(); }
    // A key was pressed, perhaps for a command of the window.
    void NoteKey(int key);

private:
    bool Run(QKeyEvent *event);
    // The same while keys lead a gesture.
    bool Lead(QKeyEvent *event);
    bool Begin(std::unique_ptr<Gesture> gesture);
    bool InsertKey(const KeyInput &input);
    bool LinkKey(const KeyInput &input);
    bool ArrowKey(const KeyInput &input, quint64 time);
    bool MoveBy(const QPointF &distance, quint64 time);
    bool Resize(const QPointF &growth, quint64 time);
    bool Tab(const KeyInput &input);
    // A modifier went up or down: the gesture looks at it at once.
    void FollowModifier(int key, Qt::KeyboardModifiers modifiers);
    bool Type(QKeyEvent *event);

    Impl &impl_;
    SurfaceView &view_;
    Surface &surface_;
    Interaction &interaction_;
    KeyWalk walk_;
    KeyRun run_;
    bool spaceHeld_ = false;
};

} // namespace diagram
