#include "mainwindow/edits/BringIntoSight.h"

#include "diagram/model/Node.h"
#include "diagram/view/SurfaceView.h"

#include <algorithm>

namespace mainwindow {

void BringIntoSight(diagram::SurfaceView &view, const std::vector<diagram::Node *> &nodes) {
    if (nodes.empty()) return;
    const QRectF pixels = view.viewport()->rect();
    const QRectF seen(view.ToSurface(pixels.topLeft()), view.ToSurface(pixels.bottomRight()));
    const auto isSeen = [&](const diagram::Node *node) { return node->Bounds().intersects(seen); };
    if (std::ranges::none_of(nodes, isSeen)) view.EnsureVisible(nodes.front()->Bounds());
}

} // namespace mainwindow
