#include "diagram/view/SurfaceViewImpl.h"

#include "diagram/view/SurfaceClipboard.h"
#include "support/Error.h"

#include <cmath>
#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QRegion>
#include <QTimer>

namespace diagram {

namespace {

constexpr double kPixelBias = 1e-5;
constexpr int kMovingBudget = 4;   // milliseconds of a frame for painting what has come into sight
constexpr int kRestingBudget = 12; // the same when nothing moves
constexpr int kBandItems = 150;    // about as many are painted between two looks at the clock
constexpr int kLeastBandRows = 12;
constexpr size_t kManyTouched = 500; // beyond it the whole viewport is copied again

} // namespace

SurfaceView::Impl::Impl(SurfaceView &itsView, Surface &itsSurface)
    : view(itsView),
      surface(itsSurface),
      scene(itsSurface),
      viewport(itsView, itsSurface, scene),
      interaction(scene, *this),
      notices(itsView) {
    surface.AddObserver(*this);
    surface.SetMeasure(&renderer.Measure());
    AskForFlush();
}

SurfaceView::Impl::~Impl() {
    surface.RemoveObserver(*this);
    if (surface.Measure() == &renderer.Measure()) surface.SetMeasure(nullptr);
}

void SurfaceView::Impl::Failed(const char *routine) {
    const support::Error error = support::CurrentError(QStringLiteral("SurfaceView"));
    interaction.Cancel();
    bool cancelDisplay = false;
    surface.Events().Error(surface, error.Number(), error.Description(), cancelDisplay);
    if (!cancelDisplay)
        support::ShowReport(QStringLiteral("SurfaceView"), QString::fromLatin1(routine), error);
}

void SurfaceView::Impl::ItemChanged(Item &item, Change what) {
    notices.Changed(item, what);
    todayOutdated_ = true;
    if (Has(what, Change::Selection) && selectionTouched_.size() <= kManyTouched)
        selectionTouched_.emplace_back(item.Kind(), item.Id());
    AskForFlush();
}

void SurfaceView::Impl::ItemAdded(Item &item) {
    notices.Added(item);
    todayOutdated_ = true;
    AskForFlush();
}

void SurfaceView::Impl::ItemRemoved(Item &item) {
    notices.Removed(item);
    todayOutdated_ = true;
    gestureOutdated_ = interaction.IsActive();
    AskForFlush();
}

void SurfaceView::Impl::SurfaceChanged(Change what) {
    todayOutdated_ = true;
    if (Has(what, Change::Geometry)) viewport.FollowStored();
    AskForFlush();
}

void SurfaceView::Impl::Cleared() {
    gestureOutdated_ = interaction.IsActive();
    notices.ListChanged();
    todayOutdated_ = true;
    viewport.FollowStored();
    AskForFlush();
}

// A gesture writes to the model for the time being, which history knows nothing of.
void SurfaceView::Impl::BeforeUndo() {
    Guard("BeforeUndo", [this] { CancelGesture(); });
}

void SurfaceView::Impl::DropOutdatedGesture() {
    if (std::exchange(gestureOutdated_, false)) CancelGesture();
}

void SurfaceView::Impl::AskForFlush() {
    if (std::exchange(flushAsked_, true)) return;
    QMetaObject::invokeMethod(
        &view, [this] { Flush(); }, Qt::QueuedConnection);
}

void SurfaceView::Impl::Flush() {
    flushAsked_ = false;
    DropOutdatedGesture();
    if (viewport.Update(interaction.IsActive())) {
        view.viewport()->update();
        Q_EMIT view.ViewChanged();
    }
    NoteDamage();
    NoteToday();
    UpdateOverlay();
    PlaceEditor();
    notices.Send();
}

void SurfaceView::Impl::RepaintAll() {
    screen_.InvalidateAll();
    view.viewport()->update();
}

void SurfaceView::Impl::PaintOn() {
    slices_.stop();
    resting_ = true;
    view.viewport()->update();
}

// The pixels of the viewport that an area covers, and what handles cover around it.
void SurfaceView::Impl::UpdatePixels(const QRectF &pixels) {
    const QRectF reached = pixels.adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach) &
                           QRectF(view.viewport()->rect());
    if (!reached.isEmpty()) view.viewport()->update(reached.toAlignedRect());
}

// Items whose own selection is as it was may look otherwise all the same.
void SurfaceView::Impl::NoteSelectionForm() {
    const SelectionForm now = FormOf(surface), former = std::exchange(selectionForm_, now);
    if (now.nodeHandles != former.nodeHandles || now.linkHandles != former.linkHandles)
        view.viewport()->update();
    if (now.focus == former.focus) return;
    selectionTouched_.emplace_back(ItemKind::Node, former.focus);
    selectionTouched_.emplace_back(ItemKind::Node, now.focus);
}

