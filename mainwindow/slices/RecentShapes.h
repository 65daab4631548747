// The shapes that were chosen last, as the user's settings keep them.
#pragma once

#include <vector>

namespace mainwindow {

// The last one first; without what is no number.
std::vector<int> RecentShapes();
// Takes the shape to the front, stores the list, and forgets those behind the first six. Error 26001.
void RememberShape(int shape);

} // namespace mainwindow
