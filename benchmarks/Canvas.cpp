#include "benchmarks/Canvas.h"

#include "benchmarks/Sample.h"
#include "diagram/edit/History.h"
#include "diagram/geometry/Units.h"
#include "diagram/hit/HitTest.h"
#include "diagram/render/Renderer.h"

#include <cmath>
#include <QApplication>
#include <QScrollBar>

namespace bench {

namespace {

constexpr int kWidth = 1280, kHeight = 800;
using diagram::kTwipsPerPixel;

void ShowAt(diagram::SurfaceView &view, double percent) {
    view.Model().UnselectAll();
    view.ZoomAt(percent, {});
    Centre(view, view.Model().Extent().center());
    view.TheRenderer().Clear();
    Settle(view);
}

} // namespace

void Centre(diagram::SurfaceView &view, const QPointF &middle) {
    const QPointF away = view.FromSurface(middle) - QPointF(view.viewport()->rect().center());
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->value() + qRound(away.x()));
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + qRound(away.y()));
}

Canvas::Canvas(int nodes) : surface_(std::make_unique<diagram::Surface>()) {
    diagram::AttachHistory(*surface_);
    FillSample(*surface_, nodes);
    view_ = std::make_unique<diagram::SurfaceView>(*surface_);
    view_->resize(kWidth, kHeight);
    view_->show();
    QApplication::setActiveWindow(view_.get());
    view_->setFocus();
    Settle(*view_);
}

Canvas::~Canvas() = default;

void Settle(diagram::SurfaceView &view) {
    do QApplication::processEvents();
    while (!view.IsExact());
}

void ShowTwoHundred(diagram::SurfaceView &view) {
    const QSize size = view.viewport()->size();
    const double boxes = size.width() * double(size.height()) / (kPitchX * kPitchY);
    ShowAt(view, std::sqrt(boxes / 200) * 100 * kTwipsPerPixel);
}

void ShowWhole(diagram::SurfaceView &view) {
    const QSize size = view.viewport()->size();
    const QRectF extent = view.Model().Extent();
    const double scale = std::min(size.width() / extent.width(), size.height() / extent.height());
    ShowAt(view, scale * 100 * kTwipsPerPixel);
}

QPointF BodyOf(const diagram::Node &node) {
    const QRectF box = node.Bounds();
    return box.center() + QPointF(0, box.height() * 0.3);
}

diagram::Node &MiddleNode(diagram::SurfaceView &view) {
    const QPointF middle = view.ToSurface(QPointF(view.viewport()->rect().center()));
    using namespace diagram;
    const auto isFree = [&view](const Node &node) {
        const Hit hit = HitTest(view.TheScene(), BodyOf(node), kGenerousHit);
        return hit.kind == HitKind::Node && hit.node == &node;
    };
    diagram::Node *nearest = nullptr;
    double best = 0;
    for (diagram::Node &node : view.Model().Nodes()) {
        const double away = QLineF(node.Bounds().center(), middle).length();
        if ((!nearest || away < best) && isFree(node)) nearest = &node, best = away;
    }
    return *nearest;
}

} // namespace bench
