#include "diagram/view/SurfaceViewKeys.h"

#include "diagram/interaction/BendByKeys.h"
#include "diagram/interaction/DateEnds.h"
#include "diagram/interaction/DateNodes.h"
#include "diagram/interaction/LinkByKeys.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/interaction/ResizeNodes.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/interaction/Snap.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/view/KeyCodes.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <typeinfo>

namespace diagram {

namespace {

// Days that an arrow key goes along a strip of days.
int DaysOf(const KeyInput &input) { return input.Shift() ? 7 : 1; }

// Whether the surface has no listener, which would ask the user whether to delete.
bool NobodyListens(const Surface &surface) {
    const SurfaceEvents &events = surface.Events();
    return typeid(events) == typeid(SurfaceEvents);
}

} // namespace

SurfaceView::Impl::Keys::Keys(Impl &impl)
    : impl_(impl),
      view_(impl.view),
      surface_(impl.surface),
      interaction_(impl.interaction),
      walk_(impl.scene, [&impl](const QRectF &area) { impl.EnsureVisible(area); }),
      run_(impl.surface) {}

void SurfaceView::Impl::Keys::NoteKey(int key) {
    if (KeyInput{key, {}}.Arrow().isNull() && !ModifierOf(key)) EndRun();
}

// While keys lead a gesture no event is raised for them, unless they are modifiers.
void SurfaceView::Impl::Keys::Press(QKeyEvent *event) {
    impl_.DropOutdatedGesture();
    NoteKey(event->key());
    const bool led = interaction_.TakesKeys() && !ModifierOf(event->key());
    const int code = led ? 0 : VirtualKey(event->key());
    int used = code;
    if (code)
        surface_.Events().KeyDown(surface_, used, ShiftMask(event->modifiers() | ModifierOf(event->key())));
    const bool ran = (!code || used) && (led ? Lead(event) : Run(event));
    if (ran && !ModifierOf(event->key()) && event->key() != Qt::Key_Space) impl_.NoteHand(true);
    event->setAccepted((code && !used) || ran);
    FollowModifier(event->key(), event->modifiers() | ModifierOf(event->key()));
    if (interaction_.TakesKeys()) impl_.Tell(interaction_.WhatNow());
    impl_.AfterInput();
}

bool SurfaceView::Impl::Keys::Lead(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return impl_.CancelGesture();
    interaction_.Key({event->key(), event->modifiers()});
    return true;
}

bool SurfaceView::Impl::Keys::Begin(std::unique_ptr<Gesture> gesture) {
    if (impl_.text.Editor() || !interaction_.Begin(std::move(gesture))) return false;
    impl_.Tell(interaction_.WhatNow());
    impl_.AfterInput();
    return true;
}

bool SurfaceView::Impl::Keys::BeginLink(LinkSide loose) {
    impl_.DropOutdatedGesture();
    if (interaction_.IsActive()) return false;
    if (Begin(BeginLinkByKeys(impl_.scene, impl_, loose, walk_.Direction()))) return true;
    impl_.Tell(Hint::SelectFirst);
    return false;
}

bool SurfaceView::Impl::Keys::BeginBend() {
    impl_.DropOutdatedGesture();
    if (interaction_.IsActive()) return false;
    Link *link = surface_.SelectedLink();
    if (!link) impl_.Tell(Hint::SelectLink);
    return link && Begin(std::make_unique<BendByKeys>(surface_, impl_, *link));
}

void SurfaceView::Impl::Keys::Release(QKeyEvent *event) {
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) spaceHeld_ = false;
    if (event->key() == Qt::Key_Alt) HideSize();
    if (const int code = VirtualKey(event->key()))
        surface_.Events().KeyUp(surface_, code, ShiftMask(event->modifiers() & ~ModifierOf(event->key())));
    FollowModifier(event->key(), event->modifiers() & ~ModifierOf(event->key()));
    impl_.UpdatePointer();
}

void SurfaceView::Impl::Keys::FollowModifier(int key, Qt::KeyboardModifiers modifiers) {
    if (!ModifierOf(key)) return;
    if (interaction_.IsActive()) return impl_.FollowPointer(impl_.pointer, modifiers);
    interaction_.NoteModifiers(modifiers);
    impl_.UpdateOverlay();
}

bool SurfaceView::Impl::Keys::Run(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        return impl_.CancelGesture() || impl_.DropShape();
    case Qt::Key_F2:
        return impl_.BeginEdit();
    case Qt::Key_Space:
        return spaceHeld_ = true;
    case Qt::Key_Delete:
        if (!NobodyListens(surface_)) return false;
        view_.DeleteSelection();
        return true;
    case Qt::Key_Insert:
        return InsertKey({event->key(), event->modifiers()});
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !interaction_.IsActive() &&
               walk_.AlongLinks(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return Tab({event->key(), event->modifiers()});
    default:
        return LinkKey({event->key(), event->modifiers()}) ||
               ArrowKey({event->key(), event->modifiers()}, event->timestamp()) || Type(event);
    }
}

