// Keeps nodes in sight that a command has moved.
#pragma once

#include <vector>

namespace diagram {
class Node;
class SurfaceView;
} // namespace diagram

namespace mainwindow {

// Scrolls to the first of the nodes where none of them is in sight.
void BringIntoSight(diagram::SurfaceView &view, const std::vector<diagram::Node *> &nodes);

} // namespace mainwindow
