// Draws what is moved, resized or drawn to its neighbours and to the grid.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/Guides.h"
#include "diagram/interaction/HeldItems.h"

#include <vector>

namespace diagram {

class Scene;

// Pixels from which something is drawn to a guide.
constexpr double kSnapPixels = 4;
// With more nodes than that in sight nothing is drawn to them: some would line up everywhere.
constexpr size_t kMostNeighbours = 2000;

// A guide comes before the grid; Alt turns both off. Only nodes in sight are looked at.
class Snapping {
public:
    // Both must live longer. `moving` are no neighbours; null leaves nobody out.
    Snapping(Scene &scene, const Stage &stage, const HeldItems *moving);

    // How far a box goes when the pointer went by `distance`: Shift keeps it on one axis. `corner` is what
    // the grid draws.
    QPointF Move(const QRectF &box, const QPointF &corner, const QPointF &distance,
                 const PointerInput &input);
    // How far the sides of `box` go that `x` and `y` name (Low, High or Nothing).
    QPointF Resize(const QRectF &box, Moving x, Moving y, const QPointF &distance, const PointerInput &input);
    // Where a new node's first corner goes.
    QPointF Corner(const QPointF &at, const PointerInput &input);
    // What the box lines up with after one of the above; `box` is where it came to stand.
    void Note(const QRectF &box, Moving x, Moving y, const PointerInput &input);
    void Show(Overlay &overlay) const;

private:
    void LookAround();
    double Snapped(const QRectF &at, Qt::Orientation axis, Moving moving, double place, double distance,
                   const PointerInput &input) const;

    Scene &scene_;
    const Stage &stage_;
    std::vector<ItemId> moving_; // sorted
    Guides guides_;
    QRectF seen_; // when the neighbours were looked for, twips
    std::vector<QLineF> lines_, gaps_, sizes_;
};

} // namespace diagram