bool SurfaceView::Impl::Keys::LinkKey(const KeyInput &input) {
    if (!input.Ctrl() || input.Alt()) return false;
    if (input.key == Qt::Key_L) return BeginLink(input.Shift() ? LinkSide::Source : LinkSide::Destination);
    return input.key == Qt::Key_B && input.Shift() && BeginBend();
}

bool SurfaceView::Impl::Keys::ArrowKey(const KeyInput &input, quint64 time) {
    const QPointF direction = input.Arrow();
    if (direction.isNull() || interaction_.IsActive()) return false;
    if (input.Ctrl()) return walk_.Towards(direction, input);
    if (input.Alt()) return Resize(input, time);
    if (MoveSelectionByDays(surface_, impl_.Days(), direction, DaysOf(input))) {
        if (const Node *node = surface_.SelectedNode()) view_.EnsureVisible(node->Bounds());
        return true;
    }
    if (MoveBy(direction * StepOf(input), time)) return true;
    const int pixels = view_.verticalScrollBar()->singleStep();
    impl_.viewport.ScrollTo(impl_.viewport.Scroll() + direction.toPoint() * pixels);
    return true;
}

double SurfaceView::Impl::Keys::StepOf(const KeyInput &input) const {
    return input.Shift() ? surface_.Screen().GridSize() : kKeyStep;
}

bool SurfaceView::Impl::Keys::MoveBy(const QPointF &distance, quint64 time) {
    const bool moved = run_.Do(KeyRun::Kind::Move, time, [&](bool goesOn) {
        return MoveSelection(surface_, impl_.Days(), distance, goesOn);
    });
    const Node *node = moved ? surface_.SelectedNode() : nullptr;
    if (node) view_.EnsureVisible(node->Bounds());
    return moved;
}

bool SurfaceView::Impl::Keys::Resize(const KeyInput &input, quint64 time) {
    const bool resized = run_.Do(KeyRun::Kind::Resize, time, [&](bool goesOn) {
        return MoveEndsByDays(surface_, impl_.Days(), input.Arrow(), DaysOf(input), goesOn) ||
               ResizeSelection(surface_, impl_.Days(), input.Arrow() * StepOf(input), goesOn);
    });
    const Node *node = resized ? surface_.SelectedNode() : nullptr;
    if (!node) return resized;
    view_.EnsureVisible(node->Bounds());
    interaction_.ShowSizeOf(node->Id());
    return true;
}

void SurfaceView::Impl::Keys::HideSize() {
    interaction_.ShowSizeOf(kNoItem);
    impl_.UpdateOverlay();
}

bool SurfaceView::Impl::Keys::InsertKey(const KeyInput &input) {
    const Qt::KeyboardModifiers modifiers = input.modifiers & ~Qt::KeypadModifier;
    if (modifiers && modifiers != Qt::AltModifier) return false;
    return AddKin(modifiers ? Kin::Sibling : Kin::Child);
}

bool SurfaceView::Impl::Keys::AddKin(Kin kin) {
    impl_.DropOutdatedGesture();
    if (interaction_.IsActive()) return false;
    impl_.text.End(true);
    Node *from = surface_.SelectedNode();
    const Node *added = from ? diagram::AddKin(impl_.scene, *from, kin, walk_.Direction())
                             : AddNodeInMiddle(impl_.scene, impl_.viewport.Seen());
    if (!added) return true;
    view_.EnsureVisible(added->Bounds());
    return impl_.BeginEdit();
}

bool SurfaceView::Impl::Keys::Type(QKeyEvent *event) {
    const QString typed = event->text();
    const Qt::KeyboardModifiers others = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const bool altGr = others == (Qt::ControlModifier | Qt::AltModifier);
    if (typed.isEmpty() || !typed.at(0).isPrint() || (others && !altGr)) return false;
    return impl_.BeginEdit(&typed);
}

// What is composed goes into the editor from the first key on.
void SurfaceView::Impl::Keys::TypeByInputMethod(QInputMethodEvent *event) {
    const QString nothing;
    const bool types = !event->preeditString().isEmpty() || !event->commitString().isEmpty();
    if (types && !impl_.text.Editor() && impl_.BeginEdit(&nothing))
        QCoreApplication::sendEvent(impl_.text.Editor(), event);
}

bool SurfaceView::Impl::Keys::Tab(const KeyInput &input) {
    return walk_.ByTab(input) || view_.QAbstractScrollArea::focusNextPrevChild(input.Tab() > 0);
}

} // namespace diagram
