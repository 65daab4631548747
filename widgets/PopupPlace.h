// Where popups stand, in coordinates of the screen.
#pragma once

#include <QRect>

namespace widgets {

// What popups may cover of the screen on which the place lies; of the first screen when it lies on none.
QRect RoomAround(const QRect &place);

// Where a popup of that size stands: below `place`, or above it where that has more room and it doesn't fit
// below; in line with its left side, but moved to the left where the screen ends. Made lower where there is
// too little room, and narrower than the screen.
QRect BesidePlace(const QSize &size, const QRect &place, const QRect &screen);

} // namespace widgets
