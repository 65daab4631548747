#include "benchmarks/Measure.h"

#include <algorithm>
#include <limits>
#include <QElapsedTimer>
#include <stdexcept>

namespace bench {

double TimeOf(const std::function<void()> &what) {
    QElapsedTimer timer;
    timer.start();
    what();
    return double(timer.nsecsElapsed()) / 1e6;
}

double BestOf(int runs, const std::function<double()> &run) {
    double best = run();
    for (int i = 1; i < runs; ++i) best = std::min(best, run());
    return best;
}

double BestOf(int runs, const std::function<void()> &before, const std::function<void()> &what) {
    return BestOf(runs, [&] {
        before();
        return TimeOf(what);
    });
}

void Require(bool holds, const char *expected) {
    if (!holds) throw std::runtime_error(expected);
}

Figure FailedFigure(const QString &name, double bound, const std::exception &failure) {
    return {name, std::numeric_limits<double>::quiet_NaN(), QStringLiteral("ms"), bound,
            QStringLiteral("fails; not so: %1").arg(QLatin1String(failure.what()))};
}

} // namespace bench
