// Drawing of a diagram that is seen from afar: every item in a few blocks of pixels, without what can't be
// told apart.
#pragma once

#include "diagram/render/Blocks.h"
#include "diagram/render/Paint.h"

namespace diagram {

class Node;
class Link;
struct Crossing;

// Below this zoom (1 is 100 per cent) items are drawn coarsely.
constexpr double kCoarseZoom = 0.3;

class CoarsePainter {
public:
    explicit CoarsePainter(Paint &paint) : paint_(paint), blocks_(paint.Painter()) {}

    // Whether the node is small enough and has nothing but its form and its text.
    bool Takes(const Node &node) const;
    void PaintForm(const Node &node);
    void PaintLine(const Link &link);

private:
    void FillRoute(const Link &link);
    void PaintCurve(const std::vector<Crossing> &crossings, int style, QRgb colour);
    void PaintRun(const std::vector<QPointF> &run, QRgb colour);
    void PaintArch(const QPointF &from, const QPointF &to, QRgb colour);
    void PaintJump(QPointF &from, const QPointF &at, const QPointF &to, int style, QRgb colour);
    QRgb Faint(QRgb colour, QRgb ground, double drawWidth) const;
    void PaintRectangle(const QRect &box, QRgb fill, QRgb border, bool filled);
    template <typename SpanOf>
    void PaintRows(const QRect &box, QRgb fill, QRgb border, bool filled, SpanOf spanOf);

    Paint &paint_;
    Blocks blocks_;
};

} // namespace diagram
