#include "diagram/view/EdgeScroll.h"

#include <algorithm>
#include <cmath>
#include <QObject>

namespace diagram {

namespace {

constexpr int kEdge = 12;           // pixels from the edge at which a drag scrolls
constexpr int kScrollInterval = 25; // milliseconds
constexpr int kFastest = 40;        // pixels a step

// How far a drag scrolls when the pointer is at `at` of `length`.
int EdgeStep(double at, int length) {
    const double beyond = at < kEdge ? at - kEdge : (at > length - kEdge ? at - (length - kEdge) : 0);
    return std::clamp(int(std::round(beyond)), -kFastest, kFastest);
}

} // namespace

QPoint EdgeScroll::Step(const QPointF &at, const QSize &size) {
    return {EdgeStep(at.x(), size.width()), EdgeStep(at.y(), size.height())};
}

void EdgeScroll::Follow(bool wanted, const QPointF &at, const QSize &size) {
    const bool scrolls = wanted && !Step(at, size).isNull();
    if (scrolls == timer_.isActive()) return;
    if (scrolls)
        timer_.start(kScrollInterval, &host_);
    else
        timer_.stop();
}

} // namespace diagram
