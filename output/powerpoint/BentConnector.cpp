#include "output/powerpoint/BentConnector.h"

#include <algorithm>
#include <cmath>

namespace powerpoint {

namespace {

constexpr double kStraight = 20;   // EMU by which a horizontal or vertical segment may slant
constexpr double kThinnest = 1270; // EMU of a box's side, as adjustments are fractions of it
constexpr double kMostAdjust = 2e9;

// Whether the segments are horizontal and vertical in turn, the first one horizontal if `levelFirst`.
bool Alternates(const std::vector<QPointF> &route, bool levelFirst) {
    for (std::size_t i = 1; i < route.size(); ++i) {
        const QPointF step = route[i] - route[i - 1];
        const bool level = (i % 2 == 1) == levelFirst;
        if (std::abs(level ? step.y() : step.x()) > kStraight) return false;
    }
    return true;
}

double Thick(double length) {
    return std::abs(length) >= kThinnest ? length : std::copysign(kThinnest, length);
}

// Where the bends lie, as parts of the way from the start to the end, across and down in turn.
std::vector<int> AdjustsOf(const std::vector<QPointF> &route, bool levelFirst) {
    const QPointF whole = route.back() - route.front();
    std::vector<int> adjusts;
    for (std::size_t i = 1; i + 2 < route.size(); ++i) {
        const QPointF at = route[i] - route.front();
        const bool across = (i % 2 == 1) == levelFirst;
        const double part = across ? at.x() / Thick(whole.x()) : at.y() / Thick(whole.y());
        adjusts.push_back(int(std::clamp(part * 100000, -kMostAdjust, kMostAdjust)));
    }
    return adjusts;
}

} // namespace

std::optional<BentConnector> FindBentConnector(const std::vector<QPointF> &route) {
    if (route.size() < 3 || route.size() > 6) return std::nullopt;
    const bool levelFirst = Alternates(route, true);
    if (!levelFirst && !Alternates(route, false)) return std::nullopt;
    const QPointF whole = route.back() - route.front();
    const QRectF box = QRectF(route.front(), QSizeF(Thick(whole.x()), Thick(whole.y()))).normalized();
    BentConnector found;
    found.segments = int(route.size()) - 1;
    found.adjusts = AdjustsOf(route, levelFirst);
    found.turned = !levelFirst;
    found.box = box;
    found.flipH = whole.x() < 0;
    found.flipV = whole.y() < 0;
    if (found.turned) {
        const QPointF half(box.height() / 2, box.width() / 2);
        found.box = QRectF(box.center() - half, box.size().transposed());
        found.flipH = whole.y() < 0;
        found.flipV = whole.x() >= 0;
    }
    return found;
}

} // namespace powerpoint
