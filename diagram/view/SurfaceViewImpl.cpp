#include "diagram/view/SurfaceViewImpl.h"

#include "diagram/view/SurfaceClipboard.h"
#include "diagram/view/SurfaceViewKeys.h"
#include "support/Error.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>

namespace diagram {

SurfaceView::Impl::Impl(SurfaceView &itsView, Surface &itsSurface)
    : view(itsView),
      surface(itsSurface),
      scene(itsSurface),
      viewport(itsView, itsSurface, scene),
      interaction(scene, *this),
      guard(itsSurface, interaction),
      repainting(itsView, *itsView.viewport(), scene, renderer, viewport),
      note(*itsView.viewport(), itsSurface),
      text(itsView, scene, viewport, guard),
      edges(itsView),
      offer(itsView, [this](bool yes) { Answered(yes); }),
      keys(std::make_unique<Keys>(*this)),
      notices(itsView) {
    surface.Observers().Add(*this);
    surface.SetMeasure(&renderer.Measure());
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &view, [this] {
        copiedAt_ = pointerOver_ ? std::optional(viewport.ToSurface(pointer)) : std::nullopt;
    });
    AskForFlush();
}

SurfaceView::Impl::~Impl() {
    surface.Observers().Remove(*this);
    if (surface.Measure() == &renderer.Measure()) surface.SetMeasure(nullptr);
}

void SurfaceView::Impl::ItemChanged(Item &item, Change what) {
    notices.Changed(item, what);
    undone_.Note(item, what);
    repainting.OutdateToday();
    if (Has(what, Change::Selection)) repainting.NoteSelected(item);
    AskForFlush();
}

void SurfaceView::Impl::ItemAdded(Item &item) {
    notices.Added(item);
    undone_.Note(item, Change::All);
    repainting.OutdateToday();
    AskForFlush();
}

void SurfaceView::Impl::ItemRemoved(Item &item) {
    notices.Removed(item);
    undone_.NoteGone(item);
    repainting.OutdateToday();
    gestureOutdated_ = interaction.IsActive();
    AskForFlush();
}

void SurfaceView::Impl::SurfaceChanged(Change what) {
    repainting.OutdateToday();
    viewport.FollowGrowth();
    if (Has(what, Change::Geometry)) viewport.FollowStored();
    AskForFlush();
}

void SurfaceView::Impl::Cleared() {
    gestureOutdated_ = interaction.IsActive();
    notices.ListChanged();
    repainting.OutdateToday();
    viewport.FollowStored();
    AskForFlush();
}

// History doesn't know what a gesture has written to the model so far.
void SurfaceView::Impl::BeforeUndo() {
    keys->EndRun();
    Guard("BeforeUndo", [this] { CancelGesture(); });
    undone_.Begin(scene);
}

void SurfaceView::Impl::AfterUndo() {
    const QRectF area = undone_.TakeArea(scene, viewport.Seen());
    if (!area.isNull()) EnsureVisible(area);
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
    if (!follows) return;
    DropOutdatedGesture();
    if (viewport.Update(interaction.IsActive())) {
        view.viewport()->update();
        Q_EMIT view.ViewChanged();
    }
    repainting.NoteDamage();
    repainting.NoteToday(*days);
    UpdateOverlay();
    text.Place();
    notices.Send();
}

// A frame may be asked for before the flush: it shows what has changed all the same.
void SurfaceView::Impl::Paint(const QRegion &region) {
    if (flushAsked_) repainting.NoteDamage();
    repainting.Paint(region, interaction.Show(), Ring());
    if (!note.IsShown()) return;
    QPainter painter(view.viewport());
    painter.setClipRegion(region);
    note.Paint(painter);
}

FocusRing SurfaceView::Impl::Ring() const {
    if (!view.hasFocus() || text.Editor()) return FocusRing::None;
    return byKeyboard_ ? FocusRing::Strong : FocusRing::Faint;
}

