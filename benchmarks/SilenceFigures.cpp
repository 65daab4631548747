#include "benchmarks/BenchWindow.h"
#include "benchmarks/Canvas.h"
#include "benchmarks/GeneratedMap.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"

#include <algorithm>
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace bench {

namespace {

constexpr int kNodes = 10000;
constexpr int kInterval = 5;   // milliseconds
constexpr double kBound = 500; // the same

// Measures how long the event loop answers nothing, by a timer that fires as long as it runs.
class SilenceMeter {
public:
    SilenceMeter() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Note(); });
        since_.start();
        timer_.start(kInterval);
    }
    void Note() {
        const double now = double(since_.nsecsElapsed()) / 1e6;
        silences_.push_back({now - last_, last_});
        last_ = now;
    }
    // The times between two notes, the longest first: how long, and since when; milliseconds.
    std::vector<std::pair<double, double>> Silences() {
        Note();
        std::sort(silences_.rbegin(), silences_.rend());
        return silences_;
    }

private:
    QTimer timer_;
    QElapsedTimer since_;
    double last_ = 0;
    std::vector<std::pair<double, double>> silences_;
};

using Fill = void (*)(diagram::Surface &surface, int nodes);

void AddSilence(Figures &figures, const char *key, const char *name, Fill fill) {
    BenchWindow window;
    fill(window.Form().CurrentSurface(), kNodes);
    Settle(window.Form().CurrentView());
    SilenceMeter meter;
    window.Form().SmartMenuXP1_Click(QLatin1String(key));
    Settle(window.Form().CurrentView());
    const auto silences = meter.Silences();
    QString remark = QStringLiteral("the longest begin at");
    for (std::size_t i = 0; i < std::min<std::size_t>(3, silences.size()); ++i)
        remark += QStringLiteral(" %1 s (%2 ms)")
                      .arg(silences[i].second / 1000, 0, 'f', 2)
                      .arg(silences[i].first, 0, 'f', 0);
    figures.push_back({QStringLiteral("window silent, %1 of 10,000 nodes").arg(QLatin1String(name)),
                       silences.front().first, QStringLiteral("ms"), kBound, remark});
}

} // namespace

Figures SilenceFigures() {
    Figures figures;
    AddSilence(figures, "mnuLayoutHExecute", "layered layout anyhow", FillAnyhow);
    AddSilence(figures, "mnuLayoutHExecute", "layered layout", FillSample);
    AddSilence(figures, "mnuLayoutTreeExecute", "tree", FillSample);
    AddSilence(figures, "mnuLayoutOrganic", "organic layout", FillSample);
    AddSilence(figures, "mnuLayoutLevels", "lanes", FillSample);
    return figures;
}

} // namespace bench
