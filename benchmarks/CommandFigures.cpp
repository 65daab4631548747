#include "benchmarks/BenchWindow.h"
#include "benchmarks/Canvas.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "benchmarks/Scratch.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/menus/Toolbar.h"

#include <algorithm>
#include <functional>
#include <QApplication>
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

// Runs the command and paints the window, with what timers still do after it.
void RunAndSettle(frmMain &form, const Command &command) {
    command.run(form);
    if (form.isVisible())
        Settle(form.CurrentView());
    else
        QApplication::processEvents();
}

using Fill = void (*)(frmMain &form);
void LeaveEmpty(frmMain &) {}

double TimeOfCommand(const Command &command, Fill fill) {
    return BestOf(kRuns, [&] {
        BenchWindow window;
        fill(window.Form());
        const QString path = ScratchFolder() + QStringLiteral("/command.map");
        QFile::remove(path);
        window.Form().clsSettings().SetDatabase(path);
        return TimeOf([&] { RunAndSettle(window.Form(), command); });
    });
}

void AddWorst(Figures &figures, const char *name, Fill fill) {
    constexpr std::size_t kNamed = 4; // of the slowest
    std::vector<std::pair<double, QString>> times;
    for (const Command &command : AllCommands())
        times.emplace_back(TimeOfCommand(command, fill), command.name);
    std::sort(times.rbegin(), times.rend());
    QString remark = QStringLiteral("median %1 ms;").arg(times[times.size() / 2].first, 0, 'f', 1);
    for (std::size_t i = 0; i < kNamed; ++i)
        remark += QStringLiteral(" %1 %2").arg(times[i].second).arg(times[i].first, 0, 'f', 1);
    figures.push_back({QString::fromLatin1(name), times.front().first, QStringLiteral("ms"), kBound, remark});
}

} // namespace

Figures CommandFigures() {
    Figures figures;
    AddWorst(figures, "the slowest command on an empty map, painted", LeaveEmpty);
    AddWorst(figures, "the slowest command on a small map, painted", FillSmall);
    return figures;
}

} // namespace bench
