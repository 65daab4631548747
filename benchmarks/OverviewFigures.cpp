#include "benchmarks/Canvas.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"

#include <functional>
#include <QApplication>
#include <QLocale>
#include <QScrollBar>

namespace bench {

namespace {

using diagram::SurfaceView;

constexpr double kFrame = 1000.0 / 60, kRest = 100; // milliseconds

// Notch by notch out from 200 boxes to all of them, at a place beside the middle, and in again.
void ZoomOut(Hand &hand, SurfaceView &view, double whole) {
    const QPoint at = view.viewport()->rect().center() + QPoint(100, 60);
    int notches = 0;
    for (; view.ShownZoom() > whole * 1.01 && notches < 40; ++notches)
        hand.Wheel(at, -1, Qt::ControlModifier);
    for (; notches > 0; --notches) hand.Wheel(at, 1, Qt::ControlModifier);
}

void Pan(Hand &hand, SurfaceView &view) {
    const QPoint from = view.viewport()->rect().center();
    hand.Press(from, {}, Qt::MiddleButton);
    for (int i = 1; i <= 60; ++i) hand.Move(from + QPoint(7 * i, 5 * i));
    for (int i = 60; i >= -60; --i) hand.Move(from + QPoint(-7 * i, 5 * i));
    hand.Release(from);
}

// Nearly all in sight, so that there is somewhere to go.
void ShowMost(SurfaceView &view) {
    ShowWhole(view);
    view.ZoomAt(view.ShownZoom() * 1.05, view.viewport()->rect().center());
    Settle(view);
}

void Add(Figures &figures, const QString &name, const Timing &timing, double bound) {
    figures.push_back({name, timing.Worst(), "ms", bound, timing.Remark()});
}

// Milliseconds from what is done to the exact picture.
double TimeToRest(SurfaceView &view, const std::function<void()> &before, const std::function<void()> &what) {
    constexpr int kRuns = 5;
    return BestOf(kRuns, before, [&] {
        what();
        QApplication::sendPostedEvents(); // asks for the frame: until then the picture counts as exact
        Settle(view);
    });
}

void AddRest(Figures &figures, const QString &count, SurfaceView &view, double whole) {
    Hand hand(*view.viewport());
    const auto notch = [&] { hand.Wheel(view.viewport()->rect().center(), -1, Qt::ControlModifier); };
    const auto before = [&] {
        ShowTwoHundred(view);
        while (view.ShownZoom() > whole * 1.2) notch();
    };
    figures.push_back({QStringLiteral("from the last notch to the exact picture, %1 nodes").arg(count),
                       TimeToRest(view, before, notch),
                       "ms",
                       kRest,
                       {}});
}

void MeasureTenThousand(Figures &figures) {
    Canvas canvas(10000);
    SurfaceView &view = canvas.View();
    Hand hand(*view.viewport());
    ShowWhole(view);
    const double whole = view.ShownZoom();
    const auto start = [&](Hand &) { ShowTwoHundred(view); };
    Add(figures, QStringLiteral("zooming from 200 to 10,000 nodes in sight and back"),
        BestOf(hand, start, [&](Hand &same) { ZoomOut(same, view, whole); }), kFrame);
    const auto most = [&](Hand &) { ShowMost(view); };
    Add(figures, QStringLiteral("panning with 10,000 nodes in sight"),
        BestOf(hand, most, [&](Hand &same) { Pan(same, view); }), kFrame);
    AddRest(figures, QStringLiteral("10,000"), view, whole);
}

// The wheel ends at 10 per cent; fitting into the window goes on to all.
void MeasureHundredThousand(Figures &figures) {
    Canvas canvas(100000);
    SurfaceView &view = canvas.View();
    Hand hand(*view.viewport());
    const auto start = [&](Hand &) { ShowTwoHundred(view); };
    const auto fit = [&] {
        view.Model().SetxZoom(0);
        view.Model().SetyZoom(0);
    };
    const auto unfit = [&] {
        view.Model().SetxZoom(100);
        view.Model().SetyZoom(100);
        ShowTwoHundred(view);
    };
    Add(figures, QStringLiteral("zooming from 200 of 100,000 nodes out to 10 per cent and back"),
        BestOf(hand, start, [&](Hand &same) { ZoomOut(same, view, 10); }), kFrame);
    Add(figures, QStringLiteral("fitting 100,000 nodes into the window, the first frame"),
        BestOf(
            hand, [&](Hand &) { unfit(); }, [&](Hand &same) { same.Do(fit); }),
        0);
    figures.push_back({QStringLiteral("fitting 100,000 nodes into the window, until exact"),
                       TimeToRest(view, unfit, fit),
                       "ms",
                       0,
                       {}});
}

} // namespace

Figures OverviewFigures() {
    Figures figures;
    MeasureTenThousand(figures);
    MeasureHundredThousand(figures);
    return figures;
}

} // namespace bench
