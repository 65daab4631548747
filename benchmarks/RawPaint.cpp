#include "benchmarks/RawPaint.h"

#include "benchmarks/Sample.h"

#include <cmath>
#include <QHash>

namespace bench {

namespace {

// A filled head of 30 degrees at the end of a way.
QPolygonF Head(const std::vector<diagram::Point> &way) {
    const QPointF tip = diagram::ToQPointF(way.back());
    const QPointF before = diagram::ToQPointF(way[way.size() - 2]);
    const double angle = std::atan2(tip.y() - before.y(), tip.x() - before.x());
    const double length = 135, half = 15 * M_PI / 180;
    const auto corner = [&](double side) {
        return tip - length / std::cos(half) * QPointF(std::cos(angle + side), std::sin(angle + side));
    };
    return QPolygonF({tip, corner(half), corner(-half)});
}

QPolygonF Corners(int shape, const QRectF &r) {
    if (shape == 3)
        return QPolygonF({{r.center().x(), r.top()},
                          {r.right(), r.center().y()},
                          {r.center().x(), r.bottom()},
                          {r.left(), r.center().y()}});
    const double inset = r.width() / 5;
    return QPolygonF(
        {r.topLeft(), r.topRight(), {r.right() - inset, r.bottom()}, {r.left() + inset, r.bottom()}});
}

} // namespace

RawPaint::RawPaint(const diagram::Surface &surface) : columns_(Columns(surface.Nodes().Count())) {
    QHash<diagram::ItemId, size_t> place;
    for (diagram::Node &node : surface.Nodes()) {
        place[node.Id()] = boxes_.size();
        boxes_.push_back(
            {node.Bounds(), node.Shape(), support::ToQColor(node.FillColor()), QStaticText(node.Text()), {}});
        boxes_.back().text.setTextFormat(Qt::PlainText);
    }
    lines_.resize(boxes_.size());
    for (const auto &link : surface.Links()) {
        QPolygonF points;
        for (const diagram::Point &point : link->Route()) points << diagram::ToQPointF(point);
        lines_[place[link->Source().Id()]].push_back({points, Head(link->Route())});
    }
    font_ = QFont(QStringLiteral("DejaVu Sans"));
}

void RawPaint::PaintBox(QPainter &painter, const Box &box) const {
    painter.setBrush(box.fill);
    if (box.shape == 1)
        painter.drawRect(box.rect);
    else if (box.shape == 0)
        painter.drawEllipse(box.rect);
    else
        painter.drawPolygon(Corners(box.shape, box.rect));
}

void RawPaint::Paint(QPainter &painter, const QRectF &area, double scale, bool texts) {
    const int rows = int((boxes_.size() + size_t(columns_) - 1) / size_t(columns_));
    const int left = std::max(0, int(area.left() / kPitchX) - 1),
              right = std::min(columns_ - 1, int(area.right() / kPitchX) + 1);
    const int top = std::max(0, int(area.top() / kPitchY) - 1),
              bottom = std::min(rows - 1, int(area.bottom() / kPitchY) + 1);
    font_.setPixelSize(std::max(1, int(std::lround(165 * scale))));
    if (preparedScale_ != scale) {
        for (Box &box : boxes_) box.textAt = QPointF();
        preparedScale_ = scale;
    }
    const QTransform toDevice(scale, 0, 0, scale, -area.left() * scale, -area.top() * scale);
    painter.setTransform(toDevice, true);
    painter.setPen(QPen(Qt::black, 15));
    const auto each = [&](auto &&paint) {
        for (int row = top; row <= bottom; ++row)
            for (int column = left; column <= right; ++column) {
                const size_t at = size_t(row) * size_t(columns_) + size_t(column);
                if (at < boxes_.size()) paint(at);
            }
    };
    each([&](size_t at) { PaintBox(painter, boxes_[at]); });
    if (texts) {
        painter.setTransform(toDevice.inverted(), true);
        painter.setFont(font_);
        each([&](size_t at) {
            Box &box = boxes_[at];
            const QPointF middle = toDevice.map(box.rect.center());
            const QSizeF size = box.text.size();
            painter.drawStaticText(middle - QPointF(size.width() / 2, size.height() / 2), box.text);
        });
        painter.setTransform(toDevice, true);
    }
    each([&](size_t at) {
        for (const Line &line : lines_[at]) {
            painter.drawPolyline(line.points);
            painter.setBrush(Qt::black);
            painter.drawPolygon(line.head);
        }
    });
}

} // namespace bench
