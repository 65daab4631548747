#include "diagram/view/ZoomSteps.h"

#include <algorithm>
#include <iterator>

namespace diagram {

namespace {
constexpr double kSteps[] = {10,  25,  33,  50,  67,  75,  90,  100, 110,
                             125, 150, 175, 200, 250, 300, 400, 500, 800};
constexpr double kSame = 0.5; // per cent: nearer to a step than this is that step
} // namespace

double NextZoom(double percent) {
    const double *step = std::upper_bound(std::begin(kSteps), std::end(kSteps), percent + kSame);
    return step == std::end(kSteps) ? std::max(percent, kSteps[std::size(kSteps) - 1]) : *step;
}

double PreviousZoom(double percent) {
    const double *step = std::lower_bound(std::begin(kSteps), std::end(kSteps), percent - kSame);
    return step == std::begin(kSteps) ? std::min(percent, kSteps[0]) : *(step - 1);
}

} // namespace diagram
