// A view of the sample diagram as a user has it in front of him, and what he does with it.
#pragma once

#include "benchmarks/Hand.h"
#include "diagram/hit/HitTest.h"
#include "diagram/view/SurfaceView.h"

#include <memory>

namespace bench {

// 1280 x 800 pixels, in the middle of the diagram, shown without a window around it.
class Canvas {
public:
    explicit Canvas(int nodes);
    ~Canvas();

    diagram::Surface &Model() { return *surface_; }
    diagram::SurfaceView &View() { return *view_; }

private:
    std::unique_ptr<diagram::Surface> surface_;
    std::unique_ptr<diagram::SurfaceView> view_;
};

// The view shows about 200 boxes around the middle of the diagram, with empty caches and nothing selected.
void ShowTwoHundred(diagram::SurfaceView &view);
// The view shows all.
void ShowWhole(diagram::SurfaceView &view);
// Scrolls the point (twips) into the middle.
void Centre(diagram::SurfaceView &view, const QPointF &middle);
// Where a node can be taken hold of to move it: beside the middle, from where links are dragged.
QPointF BodyOf(const diagram::Node &node); // twips
// The node nearest to the middle of what is seen whose body no link covers.
diagram::Node &MiddleNode(diagram::SurfaceView &view);
// Lets the view come to rest, with an exact picture.
void Settle(diagram::SurfaceView &view);

// Whatever the view takes a press for, this takes a place for that too; twips.
inline constexpr diagram::HitOptions kGenerousHit{.tolerance = 150, .handleSize = 300};

} // namespace bench
