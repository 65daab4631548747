#include "benchmarks/BenchWindow.h"
#include "benchmarks/Canvas.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/TickBox.h"
#include "mainwindow/find/FilterBoxes.h"
#include "mainwindow/slices/LookBar.h"
#include "mainwindow/slices/Overview.h"
#include "mainwindow/slices/OverviewMap.h"
#include "mainwindow/start/StartOffer.h"

#include <QApplication>
#include <QElapsedTimer>

namespace bench {

namespace {

using diagram::SurfaceView;
using mainwindow::frmMain;

constexpr int kNodes = 10000, kRuns = 7;
constexpr double kFrame = 8, kCommand = 50; // milliseconds

// Milliseconds from a change until the bars and the surface are painted as it leaves them.
double BestUntilRest(SurfaceView &view, const std::function<void()> &before,
                     const std::function<void()> &change) {
    const auto prepare = [&] {
        before();
        Settle(view);
    };
    return BestOf(kRuns, prepare, [&] {
        change();
        Settle(view);
    });
}

void SelectAll(diagram::Surface &surface) {
    for (diagram::Node &node : surface.Nodes()) node.SetSelected(true);
}

void MeasureSelection(Figures &figures, frmMain &form) {
    SurfaceView &view = form.CurrentView();
    diagram::Surface &surface = view.Model();
    diagram::Node &node = MiddleNode(view);
    const auto none = [&] { surface.UnselectAll(); };
    Require(form.Look().IsShown(), "the look bar is there");
    const double one = BestUntilRest(view, none, [&] { node.SetSelected(true); });
    Require(form.Look().State(mainwindow::LookOf::Fill).value == double(node.FillColor()), "the bar follows");
    const double all = BestUntilRest(view, none, [&] { SelectAll(surface); });
    const double gone = BestUntilRest(
        view, [&] { SelectAll(surface); }, none);
    const QString remark = QStringLiteral("until the bars are painted as well");
    figures.push_back({"selecting one of 10,000 nodes, with the look bar", one, "ms", kFrame, remark});
    figures.push_back({"selecting all of 10,000 nodes, with the look bar", all, "ms", kCommand, remark});
    figures.push_back({"selecting none of 10,000 nodes again", gone, "ms", kCommand, remark});
}

mainwindow::OverviewMap &WaitForOverview(frmMain &form) {
    constexpr int kLongest = 10000; // milliseconds
    QElapsedTimer timer;
    timer.start();
    while (!form.TheOverview().Map() && timer.elapsed() < kLongest) QApplication::processEvents();
    Require(form.TheOverview().Map(), "the overview is there");
    return *form.TheOverview().Map();
}

void MeasureOverview(Figures &figures, frmMain &form) {
    form.Start().Leave();
    ShowTwoHundred(form.CurrentView());
    mainwindow::OverviewMap &map = WaitForOverview(form);
    const QPointF middle = map.FromSurface(map.Seen()).center();
    const QPoint from = middle.toPoint();
    Hand hand(map);
    const auto drag = [&](Hand &same) {
        const QRectF before = map.Seen();
        same.Press(from);
        for (int step = 1; step <= 40; ++step) same.Move(from - QPoint(step, step / 2));
        Require(map.Seen() != before, "the part in sight moves");
        same.Release(from - QPoint(40, 20));
    };
    const Timing timing = BestOf(
        hand, [&](Hand &) { ShowTwoHundred(form.CurrentView()); }, drag);
    figures.push_back({"drag in the overview of 10,000 nodes, event to frame", timing.Worst(), "ms", kFrame,
                       timing.Remark()});
}

// Half of the nodes are of a second level.
void GiveLevels(frmMain &form) {
    document::clsfrmMain &settings = form.clsSettings();
    const QString group = settings.Groups().Create(QStringLiteral("All"), true).Key;
    const QString levels[] = {settings.Levels().Create(QStringLiteral("Plan"), true, support::kWhite).Key,
                              settings.Levels().Create(QStringLiteral("Idea"), true, support::kWhite).Key};
    form.Filter().LoadGroups();
    form.Filter().LoadLevels();
    int count = 0;
    for (diagram::Node &node : form.CurrentSurface().Nodes())
        node.SetTag(QStringLiteral("|GROUP=,%1,|LEVEL=%2|HYPER=No").arg(group, levels[++count % 2]));
}

void MeasurePreview(Figures &figures, frmMain &form) {
    GiveLevels(form);
    SurfaceView &view = form.CurrentView();
    ShowTwoHundred(view);
    mainwindow::TickBox &box = form.Filter().Levels();
    box.showPopup();
    Require(box.IsOpen(), "the list of levels is open");
    const QImage before = view.viewport()->grab().toImage();
    Q_EMIT box.Click(0);
    Settle(view);
    Require(view.viewport()->grab().toImage() != before, "the preview hides nodes");
    const double time = BestUntilRest(
        view, [] {}, [&] { Q_EMIT box.Click(0); });
    box.hidePopup();
    figures.push_back({"preview of a filter that half of 10,000 nodes pass, until exact", time, "ms",
                       kCommand, QStringLiteral("a tick in the open list")});
}

} // namespace

Figures BarFigures() {
    constexpr std::pair<const char *, void (*)(Figures &, frmMain &)> kParts[] = {
        {"selection with the look bar", MeasureSelection},
        {"overview", MeasureOverview},
        {"preview of a filter", MeasurePreview}};
    Figures figures;
    BenchWindow window;
    frmMain &form = window.Form();
    FillSample(form.CurrentSurface(), kNodes);
    ShowTwoHundred(form.CurrentView());
    for (const auto &[name, measure] : kParts) {
        try {
            measure(figures, form);
        } catch (const std::exception &failure) {
            figures.push_back(FailedFigure(QLatin1String(name), kFrame, failure));
        }
    }
    return figures;
}

} // namespace bench
