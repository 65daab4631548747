// What has been moved by a command isn't lost out of sight.
#pragma once

#include <vector>

namespace diagram {
class Node;
class SurfaceView;
} // namespace diagram

namespace mainwindow {

// Where none of them is seen any more, the page moves to the first.
void BringIntoSight(diagram::SurfaceView &view, const std::vector<diagram::Node *> &nodes);

} // namespace mainwindow
