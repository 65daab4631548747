// The parts of a SurfaceView and how they work together.
#pragma once

#include "diagram/interaction/Interaction.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/Accessible.h"
#include "diagram/view/EdgeScroll.h"
#include "diagram/view/EmptyNote.h"
#include "diagram/view/OfferMenu.h"
#include "diagram/view/PastePlace.h"
#include "diagram/view/Repainting.h"
#include "diagram/view/StripMarks.h"
#include "diagram/view/SurfaceGuard.h"
#include "diagram/view/SurfaceView.h"
#include "diagram/view/TextInPlace.h"
#include "diagram/view/UndoneItems.h"
#include "diagram/view/Viewport.h"
#include "diagram/view/Wheel.h"

class QGestureEvent;
class QNativeGestureEvent;

namespace diagram {

class SurfaceView::Impl : public SurfaceObserver, public Stage {
public:
    class Keys;

    Impl(SurfaceView &view, Surface &surface);
    ~Impl() override;

    // Painting
    void Paint(const QRegion &region);
    void UpdateOverlay();
    void UpdatePointer();
    // Brings everything that follows from the model up to date, now; changes of the model ask for it once an
    // event loop turn.
    void Flush();
    void AskForFlush();

    // Pointer
    PointerInput Input(const QPointF &pixels, Qt::KeyboardModifiers modifiers) const;
    void Press(QMouseEvent *event);
    void Move(QMouseEvent *event);
    void Release(QMouseEvent *event);
    void DoubleClick(QMouseEvent *event);
    void Wheel(QWheelEvent *event);
    // Two fingers on a touchpad or a touch screen; false for another gesture of theirs.
    bool Pinch(QNativeGestureEvent *event);
    bool Pinch(QGestureEvent *event);
    // Of the strip of days, where nothing else lies over it.
    std::optional<StripSpot> SpotAt(const QPointF &pixels);
    // What is meant there: on the slim copy of the strip the strip itself.
    PointerInput Meant(const QPointF &pixels, Qt::KeyboardModifiers modifiers);
    void Fold(const StripSpot &spot);
    void FollowPointer(const QPointF &pixels, Qt::KeyboardModifiers modifiers);
    void AutoScroll();
    bool ToolTip(const QPoint &pixels, const QPoint &global);
    void Leave();
    void AfterInput();
    // Which of keyboard and mouse the user works with.
    void NoteHand(bool keyboard);

    // Stage
    QPointF ScrollOffset() const override;
    void SetScrollOffset(const QPointF &pixels) override;
    QRectF Seen() const override { return viewport.Seen(); }
    void EnsureVisible(const QRectF &area) override { viewport.EnsureVisible(area); }
    void Tell(Hint hint) override;
    void Offer(Hint hint) override;
    std::optional<int> ShapeToDraw() const override { return shape; }
    bool ClickPlacesShape() const override { return shape && !endedText_; }
    void Ask(std::unique_ptr<Gesture> gesture) override;
    void EditText() override { BeginEdit(); }
    DayStrip &Days() const override { return *days; }

    bool BeginEdit(const QString *typed = nullptr);
    void Scrolled();
    bool CancelGesture();
    // Takes the shape to draw away; false when there is none.
    bool DropShape();
    // Tells an assistant what the page is, or how to begin on an empty one.
    void Describe();
    // The focus goes to somebody else, but for the menu of an offer.
    void FocusGoes();
    // Gives up a gesture whose items went away under it.
    void DropOutdatedGesture();
    template <typename Body>
    bool Guard(const char *routine, Body &&body) {
        return guard.Run(routine, std::forward<Body>(body));
    }
    // Pastes what the clipboard holds. When it doesn't, after an error too, `why` is told.
    bool Paste(Hint &why);
    bool Duplicate();

    SurfaceView &view;
    Surface &surface;
    Scene scene;
    Renderer renderer;
    Viewport viewport;
    Interaction interaction;
    SurfaceGuard guard;
    Repainting repainting;
    EmptyNote note;
    TextInPlace text;
    EdgeScroll edges;
    OfferMenu offer;
    std::unique_ptr<Keys> keys;
    Describer describer;
    bool follows = true; // otherwise nothing is flushed
    ItemWords words;
    DayStrip *days = &DayStrip::None();
    AccessibleNotices notices;
    QPointF pointer; // pixels of the viewport
    std::optional<int> shape;

private:
    void ItemAdded(Item &item) override;
    void ItemChanged(Item &item, Change what) override;
    void ItemRemoved(Item &item) override;
    void SurfaceChanged(Change what) override;
    void Cleared() override;
    void BeforeUndo() override;
    void AfterUndo() override;

    void Answered(bool yes);
    FocusRing Ring() const;
    PasteAim Aim() const;
    void ShowSelectedNodes();
    void ZoomBy(double factor, const QPointF &at);

    UndoneItems undone_;
    diagram::Wheel wheel_;
    bool pointerOver_ = false;        // the viewport
    std::optional<QPointF> copiedAt_; // the pointer's place when the clipboard was filled, twips
    Qt::KeyboardModifiers modifiers_;
    Qt::MouseButton button_ = Qt::NoButton; // that the gesture began with
    bool flushAsked_ = false;
    bool endedText_ = false; // by the last press, which was meant for that alone
    bool gestureOutdated_ = false;
    bool byKeyboard_ = false;
};

} // namespace diagram
