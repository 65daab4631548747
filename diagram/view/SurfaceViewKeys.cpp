// What the keys do on a surface.
#include "diagram/interaction/AddLinked.h"
#include "diagram/interaction/LinkByKeys.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/interaction/Neighbours.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/view/KeyCodes.h"
#include "diagram/view/SurfaceViewImpl.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <typeinfo>

namespace diagram {

namespace {

constexpr double kPixelStep = 15; // twips that an arrow key moves

// Without a listener nobody asks the user whether to delete.
bool NobodyListens(const Surface &surface) {
    const SurfaceEvents &events = surface.Events();
    return typeid(events) == typeid(SurfaceEvents);
}

} // namespace

// While keys lead a gesture, those that are no modifiers are nobody else's.
void SurfaceView::Impl::KeyPress(QKeyEvent *event) {
    DropOutdatedGesture();
    const bool led = interaction.TakesKeys() && !ModifierOf(event->key());
    const int code = led ? 0 : VirtualKey(event->key());
    int used = code;
    if (code)
        surface.Events().KeyDown(surface, used, ShiftMask(event->modifiers() | ModifierOf(event->key())));
    const bool ran = (!code || used) && (led ? LeadByKey(event) : RunKey(event));
    if (ran && !ModifierOf(event->key()) && event->key() != Qt::Key_Space) NoteHand(true);
    event->setAccepted((code && !used) || ran);
    FollowModifier(event->key(), event->modifiers() | ModifierOf(event->key()));
    if (interaction.TakesKeys()) Tell(interaction.WhatNow());
    AfterInput();
}

bool SurfaceView::Impl::LeadByKey(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return CancelGesture();
    interaction.Key({event->key(), event->modifiers()});
    return true;
}

bool SurfaceView::Impl::BeginLink(LinkSide loose) {
    DropOutdatedGesture();
    if (interaction.IsActive() || editor) return false;
    if (!interaction.Begin(BeginLinkByKeys(scene, *this, loose, direction_))) return false;
    Tell(interaction.WhatNow());
    AfterInput();
    return true;
}

void SurfaceView::Impl::KeyRelease(QKeyEvent *event) {
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) spaceHeld_ = false;
    if (event->key() == Qt::Key_Alt) HideSize();
    if (const int code = VirtualKey(event->key()))
        surface.Events().KeyUp(surface, code, ShiftMask(event->modifiers() & ~ModifierOf(event->key())));
    FollowModifier(event->key(), event->modifiers() & ~ModifierOf(event->key()));
    UpdatePointer();
}

void SurfaceView::Impl::FollowModifier(int key, Qt::KeyboardModifiers modifiers) {
    if (interaction.IsActive() && ModifierOf(key)) FollowPointer(pointer_, modifiers);
}

// True when the key meant something here.
bool SurfaceView::Impl::RunKey(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        return CancelGesture();
    case Qt::Key_F2:
        return BeginEdit();
    case Qt::Key_Space:
        return spaceHeld_ = true;
    case Qt::Key_Delete:
        if (!NobodyListens(surface)) return false;
        view.DeleteSelection();
        return true;
    case Qt::Key_Insert:
        return !(event->modifiers() & ~Qt::KeypadModifier) && AddLinked();
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return Tab({event->key(), event->modifiers()});
    default:
        return LinkKey(event) || ArrowKey({event->key(), event->modifiers()}) || TypeByKey(event);
    }
}

bool SurfaceView::Impl::LinkKey(QKeyEvent *event) {
    const KeyInput input{event->key(), event->modifiers()};
    if (input.key != Qt::Key_L || !input.Ctrl() || input.Alt()) return false;
    return BeginLink(input.Shift() ? LinkSide::Source : LinkSide::Destination);
}

bool SurfaceView::Impl::ArrowKey(const KeyInput &input) {
    const QPointF direction = input.Arrow();
    if (direction.isNull() || interaction.IsActive()) return false;
    if (input.Ctrl()) return GoTowards(direction, input);
    const double step = input.Shift() ? surface.GridSize() : kPixelStep;
    if (input.Alt()) return Resize(direction * step);
    if (!MoveSelection(surface, direction * step)) {
        const int pixels = view.verticalScrollBar()->singleStep();
        viewport.ScrollTo(viewport.Scroll() + direction.toPoint() * pixels);
    } else if (const Node *node = surface.SelectedNode()) {
        view.EnsureVisible(node->Bounds());
    }
    return true;
}

bool SurfaceView::Impl::Resize(const QPointF &growth) {
    if (!ResizeSelection(surface, growth)) return false;
    const Node *node = surface.SelectedNode();
    if (!node) return true;
    view.EnsureVisible(node->Bounds());
    interaction.ShowSizeOf(node->Id());
    return true;
}

void SurfaceView::Impl::HideSize() {
    interaction.ShowSizeOf(kNoItem);
    UpdateOverlay();
}

bool SurfaceView::Impl::AddLinked() {
    if (interaction.IsActive()) return false;
    Node *from = surface.SelectedNode();
    const Node *added =
        from ? AddLinkedNode(scene, *from, direction_) : AddNodeInMiddle(scene, viewport.Seen());
    if (added) view.EnsureVisible(added->Bounds());
    return true;
}

bool SurfaceView::Impl::GoTowards(const QPointF &direction, const KeyInput &input) {
    const Node *from = surface.SelectedNode();
    if (!from) return false;
    direction_ = direction;
    return GoTo(NodeByKey(surface, from, input));
}

bool SurfaceView::Impl::GoTo(Node *node) {
    if (!node) return false;
    SelectOnly(*node);
    view.EnsureVisible(node->Bounds());
    return true;
}

bool SurfaceView::Impl::TypeByKey(QKeyEvent *event) {
    const QString text = event->text();
    const Qt::KeyboardModifiers others = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool altGr = others == (Qt::ControlModifier | Qt::AltModifier);
    if (text.isEmpty() || !text.at(0).isPrint() || (others && !altGr)) return false;
    return BeginEdit(&text);
}

// What is composed goes into the editor from the first key on.
void SurfaceView::Impl::TypeByInputMethod(QInputMethodEvent *event) {
    const QString nothing;
    const bool types = !event->preeditString().isEmpty() || !event->commitString().isEmpty();
    if (types && !editor && BeginEdit(&nothing)) QCoreApplication::sendEvent(editor, event);
}

bool SurfaceView::Impl::Tab(const KeyInput &input) {
    return GoTo(NodeByKey(surface, surface.SelectedNode(), input)) ||
           view.QAbstractScrollArea::focusNextPrevChild(input.Tab() > 0);
}

} // namespace diagram
