#include "widgets/PopupPlace.h"

#include <QGuiApplication>
#include <QScreen>

namespace widgets {

QRect RoomAround(const QRect &place) {
    const QScreen *screen = QGuiApplication::screenAt(place.center());
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

QRect BesidePlace(const QSize &size, const QRect &place, const QRect &screen) {
    const int below = screen.bottom() - place.bottom(), above = place.top() - screen.top();
    const bool under = below >= size.height() || below >= above;
    const int height = qMin(size.height(), under ? below : above);
    const int width = qMin(size.width(), screen.width());
    const int left = qMax(screen.left(), qMin(place.left(), screen.left() + screen.width() - width));
    return {left, under ? place.bottom() + 1 : place.top() - height, width, height};
}

} // namespace widgets
