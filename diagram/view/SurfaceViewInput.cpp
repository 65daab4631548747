#include "diagram/view/KeyCodes.h"
#include "diagram/view/SurfaceViewImpl.h"

#include <cmath>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

namespace diagram {

namespace {

constexpr int kEdge = 12;           // pixels from the edge at which a drag scrolls
constexpr int kScrollInterval = 25; // milliseconds
constexpr int kFastest = 40;        // pixels a step
constexpr double kZoomStep = 1.15;  // a notch of the wheel
constexpr double kNotch = 120;
constexpr int kLongestTip = 2000; // characters
constexpr double kReadable = 5;   // pixels of a font's height

// How far a drag scrolls when the pointer is at `at` of `length`.
int EdgeStep(double at, int length) {
    const double beyond = at < kEdge ? at - kEdge : (at > length - kEdge ? at - (length - kEdge) : 0);
    return std::clamp(int(std::round(beyond)), -kFastest, kFastest);
}

bool IsLegible(const Font &font, double scale) {
    constexpr double kTwipsPerPoint = 20;
    return font.Size() * kTwipsPerPoint * scale >= kReadable;
}

} // namespace

PointerInput SurfaceView::Impl::Input(const QPointF &pixels, Qt::KeyboardModifiers modifiers) const {
    return {viewport.ToSurface(pixels), pixels, viewport.Pixel(), modifiers};
}

void SurfaceView::Impl::AfterInput() {
    StartOrStopAutoScroll();
    UpdateOverlay();
    UpdatePointer();
    AskForFlush();
}

void SurfaceView::Impl::UpdatePointer() {
    const bool idle = !interaction.IsActive();
    view.viewport()->setCursor(idle && spaceHeld_ ? Qt::OpenHandCursor : interaction.Pointer());
}

void SurfaceView::Impl::NoteHand(bool keyboard) {
    if (std::exchange(byKeyboard_, keyboard) != keyboard) view.viewport()->update();
}

// While a gesture lasts other buttons mean nothing: what they open would end it half way. Its own button is
// pressed again only where the release went to somebody else; what is dragged then must not go on from the
// old place.
void SurfaceView::Impl::Press(QMouseEvent *event) {
    DropOutdatedGesture();
    const bool left = event->button() == Qt::LeftButton;
    if (interaction.TakesKeys() && (!left || spaceHeld_)) CancelGesture();
    if (interaction.IsActive() && !interaction.TakesKeys()) {
        if (event->button() != button_) return;
        CancelGesture();
    }
    NoteHand(false);
    EndEdit(true);
    view.setFocus(Qt::MouseFocusReason);
    pointer_ = event->position();
    const QPointF seen(pointer_.x() / viewport.xScale(), pointer_.y() / viewport.yScale());
    surface.Events().MouseDown(surface, ButtonMask(event->button()), ShiftMask(event->modifiers()),
                               float(seen.x()), float(seen.y()));
    button_ = event->button();
    const PointerInput input = Input(pointer_, event->modifiers());
    if (button_ == Qt::MiddleButton || (left && spaceHeld_))
        interaction.PressToPan(input);
    else if (left)
        interaction.Press(input);
    AfterInput();
}

void SurfaceView::Impl::FollowPointer(const QPointF &pixels, Qt::KeyboardModifiers modifiers) {
    DropOutdatedGesture();
    pointer_ = pixels;
    modifiers_ = modifiers;
    interaction.Move(Input(pixels, modifiers));
    AfterInput();
}

void SurfaceView::Impl::Move(QMouseEvent *event) {
    // The release went to somebody else: a window that opened under the pointer, say.
    if (interaction.IsActive() && !interaction.TakesKeys() && !event->buttons().testFlag(button_))
        CancelGesture();
    const QPointF at = event->position();
    surface.Events().MouseMove(surface, ButtonMask(event->buttons()), ShiftMask(event->modifiers()),
                               float(at.x() / viewport.xScale()), float(at.y() / viewport.yScale()));
    FollowPointer(at, event->modifiers());
}

void SurfaceView::Impl::Release(QMouseEvent *event) {
    DropOutdatedGesture();
    if (event->button() == button_ && interaction.IsActive())
        interaction.Release(Input(event->position(), event->modifiers()));
    AfterInput();
}

void SurfaceView::Impl::DoubleClick(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return Press(event);
    CancelGesture();
    interaction.DoubleClick(Input(event->position(), event->modifiers()));
    AfterInput();
}

void SurfaceView::Impl::Wheel(QWheelEvent *event) {
    const double notches = event->angleDelta().y() / kNotch;
    event->accept();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (interaction.IsPanning()) return;
        view.ZoomAt(viewport.Zoom() * std::pow(kZoomStep, notches), event->position());
        return FollowPointer(event->position(), event->modifiers());
    }
    const QPoint delta = event->pixelDelta().isNull() ? event->angleDelta() / 2 : event->pixelDelta();
    const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier);
    viewport.ScrollTo(viewport.Scroll() - (sideways ? delta.transposed() : delta));
    FollowPointer(event->position(), event->modifiers());
}

QPoint SurfaceView::Impl::AutoScrollStep() const {
    const QSize size = view.viewport()->size();
    return {EdgeStep(pointer_.x(), size.width()), EdgeStep(pointer_.y(), size.height())};
}

void SurfaceView::Impl::StartOrStopAutoScroll() {
    const bool wanted = interaction.ScrollsAtEdges() && !AutoScrollStep().isNull();
    if (wanted == autoScroll_.isActive()) return;
    if (wanted)
        autoScroll_.start(kScrollInterval, &view);
    else
        autoScroll_.stop();
}

void SurfaceView::Impl::AutoScroll() {
    viewport.ScrollTo(viewport.Scroll() + AutoScrollStep(), Viewport::Grow::RightAndBelow);
    FollowPointer(pointer_, modifiers_);
}

void SurfaceView::Impl::Leave() {
    interaction.Leave();
    UpdateOverlay();
}

// The text below the pointer that can't be read there, cut off or too small, and the node's date; empty for
// none.
QString SurfaceView::Impl::TipAt(const QPointF &at) {
    const double scale = std::min(viewport.xScale(), viewport.yScale());
    if (const Node *node = NodeAtPoint(scene, float(at.x()), float(at.y()))) {
        const bool read = renderer.TextFits(*node) && IsLegible(node->Font(), scale);
        const std::optional<QDate> date = days->DateOf(*node);
        QStringList lines;
        if (!read && !node->ShownText().isEmpty()) lines << node->ShownText().left(kLongestTip);
        if (date) lines << days->Written(*date);
        return lines.join(QLatin1Char('\n'));
    }
    const Hit hit = HitTest(scene, at, OptionsFor(Input(viewport.FromSurface(at), {})));
    if (!hit.link || hit.link->Text().isEmpty()) return {};
    const bool whole = viewport.Seen().contains(scene.LabelBounds(*hit.link));
    return whole && IsLegible(hit.link->Font(), scale) ? QString() : hit.link->Text().left(kLongestTip);
}

bool SurfaceView::Impl::ToolTip(const QPoint &pixels, const QPoint &global) {
    const bool idle = !editor && !interaction.IsActive();
    const QString text = idle ? TipAt(viewport.ToSurface(pixels)) : QString();
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(global, Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal), view.viewport());
    return true;
}

} // namespace diagram
