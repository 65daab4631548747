#include "benchmarks/BenchWindow.h"
#include "benchmarks/Canvas.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "dialogs/frmNodeDialog.h"

#include <algorithm>
#include <QApplication>

namespace bench {

namespace {

constexpr double kBound = 60; // milliseconds
constexpr int kNodes = 10000;
constexpr int kRuns = 5;

double TimeToOpen(mainwindow::frmMain &window, diagram::Node &node) {
    std::optional<dialogs::frmNodeDialog> form; // closed untimed
    return TimeOf([&] {
        form.emplace(dialogs::NodeDialogArgument{window, node.Owner(), node, true}, &window);
        form->show();
        QApplication::processEvents();
    });
}

// The first opening, which reads fonts, stands in the remark alone.
Figure Opening(const char *name, mainwindow::frmMain &window, diagram::Node &node) {
    const double first = TimeToOpen(window, node);
    double worst = 0;
    for (int run = 0; run < kRuns; ++run) worst = std::max(worst, TimeToOpen(window, node));
    return {QString::fromLatin1(name), worst, QStringLiteral("ms"), kBound,
            QStringLiteral("worst of %1, the first %2 ms").arg(kRuns).arg(first, 0, 'f', 1)};
}

} // namespace

Figures FormFigures() {
    BenchWindow window;
    diagram::Surface &surface = window.Form().CurrentSurface();
    FillSample(surface, kNodes);
    Settle(window.Form().CurrentView());
    diagram::Node &node = surface.Nodes().Item(1);
    node.SetSelected(true);
    Figures figures{Opening("the dialog of a node opens, 10,000 nodes", window.Form(), node)};
    for (diagram::Node &each : surface.Nodes()) each.SetSelected(true);
    Settle(window.Form().CurrentView());
    figures.push_back(Opening("the dialog of 10,000 selected nodes opens", window.Form(), node));
    return figures;
}

} // namespace bench
