#include "benchmarks/CommandFigures.h"

#include "benchmarks/BenchWindow.h"
#include "benchmarks/Canvas.h"
#include "benchmarks/Sample.h"
#include "benchmarks/Stage.h"
#include "mainwindow/Commands.h"
#include "mainwindow/Toolbar.h"

#include <algorithm>
#include <functional>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

namespace bench {

namespace {

using mainwindow::frmMain;

constexpr double kBound = 50; // milliseconds
constexpr int kRuns = 3;
constexpr int kNodesOfSmallMap = 12;

struct Command {
    QString name;
    std::function<void(frmMain &)> run;
};

std::vector<Command> AllCommands() {
    std::vector<Command> commands;
    for (const mainwindow::CommandRow &row : mainwindow::Commands()) {
        if (!row.routine) continue;
        const QString key = QLatin1String(row.key);
        commands.push_back({key, [key](frmMain &form) { form.SmartMenuXP1_Click(key); }});
    }
    for (const mainwindow::ButtonRow &row : mainwindow::FormatButtons()) {
        const QString key = QLatin1String(row.key);
        if (!key.isEmpty()) commands.push_back({key, [key](frmMain &form) { form.ClickFormatButton(key); }});
    }
    return commands;
}

void FillSmall(frmMain &form) {
    diagram::Surface &surface = form.CurrentSurface();
    FillSample(surface, kNodesOfSmallMap);
    surface.Nodes().Item(1).SetSelected(true);
    surface.Nodes().Item(2).SetSelected(true);
    Settle(form.CurrentView());
}

// Until the frame of the window that it concerns is painted; what a timer still tidies up counts, too.
double TimeOf(frmMain &form, const Command &command) {
    QElapsedTimer timer;
    timer.start();
    command.run(form);
    if (form.isVisible())
        Settle(form.CurrentView());
    else
        QApplication::processEvents();
    return double(timer.nsecsElapsed()) / 1e6;
}

double BestOf(const Command &command, bool small) {
    double best = 0;
    for (int run = 0; run < kRuns; ++run) {
        BenchWindow window;
        if (small) FillSmall(window.Form());
        const QString path = ScratchFolder() + QStringLiteral("/command.map");
        QFile::remove(path);
        window.Form().clsSettings().SetDatabase(path);
        const double time = TimeOf(window.Form(), command);
        best = run == 0 ? time : std::min(best, time);
    }
    return best;
}

void AddWorst(Figures &figures, const char *name, bool small) {
    std::vector<std::pair<double, QString>> times;
    for (const Command &command : AllCommands()) times.emplace_back(BestOf(command, small), command.name);
    std::sort(times.rbegin(), times.rend());
    QString remark = QStringLiteral("median %1 ms;").arg(times[times.size() / 2].first, 0, 'f', 1);
    for (std::size_t i = 0; i < 4; ++i)
        remark += QStringLiteral(" %1 %2").arg(times[i].second).arg(times[i].first, 0, 'f', 1);
    figures.push_back({QString::fromLatin1(name), times.front().first, QStringLiteral("ms"), kBound, remark});
}

} // namespace

Figures CommandFigures() {
    Figures figures;
    AddWorst(figures, "the slowest command on an empty map, painted", false);
    AddWorst(figures, "the slowest command on a small map, painted", true);
    return figures;
}

} // namespace bench
