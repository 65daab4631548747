// The sizes that zooming in and out goes through, in per cent.
#pragma once

namespace diagram {

// The next larger and the next smaller step than the zoom shown; the last step itself at either end.
double NextZoom(double percent);
double PreviousZoom(double percent);

} // namespace diagram
