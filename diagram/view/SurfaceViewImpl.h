// The parts of a SurfaceView and how they work together.
#pragma once

#include "diagram/interaction/EditText.h"
#include "diagram/interaction/Interaction.h"
#include "diagram/interaction/LooseEnd.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/Accessible.h"
#include "diagram/view/InPlaceEditor.h"
#include "diagram/view/OverlayPainter.h"
#include "diagram/view/Screen.h"
#include "diagram/view/SelectionPainter.h"
#include "diagram/view/SurfaceView.h"
#include "diagram/view/Viewport.h"

#include <QBasicTimer>
#include <QPointer>
#include <vector>

namespace diagram {

class SurfaceView::Impl : public SurfaceObserver, public Stage {
public:
    Impl(SurfaceView &view, Surface &surface);
    ~Impl() override;

    // Painting
    void Paint(const QRegion &region);
    void UpdateOverlay();
    void UpdatePointer();
    // Brings everything that follows from the model up to date, now; changes of the model ask for it once an
    // event loop turn.
    void Flush();
    void RepaintAll();
    // Paints more of what has come into sight.
    void PaintOn();

    // Pointer and keys
    PointerInput Input(const QPointF &pixels, Qt::KeyboardModifiers modifiers) const;
    void Press(QMouseEvent *event);
    void Move(QMouseEvent *event);
    void Release(QMouseEvent *event);
    void DoubleClick(QMouseEvent *event);
    void Wheel(QWheelEvent *event);
    void KeyPress(QKeyEvent *event);
    void KeyRelease(QKeyEvent *event);
    void TypeByInputMethod(QInputMethodEvent *event);
    bool BeginLink(LinkSide loose);
    bool BeginBend();
    // Of a node that was resized by keys.
    void HideSize();
    void AutoScroll();
    bool ToolTip(const QPoint &pixels, const QPoint &global);
    void Leave();

    // Text in place
    bool BeginEdit(const QString *typed = nullptr);
    void KeepText();
    void EndEdit(bool keep);
    void PlaceEditor();
    std::optional<std::pair<ItemId, QString>> Typed() const;

    // Stage
    QPointF ScrollOffset() const override;
    void SetScrollOffset(const QPointF &pixels) override;
    QRectF Seen() const override { return viewport.Seen(); }
    void EnsureVisible(const QRectF &area) override { viewport.EnsureVisible(area); }
    void Tell(Hint hint) override;
    DayStrip &Days() const override { return *days; }

    void Scrolled();
    bool CancelGesture();
    // Runs `body`; an error in it goes to the surface's event Error, and is shown unless the handler says
    // otherwise. False after an error.
    template <typename Body>
    bool Guard(const char *routine, Body &&body) {
        try {
            body();
            return true;
        } catch (...) {
            Failed(routine);
            return false;
        }
    }
    // Pastes what the clipboard holds. When it doesn't, after an error too, `why` is told.
    bool Paste(Hint &why);

    SurfaceView &view;
    Surface &surface;
    Scene scene;
    Renderer renderer;
    Viewport viewport;
    Interaction interaction;
    QPointer<InPlaceEditor> editor;
    Describer describer;
    ItemWords words;
    DayStrip *days = &DayStrip::None();
    AccessibleNotices notices;

private:
    void ItemAdded(Item &item) override;
    void ItemChanged(Item &item, Change what) override;
    void ItemRemoved(Item &item) override;
    void SurfaceChanged(Change what) override;
    void Cleared() override;
    void BeforeUndo() override;

    void AskForFlush();
    void Failed(const char *routine);
    // Gives up a gesture whose items went away under it.
    void DropOutdatedGesture();
    void FollowPointer(const QPointF &pixels, Qt::KeyboardModifiers modifiers);
    void AfterInput();
    QRect DevicePixelsSeen() const;
    QRect ToDevice(const QRectF &twips) const;
    void NoteDamage();
    void NoteSelectionForm();
    void NoteToday();
    void PaintArea(QPainter &painter, const QRect &devicePixels);
    void PaintPicture();
    int BandRows(const QRect &seen);
    void UpdatePixels(const QRectF &pixels);
    FocusRing Ring() const;
    // Which of keyboard and mouse the user works with.
    void NoteHand(bool keyboard);
    bool RunKey(QKeyEvent *event);
    // The same while keys lead a gesture.
    bool LeadByKey(QKeyEvent *event);
    bool Begin(std::unique_ptr<Gesture> gesture);
    bool LinkKey(const KeyInput &input);
    bool ArrowKey(const KeyInput &input);
    bool Resize(const QPointF &growth);
    bool Tab(const KeyInput &input);
    // A modifier went up or down: the gesture looks at it at once.
    void FollowModifier(int key, Qt::KeyboardModifiers modifiers);
    bool AddLinked();
    bool GoTowards(const QPointF &direction, const KeyInput &input);
    // Selects the item alone and brings it into sight; false for none.
    bool GoTo(Item *item);
    // Takes the node into the selection, or goes back to it along what is selected; false for none.
    bool ReachTo(Node *node);
    bool GoAlongLinks(int step);
    // The selected node, or that around which the keys go from link to link; null for none.
    Node *Anchor() const;
    bool TypeByKey(QKeyEvent *event);
    QString TipAt(const QPointF &at);
    void StartOrStopAutoScroll();
    QPoint AutoScrollStep() const;
    friend class SurfaceView;

    Screen screen_;
    int bandRows_ = 0;               // of the bands in which the picture is painted
    QBasicTimer slices_;             // goes on painting when the event loop has nothing else to do
    bool resting_ = false;           // nothing has moved since the last slice
    std::optional<int> frameBudget_; // milliseconds; empty for the usual ones
    std::optional<QLineF> today_;    // twips
    bool todayOutdated_ = true;
    OverlayPlace overlayPlace_; // as last painted
    std::vector<std::pair<ItemKind, ItemId>> selectionTouched_;
    SelectionForm selectionForm_; // as last painted
    std::optional<EditText> edit_;
    QBasicTimer autoScroll_;
    QPointF pointer_; // pixels of the viewport
    Qt::KeyboardModifiers modifiers_;
    QPointF direction_{1, 0};               // in which the user went last
    ItemId around_ = kNoItem;               // the node whose links the keys go through
    Qt::MouseButton button_ = Qt::NoButton; // that the gesture began with
    bool flushAsked_ = false;
    bool gestureOutdated_ = false;
    bool spaceHeld_ = false;
    bool byKeyboard_ = false;
};

} // namespace diagram
