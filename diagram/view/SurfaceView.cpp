#include "diagram/view/SurfaceView.h"

#include "diagram/interaction/PlacedNode.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceClipboard.h"
#include "diagram/view/SurfaceViewKeys.h"

#include <QClipboard>
#include <QFocusEvent>
#include <QGestureEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QPaintEvent>

namespace diagram {

SurfaceView::SurfaceView(Surface &surface, QWidget *parent) : QAbstractScrollArea(parent) {
    InstallAccessibility();
    impl_ = std::make_unique<Impl>(*this, surface);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("Page"));
    SetWords({});
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setMouseTracking(true);
    viewport()->grabGesture(Qt::PinchGesture);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAttribute(Qt::WA_NoSystemBackground);
    setFrameShape(QFrame::NoFrame);
}

SurfaceView::~SurfaceView() { impl_->text.End(false); }

Surface &SurfaceView::Model() const { return impl_->surface; }
Scene &SurfaceView::TheScene() const { return impl_->scene; }
Renderer &SurfaceView::TheRenderer() const { return impl_->renderer; }

double SurfaceView::ShownZoom() const { return impl_->viewport.Zoom(); }

void SurfaceView::ZoomAt(double percent, const QPointF &at) {
    impl_->viewport.ZoomAt(percent, at);
    viewport()->update();
    impl_->text.Place();
    Q_EMIT ViewChanged();
}

bool SurfaceView::IsExact() const { return impl_->repainting.IsExact(); }
void SurfaceView::SetFrameBudget(std::optional<int> milliseconds) {
    impl_->repainting.SetBudget(milliseconds);
}

void SurfaceView::SetFollowing(bool on) {
    impl_->follows = on;
    viewport()->setUpdatesEnabled(on);
    if (on) impl_->AskForFlush();
}

void SurfaceView::FollowStoredZoom() {
    impl_->viewport.FollowStored();
    impl_->Flush();
}

QPointF SurfaceView::ToSurface(const QPointF &pixels) const { return impl_->viewport.ToSurface(pixels); }
QPointF SurfaceView::FromSurface(const QPointF &twips) const { return impl_->viewport.FromSurface(twips); }

void SurfaceView::EnsureVisible(const QRectF &area) { impl_->viewport.EnsureVisible(area); }

bool SurfaceView::Copy() {
    impl_->keys->EndRun();
    const Surface &surface = Model();
    const bool links = !surface.SelectedLinks().empty();
    if (surface.SelectedNodes().empty()) {
        if (links) impl_->Tell(Hint::CopyNeedsNode);
        return false;
    }
    return impl_->Guard("Copy", [&] {
        QGuiApplication::clipboard()->setMimeData(SelectionToMime(surface, *impl_->days).release());
    });
}

bool SurfaceView::Cut() {
    if (!Copy()) return false;
    DeleteSelection();
    return true;
}

bool SurfaceView::Paste() {
    CancelGesture();
    Hint why = Hint::CantPaste;
    bool pasted = false;
    impl_->Guard("Paste", [&] { pasted = impl_->Paste(why); });
    if (!pasted) impl_->Tell(why);
    return pasted;
}

bool SurfaceView::Duplicate() {
    CancelGesture();
    bool added = false;
    impl_->Guard("Duplicate", [&] { added = impl_->Duplicate(); });
    return added;
}

bool SurfaceView::CanPaste() const { return CanPasteFrom(QGuiApplication::clipboard()->mimeData()); }

void SurfaceView::DeleteSelection() {
    CancelGesture();
    ChangeSelection(Model(), [&] { Model().DeleteSelection(); });
}

bool SurfaceView::BeginEdit() { return impl_->BeginEdit(); }
void SurfaceView::KeepText() {
    impl_->keys->EndRun();
    impl_->text.Keep();
}
void SurfaceView::EndEdit(bool keep) {
    impl_->keys->EndRun();
    impl_->text.End(keep);
}
bool SurfaceView::IsEditing() const { return impl_->text.Editor() != nullptr; }
std::optional<std::pair<ItemId, QString>> SurfaceView::Typed() const { return impl_->text.Typed(); }
void SurfaceView::SetDescriber(Describer describer) { impl_->describer = std::move(describer); }
QString SurfaceView::Described(const Item &item) const {
    return impl_->describer ? impl_->describer(item) : QString();
}
void SurfaceView::SetDays(DayStrip &days) {
    impl_->days = &days;
    impl_->repainting.OutdateToday();
    impl_->AskForFlush();
}
void SurfaceView::SetSights(Sights sights) { impl_->repainting.SetSights(std::move(sights)); }

void SurfaceView::SetPageBreaks(std::vector<QLineF> breaks) {
    impl_->repainting.SetPageBreaks(std::move(breaks));
}
void SurfaceView::SetWords(const ItemWords &words) {
    impl_->words = words;
    impl_->Describe();
}
void SurfaceView::SetShapeToDraw(std::optional<int> shape) {
    impl_->shape = shape;
    impl_->UpdateOverlay();
}
std::optional<int> SurfaceView::ShapeToDraw() const { return impl_->shape; }
void SurfaceView::PlaceShape(int shape, const QPointF &at) {
    CancelGesture();
    EndEdit(true);
    impl_->Guard("PlaceShape", [&] { PlacedNode(TheScene(), *impl_, impl_->Input(at, {})).Add(shape); });
}
void SurfaceView::SetEmptyNote(const QString &words) {
    impl_->note.SetWords(words);
    impl_->AskForFlush();
}
const ItemWords &SurfaceView::Words() const { return impl_->words; }
void SurfaceView::SetAssistant(Assistant assistant) { impl_->notices.SetAssistant(std::move(assistant)); }
bool SurfaceView::BeginLink(bool backwards) {
    return impl_->keys->BeginLink(backwards ? LinkSide::Source : LinkSide::Destination);
}

