#include "benchmarks/BenchWindow.h"
#include "benchmarks/Canvas.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "diagram/hit/HitTest.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/start/StartOffer.h"

#include <array>
#include <QLineF>
#include <QLocale>
#include <stdexcept>

namespace bench {

namespace {

using diagram::SurfaceView;

constexpr double kFrame = 8; // milliseconds

QPoint Along(const QPoint &from, const QPoint &to, int step, int steps) {
    return from + (to - from) * step / steps;
}

void Sweep(Hand &hand, const QPoint &from, const QPoint &to, int steps,
           Qt::KeyboardModifiers modifiers = {}) {
    for (int i = 1; i <= steps; ++i) hand.Move(Along(from, to, i, steps), modifiers);
}

QPoint Body(SurfaceView &view, const diagram::Node &node) { return view.FromSurface(BodyOf(node)).toPoint(); }

constexpr std::size_t kMany = 150; // of the two hundred in sight; those at the edges may be missing

// Near the left top corner, with nothing under it.
QPoint FreePlace(SurfaceView &view) {
    for (QPoint at(3, 3);; at += QPoint(1, 2))
        if (HitTest(view.TheScene(), view.ToSurface(at), kGenerousHit).kind == diagram::HitKind::Nothing)
            return at;
}

void RubberBand(Hand &hand, SurfaceView &view) {
    const QPoint from = FreePlace(view), to = view.viewport()->rect().bottomRight() - QPoint(3, 3);
    hand.Press(from, Qt::ShiftModifier);
    Sweep(hand, from, to, 120, Qt::ShiftModifier);
    hand.Release(to, Qt::ShiftModifier);
    Require(view.Model().SelectedNodes().size() >= kMany, "the rubber band selects what is in sight");
}

void Hover(Hand &hand, SurfaceView &view) {
    Sweep(hand, {1, 20}, view.viewport()->rect().bottomRight() - QPoint(1, 30), 240);
}

std::vector<QRectF> BoxesOfSelected(SurfaceView &view) {
    std::vector<QRectF> boxes;
    for (const diagram::Node *node : view.Model().SelectedNodes()) boxes.push_back(node->Bounds());
    return boxes;
}

// Drags the `least` nodes or more that are selected once `from` is pressed, there and back. Alt turns
// snapping off, so that each event moves something.
void Drag(Hand &hand, SurfaceView &view, const QPoint &from, std::size_t least) {
    const QPoint far = from + QPoint(210, 130), behind = from - QPoint(90, 200);
    hand.Press(from);
    const std::vector<QRectF> before = BoxesOfSelected(view);
    Require(before.size() >= least, "the nodes to drag are selected");
    Sweep(hand, from, far, 120, Qt::AltModifier);
    Sweep(hand, far, behind, 80, Qt::AltModifier);
    Require(BoxesOfSelected(view) != before, "the drag moves or resizes");
    hand.Key(Qt::Key_Escape);
    hand.Release(from);
    view.Model().UnselectAll();
}

void DragOne(Hand &hand, SurfaceView &view) { Drag(hand, view, Body(view, MiddleNode(view)), 1); }

void DragAll(Hand &hand, SurfaceView &view) {
    const diagram::Node &middle = MiddleNode(view);
    const QRectF seen(view.ToSurface(QPointF()), view.ToSurface(view.viewport()->rect().bottomRight()));
    for (diagram::Node &node : view.Model().Nodes())
        if (seen.contains(node.Bounds())) node.SetSelected(true);
    Settle(view);
    Drag(hand, view, Body(view, middle), kMany);
}

void Resize(Hand &hand, SurfaceView &view) {
    diagram::Node &node = MiddleNode(view);
    node.SetSelected(true);
    Settle(view);
    const QPoint from = view.FromSurface(node.Bounds().bottomRight()).toPoint();
    Drag(hand, view, from, 1);
}

diagram::Link &LinkInSight(SurfaceView &view) {
    const QRectF seen(view.ToSurface(QPointF()), view.ToSurface(view.viewport()->rect().bottomRight()));
    for (const auto &link : view.Model().Links())
        if (seen.contains(link->Source().Bounds()) && seen.contains(link->Destination().Bounds()))
            return *link;
    throw std::runtime_error("a link is in sight");
}

// The link is routed round the nodes at each step.
void DragLinkEnd(Hand &hand, SurfaceView &view) {
    constexpr int kHvhvh = 9; // the style of that name
    diagram::Link &link = LinkInSight(view);
    const int style = link.Style();
    link.SetStyle(kHvhvh);
    link.SetSelected(true);
    Settle(view);
    const QPoint from = view.FromSurface(diagram::ToQPointF(link.Route().back())).toPoint();
    const QRect all = view.viewport()->rect().adjusted(20, 20, -20, -20);
    hand.Press(from);
    Sweep(hand, from, all.topLeft(), 60);
    Sweep(hand, all.topLeft(), all.bottomRight(), 120);
    Require(view.viewport()->cursor().shape() == Qt::CrossCursor, "the end of the link is dragged");
    hand.Key(Qt::Key_Escape);
    hand.Release(from);
    view.Model().UnselectAll();
    link.SetStyle(style);
}

void Type(Hand &hand, SurfaceView &view) {
    MiddleNode(view).SetSelected(true);
    Settle(view);
    const QString text = QStringLiteral("A text that somebody types, long enough to be wrapped and to grow");
    for (const QChar c : text) hand.Key(0, c);
    hand.Key(Qt::Key_Return, QStringLiteral("\r"));
    hand.Key(Qt::Key_Escape);
}

void Zoom(Hand &hand, SurfaceView &view) {
    const QPoint at = view.viewport()->rect().center() + QPoint(100, 60);
    for (const int notches : {1, 1, 1, -1, -1, -1, -1, -1, 1, 1})
        hand.Wheel(at, notches, Qt::ControlModifier);
}

struct Gesture {
    const char *name;
    void (*run)(Hand &, SurfaceView &);
};
constexpr std::array<Gesture, 8> kGestures{{{"rubber band", RubberBand},
                                            {"hover", Hover},
                                            {"drag of one node", DragOne},
                                            {"drag of all in sight", DragAll},
                                            {"resize", Resize},
                                            {"drag of a link's end", DragLinkEnd},
                                            {"typing", Type},
                                            {"Ctrl-wheel zoom", Zoom}}};

void Measure(Figures &figures, SurfaceView &view, const QString &where) {
    Hand hand(*view.viewport());
    for (const Gesture &gesture : kGestures) {
        const QString name = QStringLiteral("%1, event to frame, %2").arg(gesture.name, where);
        try {
            const Timing timing = BestOf(
                hand, [&](Hand &) { ShowTwoHundred(view); }, [&](Hand &same) { gesture.run(same, view); });
            figures.push_back({name, timing.Worst(), "ms", kFrame, timing.Remark()});
        } catch (const std::exception &failure) {
            hand.Key(Qt::Key_Escape);
            hand.Release({});
            figures.push_back(FailedFigure(name, kFrame, failure));
        }
    }
}

QString Count(int nodes) { return QLocale(QLocale::English).toString(nodes) + QStringLiteral(" nodes"); }

} // namespace

Figures CanvasFigures() {
    Figures figures;
    for (const int nodes : {10000, 100000}) {
        Canvas canvas(nodes);
        Measure(figures, canvas.View(), Count(nodes));
    }
    return figures;
}

Figures WindowFigures() {
    Figures figures;
    BenchWindow window;
    window.Form().Start().Leave();
    FillSample(window.Form().CurrentSurface(), 10000);
    Measure(figures, window.Form().CurrentView(), QStringLiteral("in a window"));
    return figures;
}

} // namespace bench
