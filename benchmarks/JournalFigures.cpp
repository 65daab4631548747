#include "benchmarks/BenchWindow.h"
#include "benchmarks/Canvas.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "benchmarks/Scratch.h"
#include "mainwindow/start/WindowJournal.h"
#include "recovery/LostMaps.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <QCoreApplication>
#include <QDir>

namespace bench {

namespace {

using mainwindow::frmMain;

constexpr int kRuns = 5, kDragSteps = 240;

// The folder of the journals.
QString State() { return ScratchFolder() + QStringLiteral("/state"); }

// A window with a filled slice and unsaved work, with a journal or without one.
class KeptWindow {
public:
    KeptWindow(int nodes, bool keeps) {
        mainwindow::WindowJournal::SetFolder(keeps ? State() : QString());
        window_ = std::make_unique<BenchWindow>();
        FillSample(Form().CurrentSurface(), nodes);
        Form().clsSettings().Dirty = true;
        ShowTwoHundred(Form().CurrentView());
        Settle(Form().CurrentView());
    }
    ~KeptWindow() {
        window_.reset();
        mainwindow::WindowJournal::SetFolder(QString());
    }
    KeptWindow(const KeptWindow &) = delete;
    KeptWindow &operator=(const KeptWindow &) = delete;

    frmMain &Form() { return window_->Form(); }

private:
    std::unique_ptr<BenchWindow> window_;
};

bool IsKept() {
    for (const QString &name : QDir(State()).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (QFile::exists(recovery::JournalPath(State() + u'/' + name))) return true;
    return false;
}

struct Keeping {
    double seconds = 0;
    double longestGap = 0; // milliseconds of one turn of the event loop
};

// From an edit until the whole map is on the disk.
Keeping TimeOfKeeping(int nodes) {
    KeptWindow window(nodes, true);
    Keeping keeping;
    const double whole = TimeOf([&] {
        while (!IsKept())
            keeping.longestGap = std::max(
                keeping.longestGap, TimeOf([] { QCoreApplication::processEvents(QEventLoop::AllEvents); }));
    });
    keeping.seconds = whole / 1000;
    return keeping;
}

Keeping BestOfKeeping(int nodes) {
    Keeping best = TimeOfKeeping(nodes);
    for (int run = 1; run < kRuns; ++run) {
        const Keeping each = TimeOfKeeping(nodes);
        best = {std::min(best.seconds, each.seconds), std::min(best.longestGap, each.longestGap)};
    }
    return best;
}

// Milliseconds of a drag of all nodes in sight and back, long enough for the journal to work in between.
// Raises `longestTurn` to the most milliseconds that it worked at a time.
double TimeOfDrag(bool keeps, double &longestTurn) {
    KeptWindow window(10000, keeps);
    frmMain &form = window.Form();
    if (keeps) form.Journal()->Writer().Finish();
    diagram::SurfaceView &view = form.CurrentView();
    const QRectF seen(view.ToSurface(QPointF()), view.ToSurface(view.viewport()->rect().bottomRight()));
    const QPoint from = view.FromSurface(BodyOf(MiddleNode(view))).toPoint();
    for (diagram::Node &node : view.Model().Nodes())
        if (seen.contains(node.Bounds())) node.SetSelected(true);
    Settle(view);
    Hand hand(*view.viewport());
    hand.Press(from);
    hand.TakeSteps();
    for (int step = 1; step <= kDragSteps; ++step)
        hand.Move(from + QPoint(step % 90, step % 70), Qt::AltModifier);
    hand.Release(from + QPoint(30, 30));
    const Steps steps = hand.TakeSteps();
    if (keeps) longestTurn = std::max(longestTurn, form.Journal()->Writer().LongestTurn());
    return std::accumulate(steps.begin(), steps.end(), 0.0);
}

} // namespace

Figures JournalFigures() {
    Figures figures;
    const Keeping small = BestOfKeeping(10000), large = BestOfKeeping(100000);
    figures.push_back({QStringLiteral("longest gap of the event loop while a journal begins, 10,000 nodes"),
                       small.longestGap, QStringLiteral("ms"), 8,
                       QStringLiteral("whole after %1 s").arg(small.seconds, 0, 'f', 2)});
    figures.push_back({QStringLiteral("from an edit to a whole journal on the disk, 100,000 nodes"),
                       large.seconds, QStringLiteral("s"), 10,
                       QStringLiteral("gap %1 ms").arg(large.longestGap, 0, 'f', 1)});
    double with = 1e9, without = 1e9, slice = 0;
    for (int run = 0; run < kRuns; ++run) {
        without = std::min(without, TimeOfDrag(false, slice));
        with = std::min(with, TimeOfDrag(true, slice));
    }
    figures.push_back({QStringLiteral("drag of what is in sight, 10,000 nodes, with a journal : without"),
                       with / without, QStringLiteral("x"), 1.05,
                       QStringLiteral("%1 ms : %2 ms").arg(with, 0, 'f', 1).arg(without, 0, 'f', 1)});
    figures.push_back({QStringLiteral("longest slice of gathering during that drag"), slice,
                       QStringLiteral("ms"), 4, QString()});
    return figures;
}

} // namespace bench