void SurfaceView::Impl::NoteDamage() {
    const Scene::Damage damage = scene.TakeDamage();
    NoteSelectionForm();
    const bool manyTouched = selectionTouched_.size() > kManyTouched;
    if (damage.everything) RepaintAll();
    if (manyTouched) view.viewport()->update();
    RectList areas;
    if (!damage.everything) {
        for (const QRectF &area : damage.areas) {
            screen_.Invalidate(ToDevice(area));
            const QRectF seen =
                viewport.FromSurface(area) & QRectF(view.viewport()->rect().adjusted(-9, -9, 9, 9));
            areas.Add(seen.toAlignedRect());
        }
    }
    if (!manyTouched) {
        for (const auto &[kind, id] : selectionTouched_) {
            const Item *item = kind == ItemKind::Node ? static_cast<Item *>(surface.FindNode(id))
                                                      : static_cast<Item *>(surface.FindLink(id));
            if (item) areas.Add(viewport.FromSurface(scene.Bounds(*item)).toAlignedRect());
        }
    }
    selectionTouched_.clear();
    for (const QRect &area : areas.Rects()) UpdatePixels(area);
}

void SurfaceView::Impl::NoteToday() {
    if (!std::exchange(todayOutdated_, false)) return;
    const std::optional<QLineF> former = std::exchange(today_, days->Today(surface));
    if (former == today_) return;
    for (const std::optional<QLineF> &line : {former, today_})
        if (line) UpdatePixels(viewport.FromSurface(QRectF(line->p1(), line->p2())));
}

QRect SurfaceView::Impl::DevicePixelsSeen() const {
    const double ratio = view.viewport()->devicePixelRatioF();
    const QSize size = view.viewport()->size();
    const QPoint scroll = viewport.Scroll();
    return {qRound(scroll.x() * ratio), qRound(scroll.y() * ratio), int(std::ceil(size.width() * ratio)),
            int(std::ceil(size.height() * ratio))};
}

QRect SurfaceView::Impl::ToDevice(const QRectF &twips) const {
    const double ratio = view.viewport()->devicePixelRatioF();
    const QRectF seen = DevicePixelsSeen().adjusted(-2, -2, 2, 2);
    const QRectF area(twips.left() * viewport.xScale() * ratio, twips.top() * viewport.yScale() * ratio,
                      twips.width() * viewport.xScale() * ratio, twips.height() * viewport.yScale() * ratio);
    return (area & seen).toAlignedRect().adjusted(-1, -1, 1, 1);
}

void SurfaceView::Impl::PaintArea(QPainter &painter, const QRect &devicePixels) {
    const double ratio = view.viewport()->devicePixelRatioF();
    RenderOptions options;
    options.xScale = viewport.xScale() * ratio;
    options.yScale = viewport.yScale() * ratio;
    options.grid = true;
    options.marks = true;
    // Edges are painted on whole pixels: without the bias a node that lies just on one would fall to either
    // side of it, another one for each strip.
    const QRectF area((devicePixels.left() - kPixelBias) / options.xScale,
                      (devicePixels.top() - kPixelBias) / options.yScale,
                      devicePixels.width() / options.xScale, devicePixels.height() / options.yScale);
    renderer.Paint(painter, scene, area, options);
}

// Few items are painted at one go; many, so that there is a look at the clock now and then.
int SurfaceView::Impl::BandRows(const QRect &seen) {
    std::vector<Item *> items;
    scene.ItemsIn(viewport.Seen(), items);
    const auto bands = std::ssize(items) / kBandItems + 1;
    return std::max(kLeastBandRows, int(seen.height() / bands));
}

void SurfaceView::Impl::PaintPicture() {
    const double ratio = view.viewport()->devicePixelRatioF();
    const QRect seen = DevicePixelsSeen();
    const int budget = frameBudget_.value_or(resting_ ? kRestingBudget : kMovingBudget);
    QElapsedTimer timer;
    timer.start();
    if (screen_.Show({seen, viewport.xScale() * ratio, viewport.yScale() * ratio}))
        bandRows_ = BandRows(seen);
    screen_.Update([this](QPainter &painter, const QRect &area) { PaintArea(painter, area); },
                   {bandRows_, [&] { return timer.elapsed() < budget; }});
    resting_ = false;
    if (screen_.IsExact())
        slices_.stop();
    else
        slices_.start(0, &view);
}

