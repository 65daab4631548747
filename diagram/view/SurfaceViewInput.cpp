#include "diagram/edit/History.h"
#include "diagram/hit/HitTest.h"
#include "diagram/interaction/Press.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/view/KeyCodes.h"
#include "diagram/view/SurfaceViewKeys.h"
#include "diagram/view/Tips.h"
#include "diagram/view/ZoomSteps.h"

#include <algorithm>
#include <cstdlib>
#include <QGestureEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QToolTip>
#include <QWheelEvent>

namespace diagram {

namespace {

constexpr int kMostNotches = 100; // enough from the lowest zoom to the highest

double Stepped(double percent, int notches) {
    for (int i = std::min(std::abs(notches), kMostNotches); i > 0; --i)
        percent = notches > 0 ? NextZoom(percent) : PreviousZoom(percent);
    return percent;
}

} // namespace

PointerInput SurfaceView::Impl::Input(const QPointF &pixels, Qt::KeyboardModifiers modifiers) const {
    return {viewport.ToSurface(pixels), pixels, viewport.Pixel(), modifiers};
}

std::optional<StripSpot> SurfaceView::Impl::SpotAt(const QPointF &pixels) {
    const auto spot = StripSpotAt(scene.TheCalendar(), viewport, view.viewport()->rect(), pixels);
    if (!spot || spot->onCopy) return spot;
    return HitFor(scene, Input(pixels, {})).kind == HitKind::Nothing ? spot : std::nullopt;
}

PointerInput SurfaceView::Impl::Meant(const QPointF &pixels, Qt::KeyboardModifiers modifiers) {
    PointerInput input = Input(pixels, modifiers);
    if (interaction.IsActive()) return input;
    const auto spot = StripSpotAt(scene.TheCalendar(), viewport, view.viewport()->rect(), pixels);
    if (spot && spot->onCopy) input.at = spot->at;
    return input;
}

// Where there is a spot of the strip no node was hit, so no text is edited.
void SurfaceView::Impl::Fold(const StripSpot &spot) {
    surface.Events().DblClick(surface);
    const ActionGroup group(surface);
    days->ToggleFold(surface, spot.piece, spot.at);
}

void SurfaceView::Impl::AfterInput() {
    if (!interaction.IsOffer()) offer.Close();
    edges.Follow(interaction.ScrollsAtEdges(), pointer, view.viewport()->size());
    UpdateOverlay();
    UpdatePointer();
    AskForFlush();
}

void SurfaceView::Impl::UpdatePointer() {
    const bool idle = !interaction.IsActive();
    if (idle && keys->MovesTheView()) return view.viewport()->setCursor(Qt::OpenHandCursor);
    const auto spot = idle && !shape ? SpotAt(pointer) : std::nullopt;
    const bool folds = spot && days->DayAt(surface, spot->at);
    view.viewport()->setCursor(folds ? Qt::PointingHandCursor : interaction.Pointer());
}

void SurfaceView::Impl::NoteHand(bool keyboard) {
    if (std::exchange(byKeyboard_, keyboard) != keyboard) view.viewport()->update();
}

// While a gesture lasts other buttons are passed over: what they open would end it half way. When its own
// button is pressed again, the release went to another window: the gesture is given up, so that it doesn't go
// on from the old place.
void SurfaceView::Impl::Press(QMouseEvent *event) {
    DropOutdatedGesture();
    const bool left = event->button() == Qt::LeftButton;
    if (interaction.IsOffer() || (interaction.TakesKeys() && (!left || keys->MovesTheView())))
        CancelGesture();
    if (interaction.IsActive() && !interaction.TakesKeys()) {
        if (event->button() != button_) return;
        CancelGesture();
    }
    NoteHand(false);
    keys->EndRun();
    text.End(true);
    endedText_ = text.HasJustEnded(); // when the focus went, or just now
    view.setFocus(Qt::MouseFocusReason);
    pointer = event->position();
    const PointerInput input = Meant(pointer, event->modifiers());
    const QPointF seen = QPointF(pointer.x() / viewport.xScale(), pointer.y() / viewport.yScale()) +
                         (input.at - viewport.ToSurface(pointer));
    surface.Events().MouseDown(surface, ButtonMask(event->button()), ShiftMask(event->modifiers()),
                               float(seen.x()), float(seen.y()));
    button_ = event->button();
    const auto spot = StripSpotAt(scene.TheCalendar(), viewport, view.viewport()->rect(), pointer);
    if (button_ == Qt::MiddleButton || (left && keys->MovesTheView()))
        interaction.PressToPan(input);
    else if (left && spot && spot->onCopy)
        SelectNothing(surface);
    else if (left)
        interaction.Press(input);
    AfterInput();
}

void SurfaceView::Impl::FollowPointer(const QPointF &pixels, Qt::KeyboardModifiers modifiers) {
    DropOutdatedGesture();
    pointer = pixels;
    pointerOver_ = view.viewport()->rect().contains(pixels.toPoint());
    modifiers_ = modifiers;
    const PointerInput input = Meant(pixels, modifiers);
    interaction.Move(input);
    repainting.SetPointed(interaction.IsActive() ? nullptr : SelectableNodeAt(scene, input.at));
    AfterInput();
}

void SurfaceView::Impl::Move(QMouseEvent *event) {
    // The release went to another window, such as one that opened under the pointer.
    if (interaction.IsActive() && !interaction.TakesKeys() && !event->buttons().testFlag(button_))
        CancelGesture();
    const QPointF at = event->position();
    surface.Events().MouseMove(surface, ButtonMask(event->buttons()), ShiftMask(event->modifiers()),
                               float(at.x() / viewport.xScale()), float(at.y() / viewport.yScale()));
    FollowPointer(at, event->modifiers());
}

void SurfaceView::Impl::Release(QMouseEvent *event) {
    DropOutdatedGesture();
    pointer = event->position();
    if (event->button() == button_ && interaction.IsActive())
        interaction.Release(Input(event->position(), event->modifiers()));
    AfterInput();
}

void SurfaceView::Impl::DoubleClick(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return Press(event);
    CancelGesture();
    const PointerInput input = Input(event->position(), event->modifiers());
    const bool plain = !input.Ctrl() && !input.Shift() && !input.Alt();
    if (const auto spot = SpotAt(input.screen); spot && (plain || spot->onCopy)) {
        if (plain) Fold(*spot);
    } else if (interaction.DoubleClick(input)) {
        BeginEdit();
    }
    AfterInput();
}

// With Shift it scrolls sideways; some platforms have turned the angle already.
void SurfaceView::Impl::Wheel(QWheelEvent *event) {
    event->accept();
    keys->EndRun();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (interaction.IsPanning()) return;
        const int notches = wheel_.Notches(event->angleDelta().y());
        if (notches != 0) view.ZoomAt(Stepped(viewport.Zoom(), notches), event->position());
        return FollowPointer(event->position(), event->modifiers());
    }
    const QPoint delta =
        event->pixelDelta().isNull() ? wheel_.Pixels(event->angleDelta()) : event->pixelDelta();
    const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier) && event->angleDelta().x() == 0;
    viewport.ScrollTo(viewport.Scroll() - (sideways ? delta.transposed() : delta));
    FollowPointer(event->position(), event->modifiers());
}

