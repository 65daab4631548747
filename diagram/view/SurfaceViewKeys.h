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
    // As the functions of the view.
    bool BeginLink(LinkSide loose);
    bool BeginBend();
    bool AddKin(Kin kin);
    // Hides the size that was shown while a node was resized by keys.
    void HideSize();
    // Space is down: a press moves the view.
    bool MovesTheView() const { return spaceHeld_; }
    // The keys that are down will be released elsewhere.
    void LetGo() { spaceHeld_ = false, run_.End(); }
    // Arrow keys pressed from now on are another step of undo.
    void EndRun() { run_.End(); }
    // A key was pressed, perhaps for a command of the window.
    void NoteKey(int key);

private:
    // What the key does; true when it meant something here.
    bool Run(QKeyEvent *event);
    // The same while keys lead a gesture.
    bool Lead(QKeyEvent *event);
    bool Begin(std::unique_ptr<Gesture> gesture);
    bool InsertKey(const KeyInput &input);
    bool LinkKey(const KeyInput &input);
    bool ArrowKey(const KeyInput &input, quint64 time);
    bool MoveBy(const QPointF &distance, quint64 time);
    bool Resize(const KeyInput &input, quint64 time);
    // How far an arrow key goes, twips.
    double StepOf(const KeyInput &input) const;
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
