#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "diagram/edit/History.h"
#include "diagram/interaction/MoveNodes.h"
#include "diagram/model/DayStrip.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"

#include <algorithm>
#include <functional>
#include <malloc.h>
#include <QFile>

namespace bench {

namespace {

constexpr int kNodes = 10000, kSteps = 10000, kRuns = 7;

// The sample diagram with its scene, without a view.
struct Stage {
    Stage() {
        diagram::AttachHistory(surface);
        FillSample(surface, kNodes);
        surface.SetMeasure(&renderer.Measure());
        scene.Extent();
    }
    diagram::Surface surface;
    diagram::Renderer renderer;
    diagram::Scene scene{surface};
};

// Milliseconds until the model has changed, and routes, bounds and index follow.
double TimeOfChange(Stage &stage, const std::function<void()> &change) {
    stage.scene.TakeDamage();
    return TimeOf([&] {
        change();
        stage.scene.TakeDamage();
    });
}

double ResidentMiB() {
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray &line : file.readAll().split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

// MiB that the history of kSteps steps takes, each of which moves one node.
double HistoryWeight() {
    Stage stage;
    std::vector<diagram::Node *> nodes;
    for (diagram::Node &node : stage.surface.Nodes()) nodes.push_back(&node);
    const double before = ResidentMiB();
    for (int step = 0; step < kSteps; ++step) {
        stage.surface.UnselectAll();
        nodes[size_t(step) * 7919 % nodes.size()]->SetSelected(true); // a prime: all over the diagram
        diagram::MoveSelection(stage.surface, diagram::DayStrip::None(), {150, 75});
        stage.scene.TakeDamage();
    }
    return ResidentMiB() - before;
}

void TimeUndo(Figures &figures) {
    Stage stage;
    for (diagram::Node &node : stage.surface.Nodes()) node.SetSelected(true);
    stage.scene.TakeDamage();
    const double move = TimeOfChange(stage, [&] {
        diagram::MoveSelection(stage.surface, diagram::DayStrip::None(), {300, 150});
    });
    double undo = 0, redo = 0;
    for (int run = 0; run < kRuns; ++run) {
        const double back = TimeOfChange(stage, [&] { stage.surface.Undo(); });
        const double again = TimeOfChange(stage, [&] { stage.surface.Redo(); });
        undo = run == 0 ? back : std::min(undo, back);
        redo = run == 0 ? again : std::min(redo, again);
    }
    const QString counted = QStringLiteral("model, routes, bounds and index");
    figures.push_back({QStringLiteral("undo of a move of 10,000 nodes"), undo, "ms", 30, counted});
    figures.push_back({QStringLiteral("redo of a move of 10,000 nodes"), redo, "ms", 30, counted});
    figures.push_back({QStringLiteral("the move itself"), move, "ms", 0, counted});
}

} // namespace

Figures EditFigures() {
    Figures figures;
    TimeUndo(figures);
    figures.push_back({QStringLiteral("10,000 single steps of history, 10,000 nodes, resident"),
                       HistoryWeight(), "MiB", 60, QStringLiteral("moves of single nodes with their links")});
    return figures;
}

} // namespace bench
