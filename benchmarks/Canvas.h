// A view of the sample diagram, and where a user would press in it.
#pragma once

#include "benchmarks/Hand.h"
#include "diagram/hit/HitTest.h"
#include "diagram/view/SurfaceView.h"

#include <memory>

namespace bench {

// A view of 1280 x 800 pixels without the editor's window around it, shown and at rest.
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

// Shows about 200 boxes around the middle of the diagram, with empty caches and nothing selected.
void ShowTwoHundred(diagram::SurfaceView &view);
// Shows the whole diagram in the same way.
void ShowWhole(diagram::SurfaceView &view);
// Scrolls the point (twips) into the middle of the view.
void Centre(diagram::SurfaceView &view, const QPointF &middle);
// A place in the node from which a drag moves it; twips.
QPointF BodyOf(const diagram::Node &node);
// The node nearest to the middle of what is seen whose body no link covers.
diagram::Node &MiddleNode(diagram::SurfaceView &view);
// Runs events until the view shows an exact picture.
void Settle(diagram::SurfaceView &view);

// For places that must be free: hits from further away than the view itself does; twips.
inline constexpr diagram::HitOptions kGenerousHit{.tolerance = 150, .handleSize = 300};

} // namespace bench
