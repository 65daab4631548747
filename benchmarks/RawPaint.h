// The yardstick of painting: the sample diagram painted from plain arrays by a QPainter, with nothing
// besides.
#pragma once

#include "diagram/model/Surface.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPolygonF>
#include <QStaticText>
#include <vector>

namespace bench {

class RawPaint {
public:
    explicit RawPaint(const diagram::Surface &surface);
    // Paints what touches `area` (twips), with its corner at the painter's origin and `scale` pixels a twip.
    // Boxes are found by their place in the grid. Without `texts` these are left out.
    void Paint(QPainter &painter, const QRectF &area, double scale, bool texts);

private:
    struct Box {
        QRectF rect;
        int shape;
        QColor fill;
        QStaticText text;
        QPointF textAt;
    };
    struct Line {
        QPolygonF points;
        QPolygonF head;
    };
    void PaintBox(QPainter &painter, const Box &box) const;

    std::vector<Box> boxes_;
    std::vector<std::vector<Line>> lines_; // by the box that they leave
    QFont font_;
    int columns_;
    double preparedScale_ = 0;
};

} // namespace bench
