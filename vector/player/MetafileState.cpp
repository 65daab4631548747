#include "vector/player/MetafileState.h"

#include "vector/player/MetafileValues.h"

#include <algorithm>
#include <cmath>

namespace vector {

namespace {

// Millimetres of a logical unit in the modes 2 to 6: y grows upwards in them.
constexpr double kUnitOfMode[] = {0.1, 0.01, 0.254, 0.0254, 25.4 / 1440};

double Ratio(double viewport, double window) { return window == 0 ? 1 : viewport / window; }

} // namespace

QTransform MetafileMapping::ToDevice() const {
    double x = 1, y = 1;
    if (mode >= 2 && mode <= 6) {
        x = kUnitOfMode[mode - 2] * unitsPerMillimetre.width();
        y = -kUnitOfMode[mode - 2] * unitsPerMillimetre.height();
    } else if (mode == metafile::kIsotropic || mode == metafile::kAnisotropic) {
        x = Ratio(viewport.width(), window.width());
        y = Ratio(viewport.height(), window.height());
    }
    if (mode == metafile::kIsotropic) {
        const double least = std::min(std::abs(x), std::abs(y));
        x = std::copysign(least, x), y = std::copysign(least, y);
    }
    QTransform page(x, 0, 0, y, viewportOrigin.x() - windowOrigin.x() * x,
                    viewportOrigin.y() - windowOrigin.y() * y);
    return world * page;
}

} // namespace vector