void SurfaceView::Impl::ZoomBy(double factor, const QPointF &at) {
    if (interaction.IsPanning() || !(factor > 0)) return;
    view.ZoomAt(viewport.Zoom() * factor, at);
}

bool SurfaceView::Impl::Pinch(QNativeGestureEvent *event) {
    if (event->gestureType() != Qt::ZoomNativeGesture) return false;
    ZoomBy(1 + event->value(), event->position());
    return true;
}

// The first finger may have begun to drag something.
bool SurfaceView::Impl::Pinch(QGestureEvent *event) {
    auto *pinch = static_cast<QPinchGesture *>(event->gesture(Qt::PinchGesture));
    if (!pinch) return false;
    event->accept(pinch);
    if (pinch->state() == Qt::GestureStarted) CancelGesture();
    if (!pinch->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged)) return true;
    ZoomBy(pinch->scaleFactor(), view.viewport()->mapFromGlobal(pinch->centerPoint()));
    return true;
}

void SurfaceView::Impl::AutoScroll() {
    const QPoint step = EdgeScroll::Step(pointer, view.viewport()->size());
    viewport.ScrollTo(viewport.Scroll() + step,
                      interaction.GrowsThePage() ? Viewport::Grow::Anywhere : Viewport::Grow::RightAndBelow);
    FollowPointer(pointer, modifiers_);
}

void SurfaceView::Impl::Leave() {
    pointerOver_ = false;
    interaction.Leave();
    repainting.SetPointed(nullptr);
    UpdateOverlay();
}

bool SurfaceView::Impl::ToolTip(const QPoint &pixels, const QPoint &global) {
    const bool idle = !text.Editor() && !interaction.IsActive();
    const auto spot = idle ? SpotAt(pixels) : std::nullopt;
    QString tip = spot ? days->PieceInWords(surface, spot->piece, spot->at) : QString();
    if (idle && tip.isEmpty()) tip = TipAt(scene, renderer, viewport, *days, Meant(pixels, {}).at);
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(global, Qt::convertFromPlainText(tip, Qt::WhiteSpaceNormal), view.viewport());
    return true;
}

} // namespace diagram