bool SurfaceView::AddKin(diagram::Kin kin) {
    bool added = false;
    impl_->Guard("AddKin", [&] { added = impl_->keys->AddKin(kin); });
    return added;
}

bool SurfaceView::BeginBend() { return impl_->keys->BeginBend(); }

Attention SurfaceView::LooksAt() const { return impl_->interaction.LooksAt(); }

Item *SurfaceView::FocusedItem() const {
    const Surface &surface = Model();
    if (Item *item = FindItem(surface, LooksAt().item)) return item;
    if (Node *node = surface.SelectedNode()) return node;
    return surface.SelectedLink();
}

bool SurfaceView::CancelGesture() { return impl_->CancelGesture(); }

bool SurfaceView::viewportEvent(QEvent *event) {
    switch (event->type()) {
    case QEvent::ToolTip: {
        const auto *help = static_cast<QHelpEvent *>(event);
        return impl_->ToolTip(help->pos(), help->globalPos());
    }
    case QEvent::Leave:
        impl_->Leave();
        break;
    case QEvent::NativeGesture:
        if (impl_->Pinch(static_cast<QNativeGestureEvent *>(event))) return true;
        break;
    case QEvent::Gesture:
        if (impl_->Pinch(static_cast<QGestureEvent *>(event))) return true;
        break;
    default:
        break;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void SurfaceView::paintEvent(QPaintEvent *event) {
    impl_->Guard("paintEvent", [&] { impl_->Paint(event->region()); });
}

void SurfaceView::resizeEvent(QResizeEvent *) {
    impl_->Guard("resizeEvent", [&] { impl_->Flush(); });
    Q_EMIT ViewChanged();
}

void SurfaceView::scrollContentsBy(int, int) {
    if (impl_) impl_->Scrolled();
}

void SurfaceView::mousePressEvent(QMouseEvent *event) {
    impl_->Guard("mousePressEvent", [&] { impl_->Press(event); });
}

void SurfaceView::mouseMoveEvent(QMouseEvent *event) {
    impl_->Guard("mouseMoveEvent", [&] { impl_->Move(event); });
}

void SurfaceView::mouseReleaseEvent(QMouseEvent *event) {
    impl_->Guard("mouseReleaseEvent", [&] { impl_->Release(event); });
}

void SurfaceView::mouseDoubleClickEvent(QMouseEvent *event) {
    impl_->Guard("mouseDoubleClickEvent", [&] { impl_->DoubleClick(event); });
}

void SurfaceView::wheelEvent(QWheelEvent *event) {
    impl_->Guard("wheelEvent", [&] { impl_->Wheel(event); });
}

void SurfaceView::keyPressEvent(QKeyEvent *event) {
    impl_->Guard("keyPressEvent", [&] { impl_->keys->Press(event); });
}

void SurfaceView::inputMethodEvent(QInputMethodEvent *event) {
    impl_->Guard("inputMethodEvent", [&] { impl_->keys->TypeByInputMethod(event); });
}

QVariant SurfaceView::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query == Qt::ImEnabled) return EditableItem(Model()) != nullptr;
    return QAbstractScrollArea::inputMethodQuery(query);
}

void SurfaceView::keyReleaseEvent(QKeyEvent *event) {
    impl_->Guard("keyReleaseEvent", [&] { impl_->keys->Release(event); });
}

void SurfaceView::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event);
    const bool byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byTab) impl_->NoteHand(true);
    impl_->repainting.OutdateToday(); // the day may have changed meanwhile
    impl_->AskForFlush();
    viewport()->update();
    impl_->notices.Send();
    impl_->Guard("focusInEvent", [&] { Model().Events().GotFocus(Model()); });
}

void SurfaceView::focusOutEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusOutEvent(event);
    // The events that would end these go to another widget now.
    impl_->Guard("focusOutEvent", [&] { impl_->FocusGoes(); });
    impl_->keys->HideSize();
    impl_->keys->LetGo();
    Model().Screen().SetShiftMode(false);
    viewport()->update();
}

bool SurfaceView::event(QEvent *event) {
    if (event->type() == QEvent::WindowDeactivate && impl_)
        impl_->Guard("event", [&] { impl_->FocusGoes(); });
    if (event->type() == QEvent::ShortcutOverride && impl_)
        impl_->keys->NoteKey(static_cast<QKeyEvent *>(event)->key());
    return QAbstractScrollArea::event(event);
}

void SurfaceView::hideEvent(QHideEvent *event) {
    impl_->Guard("hideEvent", [&] {
        CancelGesture();
        EndEdit(true);
    });
    impl_->Leave();
    QAbstractScrollArea::hideEvent(event);
}

void SurfaceView::timerEvent(QTimerEvent *event) {
    if (impl_->repainting.IsPaintingOn(event->timerId())) return impl_->repainting.PaintOn();
    if (!impl_->edges.IsScrolling(event->timerId())) return QAbstractScrollArea::timerEvent(event);
    impl_->Guard("timerEvent", [&] { impl_->AutoScroll(); });
}

// Tab goes from node to node; it arrives as a key, and leaves the view behind the last node.
bool SurfaceView::focusNextPrevChild(bool) { return false; }

} // namespace diagram
