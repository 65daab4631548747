#include "diagram/render/EdgePainter.h"

#include "diagram/model/Node.h"

namespace diagram {

namespace {

enum Tone { kLight, kSoft, kDim, kDark };

// The tones of the two rings, at the left and top and at the right and bottom. The row is the edge.
struct EdgeRow {
    Tone outerLeft, outerRight, innerLeft, innerRight;
};
constexpr EdgeRow kEdges[] = {{kLight, kLight, kLight, kLight},
                              {kSoft, kDark, kDark, kLight},
                              {kDim, kLight, kLight, kDim},
                              {kSoft, kDark, kLight, kDim},
                              {kDim, kLight, kDark, kSoft}};

void Bar(Paint &paint, double left, double top, double right, double bottom, QRgb colour) {
    paint.pencil.Fill(colour);
    if (right > left && bottom > top) paint.Painter().drawRect(QRectF(left, top, right - left, bottom - top));
}

void Ring(Paint &paint, const QRectF &box, double width, QRgb leftTop, QRgb rightBottom) {
    Bar(paint, box.left(), box.top(), box.right(), box.top() + width, leftTop);
    Bar(paint, box.left(), box.top() + width, box.left() + width, box.bottom(), leftTop);
    Bar(paint, box.left() + width, box.bottom() - width, box.right(), box.bottom(), rightBottom);
    Bar(paint, box.right() - width, box.top() + width, box.right(), box.bottom() - width, rightBottom);
}

} // namespace

void PaintEdge(Paint &paint, ShapeEdge edge, const NodeData &data, const QRectF &box) {
    const double width = paint.frame.LineWidth(std::max(data.drawWidth, 1.f));
    const QRgb fill = data.transparent ? paint.paper : ToRgb(data.fillColor),
               border = ToRgb(data.borderColor);
    const QRgb tones[] = {Mix(fill, qRgb(255, 255, 255), 0.9), Mix(fill, border, 0.12),
                          Mix(fill, border, 0.4), Mix(fill, border, 0.7)};
    const EdgeRow &row = kEdges[int(edge)];
    QRectF ring = box;
    if (paint.frame.snap)
        ring = QRectF(QPointF(std::floor(box.left()), std::floor(box.top())),
                      QPointF(std::floor(box.right()) + 1, std::floor(box.bottom()) + 1));
    paint.pencil.NoLine();
    paint.pencil.Smooth(false);
    Ring(paint, ring, width, tones[row.outerLeft], tones[row.outerRight]);
    ring.adjust(width, width, -width, -width);
    Ring(paint, ring, width, tones[row.innerLeft], tones[row.innerRight]);
}

} // namespace diagram
