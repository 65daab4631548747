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
    // What of the strip of days lies there (pixels), unless an item lies over it.
    std::optional<StripSpot> SpotAt(const QPointF &pixels);
    // The input for that place; on the slim copy of the strip, which covers what lies there, for the place on
    // the strip itself, while no gesture goes on.
    PointerInput Meant(const QPointF &pixels, Qt::KeyboardModifiers modifiers);
    void Fold(const StripSpot &spot);
    void FollowPointer(const QPointF &pixels, Qt::KeyboardModifiers modifiers);
    void AutoScroll();
    bool ToolTip(const QPoint &pixels, const QPoint &global);
    void Leave();
    void AfterInput();
    // Whether the user works with the keyboard or with the mouse, by which the focus ring is shown.
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
    // The focus goes to another widget: gives the gesture up, unless that is the menu of its offer.
    void FocusGoes();
    // Gives up a gesture whose items went away under it.
    void DropOutdatedGesture();
    template <typename Body>
    bool Guard(const char *routine, Body &&body) {
        return guard.Run(routine, std::forward<Body>(body));
    }
    // Pastes what the clipboard holds. False, with the reason in `why`, where that is nothing; an error of
    // too many lines sets `why` too.
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
    bool follows = true; // the model; otherwise nothing is flushed
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
    bool pointerOver_ = false;        // the pointer is over the viewport
    std::optional<QPointF> copiedAt_; // where the pointer was when the clipboard was filled, twips
    Qt::KeyboardModifiers modifiers_;
    Qt::MouseButton button_ = Qt::NoButton; // with which the gesture began
    bool flushAsked_ = false;
    bool endedText_ = false;       // the last press ended an editing and was meant for that alone
    bool gestureOutdated_ = false; // items went away while it lasted
    bool byKeyboard_ = false;
};

} // namespace diagram
