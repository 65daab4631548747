#include "diagram/render/Overlays.h"

#include "diagram/hit/Grips.h"
#include "diagram/render/Forms.h"
#include "diagram/render/LinkPainter.h"
#include "diagram/scene/Scene.h"

namespace diagram {

namespace {

constexpr int kMiddleAlpha = 110; // of the handle in the middle of a node
constexpr double kMarkWidth = 6;  // pixels, half of it outside

struct HandleLook {
    QRgb fill, line;
    int side;
};

HandleLook LookOf(const Paint &paint, bool focus, double share) {
    const QRgb fill = paint.options.handleFill.rgb(), line = paint.options.handleLine.rgb();
    const int side = std::max(3, int(paint.options.handleSize * paint.frame.dot * share)) | 1;
    return {focus ? line : fill, line, side};
}

void DrawHandle(Paint &paint, const QPointF &at, const HandleLook &look) {
    const int left = int(std::floor(at.x())) - look.side / 2, top = int(std::floor(at.y())) - look.side / 2;
    const int line = std::max(1, int(paint.frame.dot));
    paint.Painter().fillRect(QRect(left, top, look.side, look.side), QColor::fromRgb(look.line));
    paint.Painter().fillRect(QRect(left + line, top + line, look.side - 2 * line, look.side - 2 * line),
                             QColor::fromRgb(look.fill));
}

QRgb Faded(QRgb colour, int alpha) { return qRgba(qRed(colour), qGreen(colour), qBlue(colour), alpha); }

void DrawRound(Paint &paint, const QPointF &at, const HandleLook &look, int alpha = 255) {
    paint.pencil.Smooth(true);
    paint.pencil.Line(Faded(look.line, alpha), paint.frame.dot);
    paint.pencil.Fill(Faded(look.fill, alpha / 3 * 2));
    const QPointF middle(std::floor(at.x()) + 0.5, std::floor(at.y()) + 0.5);
    paint.Painter().drawEllipse(middle, look.side / 2.0, look.side / 2.0);
}

void PaintNodeHandles(Paint &paint, const Node &node, bool focus) {
    const QRectF box = paint.frame.Map(node.Bounds());
    const HandleLook look = LookOf(paint, focus, 1);
    const QPointF middle = box.center();
    const double xs[] = {box.left(), middle.x(), box.right()}, ys[] = {box.top(), middle.y(), box.bottom()};
    for (int i = 0; i < 9; ++i)
        if (i != 4) DrawHandle(paint, {xs[i % 3], ys[i / 3]}, look);
    // A link can be dragged from here; the text shows through.
    if (std::min(box.width(), box.height()) > 3 * look.side)
        DrawRound(paint, middle, LookOf(paint, false, 0.85), kMiddleAlpha);
}

void PaintLinkHandles(Paint &paint, const Link &link, bool focus) {
    const std::vector<Point> &route = link.Route();
    const HandleLook look = LookOf(paint, focus, 1), small = LookOf(paint, false, 0.7);
    for (std::size_t i = 1; i < route.size(); ++i) {
        const QPointF from = paint.frame.Map(route[i - 1]), to = paint.frame.Map(route[i]);
        if (HasSegmentHandle(std::hypot(to.x() - from.x(), to.y() - from.y()), look.side))
            DrawRound(paint, (from + to) / 2, small);
    }
    for (const Point &point : route) DrawHandle(paint, paint.frame.Map(point), look);
}

} // namespace

void PaintMark(Paint &paint, const Item &item) {
    const double width = paint.frame.LineWidth(kMarkWidth);
    const QColor &colour = paint.options.markColour;
    const QRgb ink = qRgba(colour.red(), colour.green(), colour.blue(), 90);
    paint.pencil.NoFill();
    paint.pencil.Smooth(true);
    paint.pencil.Line(ink, width);
    if (const Node *node = item.AsNode()) {
        const ShapeRow *row = FindShape(node->Shape());
        if (row) DrawForm(paint, *row, node->ShapeOrientation(), paint.frame.Map(node->ShownBounds()));
        return;
    }
    FillRoute(paint, *item.AsLink(), width);
    paint.Painter().drawPolyline(paint.route.data(), int(paint.route.size()));
}

void PaintHandles(Paint &paint) {
    const Surface &surface = paint.scene.Model();
    const double reach = paint.options.handleSize * paint.frame.dot / paint.frame.Scale();
    const QRectF area = paint.area.adjusted(-reach, -reach, reach, reach);
    const auto touches = [&](const Item &item) {
        const QRectF bounds = paint.scene.Bounds(item);
        return bounds.left() <= area.right() && bounds.right() >= area.left() &&
               bounds.top() <= area.bottom() && bounds.bottom() >= area.top();
    };
    for (const Node *node : surface.SelectedNodes())
        if (!node->Hidden() && touches(*node)) PaintNodeHandles(paint, *node, node == surface.SelectedNode());
    for (const Link *link : surface.SelectedLinks())
        if (!link->Hidden() && touches(*link)) PaintLinkHandles(paint, *link, link == surface.SelectedLink());
}

} // namespace diagram
