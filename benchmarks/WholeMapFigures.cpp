#include "benchmarks/BenchWindow.h"
#include "benchmarks/Canvas.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "document/FindText.h"
#include "document/Tags.h"

namespace bench {

namespace {

constexpr int kNodes = 100000, kRuns = 5;

// Twenty groups and ten levels; each node has one or two groups.
void FillTagged(mainwindow::frmMain &form) {
    auto &groups = form.clsSettings().Groups();
    auto &levels = form.clsSettings().Levels();
    for (int i = 0; i < 20; ++i) groups.Create(QStringLiteral("Group %1").arg(i), i % 2 == 0);
    for (int i = 0; i < 10; ++i) levels.Create(QStringLiteral("Level %1").arg(i), i % 3 != 0, 0);
    form.LoadCombos();
    diagram::Surface &surface = form.CurrentSurface();
    FillSample(surface, kNodes);
    int at = 0;
    for (diagram::Node &node : surface.Nodes()) {
        QString keys = groups.Item(1 + at % 20).Key;
        if (at % 3 == 0) keys += u',' + groups.Item(1 + at % 7).Key;
        document::SetTag(node, document::tags::kGroup, keys);
        document::SetTag(node, document::tags::kLevel, levels.Item(1 + at % 10).Key);
        if (at % 10 == 0) node.SetEvent(QStringLiteral("The other text of node %1").arg(at));
        ++at;
    }
}

void Add(Figures &figures, const char *name, double time, double bound) {
    figures.push_back({QString::fromLatin1(name), time, QStringLiteral("ms"), bound, QString()});
}

void AddFilter(Figures &figures, mainwindow::frmMain &form) {
    const auto turnAll = [&form] {
        for (int row = 0; row < int(form.clsSettings().Groups().count()); ++row) form.ssDBGroups_Click(row);
        Settle(form.CurrentView());
    };
    Add(figures, "filter on 100,000 nodes, all of them turned round",
        BestOf(kRuns, turnAll, [&] { form.ssDBGroups_CloseUp(); }), 100);
    Add(figures, "the same until all is painted",
        BestOf(kRuns, turnAll,
               [&] {
                   form.ssDBGroups_CloseUp();
                   Settle(form.CurrentView());
               }),
        0);
}

void AddFind(Figures &figures, mainwindow::frmMain &form) {
    const auto find = [&form](const char *text, const document::FindOptions &options) {
        return [&form, text, options] {
            document::FindText(form.AddFlow1(), form.clsSettings().Groups(), form.clsSettings().Levels(),
                               QLatin1String(text), options);
        };
    };
    for (auto &group : form.clsSettings().Groups()) group.Selected = true;
    for (auto &level : form.clsSettings().Levels()) level.Selected = true;
    form.LoadCombos();
    form.ssDBGroups_CloseUp();
    const auto nothing = [] {};
    Add(figures, "find over 100,000 nodes, each a hit", BestOf(kRuns, nothing, find("node", {})), 100);
    Add(figures, "find over 100,000 nodes, no hit", BestOf(kRuns, nothing, find("nowhere", {})), 100);
    Add(figures, "find over 100,000 nodes, whole words",
        BestOf(kRuns, nothing, find("node 9", {false, true})), 100);
}

} // namespace

Figures WholeMapFigures() {
    Figures figures;
    BenchWindow window;
    FillTagged(window.Form());
    Settle(window.Form().CurrentView());
    AddFilter(figures, window.Form());
    AddFind(figures, window.Form());
    return figures;
}

} // namespace bench
