// The screen's side of a surface: Qt events in, pixels out.
#pragma once

#include "diagram/interaction/AddLinked.h"
#include "diagram/interaction/Attention.h"
#include "diagram/interaction/Hint.h"
#include "diagram/model/Surface.h"

#include <functional>
#include <memory>
#include <optional>
#include <QAbstractScrollArea>
#include <QLineF>
#include <vector>

class QAccessibleEvent;

namespace diagram {

class DayStrip;
class Scene;
class Renderer;
class Sights;

// What nodes and links are called: singular, as at the start of a sentence.
struct ItemWords {
    QString node = QStringLiteral("Node");
    QString link = QStringLiteral("Link");
};

// Shows one surface and edits it. The surface must live longer than the view. Sets the surface's size, scroll
// offsets and text measuring, and raises its events.
class SurfaceView : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit SurfaceView(Surface &surface, QWidget *parent = nullptr);
    ~SurfaceView() override;

    Surface &Model() const;
    Scene &TheScene() const;
    Renderer &TheRenderer() const;

    // Zoom in per cent as it is shown; follows the surface's xZoom and yZoom, 0 of which fits the content
    // into the window.
    double ShownZoom() const;
    // Zooms around a point of the viewport (pixels), from 10 to 800 per cent. What is shown then differs from
    // the stored zoom until that is set to another value, or until FollowStoredZoom.
    void ZoomAt(double percent, const QPointF &at);
    void FollowStoredZoom();
    // The shape of the nodes that are drawn next, until another one is set; none: that of the surface's
    // defaults. While there is one, a click on the empty page adds a node of a usual size. Escape takes it
    // away, unless a gesture goes on.
    void SetShapeToDraw(std::optional<int> shape);
    std::optional<int> ShapeToDraw() const;
    // Adds a node of that shape and a usual size around a point of the viewport (pixels): one step of undo.
    void PlaceShape(int shape, const QPointF &at);
    // The words stand on the page while it is empty, on the screen alone; an assistant is told the same.
    void SetEmptyNote(const QString &words);

    // Whether the last frame was exact. While a large diagram is zoomed or scrolled a frame may show what was
    // painted before, scaled; the rest is painted as soon as the event loop has nothing else to do.
    bool IsExact() const;
    // How long a frame may take for painting what has come into sight; 0 paints one band of it. Empty for as
    // long as a smooth motion allows.
    void SetFrameBudget(std::optional<int> milliseconds);
    // While off, the view doesn't look at the surface and paints nothing, however often events run: for work
    // that isn't done yet, or is long to look at.
    void SetFollowing(bool on);
    // Between viewport pixels and twips.
    QPointF ToSurface(const QPointF &pixels) const;
    QPointF FromSurface(const QPointF &twips) const;
    // Scrolls so that the area (twips) is seen.
    void EnsureVisible(const QRectF &area);

    // The clipboard's operations and the deletion, each one step of undo. What can't be done is false:
    // nothing has changed then, neither here nor on the clipboard, and HintShown says why. Links go along
    // with the nodes at both their ends; alone they can't be copied or cut.
    bool Copy();
    bool Cut();
    bool Paste();
    bool CanPaste() const;
    // Copies of the selected nodes beside them, as one step; the clipboard stays. False when none is
    // selected.
    bool Duplicate();
    void DeleteSelection();

    // Starts editing the text of the selected node or link in place; false when nothing is selected or the
    // text is too long. KeepText keeps what was typed and lets the typing go on; EndEdit keeps it or gives it
    // up.
    bool BeginEdit();
    void KeepText();
    void EndEdit(bool keep);
    bool IsEditing() const;
    // The item that is edited in place, and the text that EndEdit would write if it kept what was typed so
    // far; none while nothing is edited, or nothing but what the item has.
    std::optional<std::pair<ItemId, QString>> Typed() const;

    // What a screen reader is told of an item beside its text and its links: its level and groups, say. Is
    // asked whenever an assistant asks.
    using Describer = std::function<QString(const Item &item)>;
    void SetDescriber(Describer describer);
    QString Described(const Item &item) const; // empty without a describer

    // The strip of days to which nodes of the surface belong by their dates; must live longer than the view.
    void SetDays(DayStrip &days);

    // Where pages of paper end, in twips: shown lightly over the diagram, never printed. None at first.
    void SetPageBreaks(std::vector<QLineF> breaks);

    // Shows and hides items for a while in place of what they say themselves: in the picture alone. Empty
    // ones show what the items say again.
    void SetSights(Sights sights);

    // What nodes and links are called when a screen reader tells of them.
    void SetWords(const ItemWords &words);
    const ItemWords &Words() const;
    // Is handed what an assistant would be told, in its place and also while none runs; an empty one gives
    // the place back.
    using Assistant = std::function<void(QAccessibleEvent &event)>;
    void SetAssistant(Assistant assistant);

    // Lets the keys find the node to which the selected node is linked, or the selected link leads; with
    // `backwards` the one from which. False when nothing is selected or a gesture goes on.
    bool BeginLink(bool backwards = false);
    // Adds a child or a sibling of the selected node, with none selected a node in the middle of what is
    // seen, and begins to edit its text. False when a gesture goes on.
    bool AddKin(diagram::Kin kin);
    // Lets the keys bend the selected link; false when none is selected or a gesture goes on.
    bool BeginBend();
    // The item with the keyboard's focus: the one that keys have come to in a gesture, else the selected
    // node, else the selected link; null for none.
    Item *FocusedItem() const;
    // What a gesture that is led by keys has come to.
    Attention LooksAt() const;
    // Gives up the gesture that is going on; false when there is none.
    bool CancelGesture();

Q_SIGNALS:
    // Something to tell the user in passing, in a status bar.
    void HintShown(diagram::Hint hint);
    // The same where nothing else is told: what was told last stays.
    void HintOffered(diagram::Hint hint);
    // Escape took the shape to draw away.
    void ShapeDropped();
    // What was seen changed its place or size: scrolled, zoomed or resized.
    void ViewChanged();

protected:
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void hideEvent(QHideEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace diagram
