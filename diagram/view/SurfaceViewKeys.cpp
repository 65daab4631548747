// What the keys do on a surface.
#include "diagram/interaction/AddLinked.h"
#include "diagram/interaction/BendByKeys.h"
#include "diagram/interaction/LinkByKeys.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/interaction/Neighbours.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/interaction/Snap.h"
#include "diagram/view/KeyCodes.h"
#include "diagram/view/SurfaceViewImpl.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <typeinfo>

namespace diagram {

namespace {

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

bool SurfaceView::Impl::Begin(std::unique_ptr<Gesture> gesture) {
    if (editor || !interaction.Begin(std::move(gesture))) return false;
    Tell(interaction.WhatNow());
    AfterInput();
    return true;
}

bool SurfaceView::Impl::BeginLink(LinkSide loose) {
    DropOutdatedGesture();
    if (interaction.IsActive()) return false;
    if (Begin(BeginLinkByKeys(scene, *this, loose, direction_))) return true;
    Tell(Hint::SelectFirst);
    return false;
}

bool SurfaceView::Impl::BeginBend() {
    DropOutdatedGesture();
    if (interaction.IsActive()) return false;
    Link *link = surface.SelectedLink();
    if (!link) Tell(Hint::SelectLink);
    return link && Begin(std::make_unique<BendByKeys>(surface, *this, *link));
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
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return GoAlongLinks(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return Tab({event->key(), event->modifiers()});
    default:
        return LinkKey({event->key(), event->modifiers()}) || ArrowKey({event->key(), event->modifiers()}) ||
               TypeByKey(event);
    }
}

bool SurfaceView::Impl::LinkKey(const KeyInput &input) {
    if (!input.Ctrl() || input.Alt()) return false;
    if (input.key == Qt::Key_L) return BeginLink(input.Shift() ? LinkSide::Source : LinkSide::Destination);
    return input.key == Qt::Key_B && input.Shift() && BeginBend();
}

bool SurfaceView::Impl::ArrowKey(const KeyInput &input) {
    const QPointF direction = input.Arrow();
    if (direction.isNull() || interaction.IsActive()) return false;
    if (input.Ctrl()) return GoTowards(direction, input);
    const double step = input.Shift() ? surface.GridSize() : kPixelTwips;
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

Node *SurfaceView::Impl::Anchor() const {
    const Link *link = surface.SelectedLink();
    if (Node *node = surface.SelectedNode(); node || !link) return node;
    return link->Destination().Id() == around_ ? &link->Destination() : &link->Source();
}

bool SurfaceView::Impl::GoTowards(const QPointF &direction, const KeyInput &input) {
    const Node *from = surface.SelectedNode();
    const Link *link = surface.SelectedLink();
    if (!from && !link) return false;
    direction_ = direction;
    if (!from) return GoTo(&EndTowards(*link, direction));
    Node *to = NodeByKey(surface, from, input);
    return input.Shift() ? ReachTo(to) : GoTo(to);
}

bool SurfaceView::Impl::GoAlongLinks(int step) {
    const Node *node = Anchor();
    if (!node || interaction.IsActive()) return false;
    around_ = node->Id();
    return GoTo(NextLinkOf(*node, surface.SelectedLink(), step));
}

bool SurfaceView::Impl::GoTo(Item *item) {
    if (!item) return false;
    SelectOnly(*item);
    view.EnsureVisible(scene.Bounds(*item));
    return true;
}

bool SurfaceView::Impl::ReachTo(Node *node) {
    Node *from = surface.SelectedNode();
    if (!node || !from) return false;
    if (node->Selected())
        ToggleSelected(*from);
    else
        SelectToo(*node);
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
    return GoTo(NodeByKey(surface, Anchor(), input)) ||
           view.QAbstractScrollArea::focusNextPrevChild(input.Tab() > 0);
}

} // namespace diagram