void SurfaceView::Impl::UpdateOverlay() {
    const Overlay overlay = interaction.Show();
    repainting.NoteOverlay(overlay);
    if (note.Update(interaction.IsActive() && !overlay.ghost.isEmpty())) Describe();
}

void SurfaceView::Impl::Describe() {
    const QString usual =
        QStringLiteral("%1s and the %2s between them. Tab goes from %3 to %3, the arrow keys move the "
                       "selected ones, F2 edits the text, Ctrl+L links.")
            .arg(words.node, words.link.toLower(), words.node.toLower());
    view.setAccessibleDescription(note.IsShown() ? note.Words() : usual);
}

void SurfaceView::Impl::Scrolled() {
    viewport.TellSurface();
    view.viewport()->update();
    text.Place();
    Q_EMIT view.ViewChanged();
}

bool SurfaceView::Impl::CancelGesture() {
    gestureOutdated_ = false;
    const bool cancelled = interaction.Cancel();
    if (cancelled) AfterInput();
    return cancelled;
}

bool SurfaceView::Impl::DropShape() {
    if (!shape) return false;
    shape.reset();
    Q_EMIT view.ShapeDropped();
    return true;
}

void SurfaceView::Impl::FocusGoes() {
    if (!offer.IsOpen()) CancelGesture();
}

bool SurfaceView::Impl::BeginEdit(const QString *typed) {
    Item *item = EditableItem(surface);
    if (!item && typed) Tell(Hint::SelectFirst);
    if (!item) return false;
    text.End(true);
    CancelGesture();
    const bool begun = text.Begin(*item, typed);
    Tell(begun ? Hint::KeysWrite : Hint::TextTooLong);
    return begun;
}

// The pointer says where to paste only when it was moved since the clipboard was filled.
PasteAim SurfaceView::Impl::Aim() const {
    PasteAim aim{viewport.Seen(), {}, *days};
    if (!pointerOver_) return aim;
    const PointerInput now = Input(pointer, {});
    const bool gone = !copiedAt_ || IsDrag(Input(viewport.FromSurface(*copiedAt_), {}), now);
    if (gone) aim.pointer = now.at;
    return aim;
}

void SurfaceView::Impl::ShowSelectedNodes() {
    QRectF area;
    for (const Node *node : surface.SelectedNodes()) area |= node->Bounds();
    EnsureVisible(area);
}

bool SurfaceView::Impl::Duplicate() {
    if (!DuplicateSelection(scene, Aim())) return false;
    ShowSelectedNodes();
    return true;
}

bool SurfaceView::Impl::Paste(Hint &why) {
    const QMimeData *held = QGuiApplication::clipboard()->mimeData();
    try {
        if (CanPasteFrom(held) && PasteFrom(scene, *held, Aim())) {
            ShowSelectedNodes();
            return true;
        }
        why = Hint::NothingToPaste;
        return false;
    } catch (const support::Error &error) {
        if (error.Number() == kErrTooManyLines) why = Hint::TooManyLines;
        throw;
    }
}

QPointF SurfaceView::Impl::ScrollOffset() const { return viewport.Scroll(); }
void SurfaceView::Impl::SetScrollOffset(const QPointF &pixels) { viewport.ScrollTo(pixels.toPoint()); }
void SurfaceView::Impl::Ask(std::unique_ptr<Gesture> gesture) {
    // Before the gesture begins: the menu takes the focus, which would end it.
    offer.Ask(view.viewport()->mapToGlobal(pointer.toPoint()), words.node.toLower());
    if (interaction.Begin(std::move(gesture))) Tell(interaction.WhatNow());
}

void SurfaceView::Impl::Answered(bool yes) {
    if (!interaction.IsOffer()) return;
    Guard("Answered", [&] {
        if (yes)
            interaction.Key({Qt::Key_Return, {}});
        else
            CancelGesture();
    });
    AfterInput();
}

void SurfaceView::Impl::Tell(Hint hint) { Q_EMIT view.HintShown(hint); }
void SurfaceView::Impl::Offer(Hint hint) { Q_EMIT view.HintOffered(hint); }

} // namespace diagram
