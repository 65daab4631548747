// What is derived from a surface for painting and hit testing: bounds, spatial index, crossings. It can be
// thrown away and built again at any time with the same result.
#pragma once

#include "diagram/model/Calendar.h"
#include "diagram/model/SurfaceObserver.h"

#include <memory>
#include <QPainterPath>
#include <QRectF>
#include <vector>

namespace diagram {

class Surface;
class Node;
class Link;

// A place where a link with a jump style crosses one without, or one that lies lower in the stacking.
struct Crossing {
    int segment = 0;  // of the link that jumps; a curve is a single one
    double along = 0; // distance from the segment's start along the line, twips
    QPointF point;
};

// Bounds are in twips and hold everything that painting touches: border, shadow, arrow heads, label, text
// that sticks out. Work is put off: a change only notes the item, the next question brings the index up to
// date.
class Scene : private SurfaceObserver {
public:
    explicit Scene(Surface &surface);
    ~Scene() override;
    Scene(const Scene &) = delete;
    Scene &operator=(const Scene &) = delete;

    Surface &Model() const { return surface_; }

    // The style that links get which the user draws on this surface; kAutomaticStyle for the best one of
    // each.
    int StyleToDraw() const { return styleToDraw_; }
    void SetStyleToDraw(int style) { styleToDraw_ = style; }

    // Items that aren't hidden and whose bounds touch `area`, from the lowest to the highest. Appends to
    // `items`, which the caller clears: the buffer is meant to be used again.
    void ItemsIn(const QRectF &area, std::vector<Item *> &items);
    QRectF Bounds(const Item &item);
    // Union of the bounds of everything that isn't hidden, and of the calendar; empty for an empty surface.
    QRectF Extent();
    // What is drawn beside the strip of days; worked out anew when the strip has changed.
    const Calendar &TheCalendar();
    QPainterPath NodeOutline(const Node &node);
    // The line of the link as it is painted, without jumps and arrow heads: straight segments, or curves.
    QPainterPath LinkPath(const Link &link);
    // Where the label stands, on the line or beside it; empty without text.
    QRectF LabelBounds(const Link &link);
    // Where a label of that size would stand.
    QRectF LabelPlace(const Link &link, const QSizeF &size);
    // Jumps of `link` in order along its route; empty for jump style 0.
    std::vector<Crossing> Crossings(const Link &link);

    // Bounds, old and new, of what has changed since the last call and is painted otherwise now; selecting
    // changes nothing here, as handles are the view's. The first call gives everything. `everything` is set
    // when the whole surface must be painted.
    struct Damage {
        bool everything = false;
        std::vector<QRectF> areas;
    };
    Damage TakeDamage();

private:
    void ItemAdded(Item &item) override;
    void ItemChanged(Item &item, Change what) override;
    void ItemRemoved(Item &item) override;
    void SurfaceChanged(Change what) override;
    void Cleared() override;
    void NoteStrip(const Item &item, Change what);

    struct State; // the index, the labels and what is out of date
    Surface &surface_;
    std::unique_ptr<State> state_;
    int styleToDraw_ = 0;
};

} // namespace diagram
