// Keeps what the viewport shows the same as the model: what has changed is painted again, a little at a time
// where it is much.
#pragma once

#include "diagram/model/Sights.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/OverlayPainter.h"
#include "diagram/view/Screen.h"
#include "diagram/view/SelectionPainter.h"

#include <optional>
#include <QBasicTimer>
#include <QLineF>
#include <utility>
#include <vector>

class QWidget;

namespace diagram {

class DayStrip;
class Renderer;
class Viewport;

// Pixels are those of the viewport. All that it is handed must live longer.
class Repainting {
public:
    // `canvas` is what is painted on; the timer's events go to `host`.
    Repainting(QObject &host, QWidget &canvas, Scene &scene, Renderer &renderer, const Viewport &viewport);

    // Paints what has come into sight as far as the budget allows, and shows it with the marks over it.
    void Paint(const QRegion &region, const Overlay &overlay, FocusRing ring);
    // Paints more of what has come into sight.
    void PaintOn();
    bool IsPaintingOn(int timer) const { return timer == slices_.timerId(); }
    bool IsExact() const { return screen_.IsExact(); }
    // Milliseconds of a frame; empty for as long as a smooth motion allows.
    void SetBudget(std::optional<int> milliseconds) { budget_ = milliseconds; }

    // The item was selected or isn't any more.
    void NoteSelected(const Item &item);
    // Has painted what has changed in the scene and the selection since it was called last.
    void NoteDamage();
    // The same for the marks of a gesture.
    void NoteOverlay(const Overlay &overlay);
    // The marks on the strip of days, today's line and where it looks torn, may lie elsewhere now.
    void OutdateToday() { todayOutdated_ = true; }
    // Asks the strip for these marks where they are outdated, and has them painted.
    void NoteToday(const DayStrip &days);
    // The links of the node under the pointer to its day don't stand back; null for no node.
    void SetPointed(const Node *node);
    // What to show and hide in place of what the items say; empty for nothing.
    void SetSights(Sights sights);
    void SetPageBreaks(std::vector<QLineF> breaks); // twips

private:
    void RepaintAll();
    void Update(const QRectF &pixels);
    void NoteSelectionForm();
    void AddDamage(const Scene::Damage &damage, RectList &areas);
    void AddTouched(RectList &areas);
    QRect DevicePixelsSeen() const;
    QRect ToDevice(const QRectF &twips) const;
    void PaintArea(QPainter &painter, const QRect &devicePixels);
    void PaintPicture();
    void PaintStripMarks(QPainter &painter);
    void AddQuietLinks(const Node &node, RectList &areas);
    int BandRows(const QRect &seen);
    void CopyPicture(QPainter &painter, const QRegion &region);

    QObject &host_;
    QWidget &canvas_;
    Scene &scene_;
    Surface &surface_;
    Renderer &renderer_;
    const Viewport &viewport_;
    Screen screen_;
    int bandRows_ = 0;            // of the bands in which the picture is painted
    QBasicTimer slices_;          // goes on painting when the event loop has nothing else to do
    bool resting_ = false;        // nothing has moved since the last slice
    std::optional<int> budget_;   // milliseconds
    std::optional<QLineF> today_; // twips
    std::vector<QLineF> breaks_;  // of the strip of days, twips
    bool todayOutdated_ = true;
    std::optional<ItemId> pointed_;  // the node under the pointer
    std::vector<QLineF> pageBreaks_; // twips
    Sights sights_;
    OverlayPlace overlayPlace_; // as last painted
    std::vector<std::pair<ItemKind, ItemId>> selectionTouched_;
    SelectionForm selectionForm_; // as last painted
};

} // namespace diagram