void SurfaceView::Impl::Paint(const QRegion &region) {
    const double ratio = view.viewport()->devicePixelRatioF();
    if (flushAsked_) NoteDamage(); // painted before its turn: what has changed must be seen all the same
    PaintPicture();
    const QPoint corner = DevicePixelsSeen().topLeft();

    QPainter painter(view.viewport());
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    const QColor paper = support::ToQColor(surface.BackColor());
    for (const QRect &rect : region) {
        const QRectF device(rect.x() * ratio, rect.y() * ratio, rect.width() * ratio, rect.height() * ratio);
        screen_.CopyTo(painter, device.toAlignedRect().translated(corner), paper);
    }
    painter.restore();
    painter.setClipRegion(region);
    PaintBeyondTheOrigin(painter, surface, viewport, region.boundingRect());
    if (today_) PaintToday(painter, *today_, surface, viewport);
    const Overlay overlay = interaction.Show();
    PaintSelection(painter, scene, viewport, region, Ring(), overlay.loose);
    PaintOverlay(painter, overlay, surface, viewport);
}

FocusRing SurfaceView::Impl::Ring() const {
    if (!view.hasFocus() || editor) return FocusRing::None;
    return byKeyboard_ ? FocusRing::Strong : FocusRing::Faint;
}

void SurfaceView::Impl::UpdateOverlay() {
    const OverlayPlace now = PlaceOf(interaction.Show(), viewport);
    const QRegion changed = ChangedArea(std::exchange(overlayPlace_, now), now);
    if (!changed.isEmpty()) view.viewport()->update(changed);
}

void SurfaceView::Impl::Scrolled() {
    viewport.TellSurface();
    view.viewport()->update();
    PlaceEditor();
    Q_EMIT view.ViewChanged();
}

bool SurfaceView::Impl::CancelGesture() {
    gestureOutdated_ = false;
    const bool cancelled = interaction.Cancel();
    if (cancelled) AfterInput();
    return cancelled;
}

bool SurfaceView::Impl::BeginEdit(const QString *typed) {
    Item *item = EditableItem(surface);
    if (!item) return false;
    EndEdit(true);
    CancelGesture();
    edit_.emplace(surface, *item);
    if (edit_->Text().size() > kLongestInPlace) {
        edit_.reset();
        Tell(Hint::TextTooLong);
        return false;
    }
    const std::optional<TextPlace> place = edit_->Place(scene);
    if (place) view.EnsureVisible(place->area);
    editor = new InPlaceEditor(edit_->Text(), view.viewport(), [this](bool keep) { EndEdit(keep); });
    PlaceEditor();
    editor->selectAll();
    if (typed) editor->textCursor().insertText(*typed);
    editor->setFocus(Qt::OtherFocusReason);
    return true;
}

// On a copy, as whoever is told of the change may end the editing.
void SurfaceView::Impl::KeepText() {
    if (!edit_) return;
    EditText edit = *edit_;
    Guard("KeepText", [&] { edit.Commit(editor->toPlainText()); });
    if (edit_) edit_.emplace(edit);
}

void SurfaceView::Impl::EndEdit(bool keep) {
    if (!edit_) return;
    EditText edit = std::move(*edit_);
    edit_.reset();
    const QString text = editor->toPlainText();
    InPlaceEditor *ended = std::exchange(editor, nullptr);
    ended->Forget();
    if (ended->hasFocus()) view.setFocus(Qt::OtherFocusReason);
    ended->hide();
    ended->deleteLater();
    if (keep)
        Guard("EndEdit", [&] { edit.Commit(text); });
    else
        edit.Cancel();
    view.viewport()->update();
}

std::optional<std::pair<ItemId, QString>> SurfaceView::Impl::Typed() const {
    if (!edit_ || !editor) return std::nullopt;
    const std::optional<QString> text = edit_->Changed(editor->toPlainText());
    return text ? std::optional(std::pair(edit_->Item(), *text)) : std::nullopt;
}

void SurfaceView::Impl::PlaceEditor() {
    if (!edit_ || !editor) return;
    if (const std::optional<TextPlace> place = edit_->Place(scene))
        editor->Show(*place, viewport, support::ToQColor(surface.BackColor()));
    else
        EndEdit(false);
}

bool SurfaceView::Impl::Paste(Hint &why) {
    const QMimeData *held = QGuiApplication::clipboard()->mimeData();
    try {
        if (CanPasteFrom(held) && PasteFrom(scene, *held, viewport.Seen())) return true;
        why = Hint::NothingToPaste;
        return false;
    } catch (const support::Error &error) {
        if (error.Number() == kErrTooManyLines) why = Hint::TooManyLines;
        throw;
    }
}

QPointF SurfaceView::Impl::ScrollOffset() const { return viewport.Scroll(); }
void SurfaceView::Impl::SetScrollOffset(const QPointF &pixels) { viewport.ScrollTo(pixels.toPoint()); }
void SurfaceView::Impl::Tell(Hint hint) { Q_EMIT view.HintShown(hint); }

} // namespace diagram
