#include "diagram/view/Marks.h"

#include <cmath>
#include <optional>
#include <QImage>

namespace diagram {

namespace {

constexpr double kLevel = 0.01; // pixels by which a level line may rise

bool IsLevelOrUpright(const QPointF &from, const QPointF &to) {
    return std::abs(from.x() - to.x()) < kLevel || std::abs(from.y() - to.y()) < kLevel;
}

void FillAll(QPainter &painter, const std::vector<QRect> &rects, const QColor &colour) {
    if (rects.empty()) return;
    painter.setBrush(colour);
    painter.drawRects(rects.data(), int(rects.size()));
}

} // namespace

QRect Marks::DevicePlace(const QPointF &middle, double side) const {
    const int pixels = std::max(3, int(std::lround(side * look_.ratio)));
    QRect place(0, 0, pixels, pixels);
    place.moveTopLeft(look_.DevicePixel(middle - QPointF(pixels - 1, pixels - 1) / (2 * look_.ratio)));
    return place;
}

void Marks::AddFrame(const QRectF &box) {
    const int line = look_.Thin();
    const QPoint first = look_.DevicePixel(box.topLeft()), last = look_.DevicePixel(box.bottomRight());
    const int width = last.x() - first.x() + line, height = last.y() - first.y() - line;
    frames_.emplace_back(first.x(), first.y(), width, line);
    frames_.emplace_back(first.x(), last.y(), width, line);
    frames_.emplace_back(first.x(), first.y() + line, line, height);
    frames_.emplace_back(last.x(), first.y() + line, line, height);
}

void Marks::AddHandle(const QPointF &middle, double side) {
    const int line = look_.Thin();
    const QRect place = DevicePlace(middle, side);
    handles_.push_back(place);
    handleInsides_.push_back(place.adjusted(line, line, -line, -line));
}

QRect Marks::GlowAlong(const QPointF &from, const QPointF &to, int width) const {
    const QPoint first = look_.DevicePixel({std::min(from.x(), to.x()), std::min(from.y(), to.y())});
    const QPoint last = look_.DevicePixel({std::max(from.x(), to.x()), std::max(from.y(), to.y())});
    const int before = width / 2, behind = width - 1 - before;
    return QRect(first, last).adjusted(-before, -before, behind, behind);
}

bool Marks::AddGlow(const QPainterPath &path, double width, const QRectF &spared) {
    const auto end = [&](int i) { return QPointF(path.elementAt(i)); };
    if (path.elementCount() == 2 && spared.isEmpty() && !IsLevelOrUpright(end(0), end(1))) {
        slanted_ << QLineF(end(0) * look_.ratio, end(1) * look_.ratio);
        slantedWidth_ = width * look_.ratio;
        return true;
    }
    const int across = int(std::lround(width * look_.ratio));
    QRegion glow;
    std::optional<QPointF> from;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isCurveTo() || (element.isLineTo() && !IsLevelOrUpright(*from, element))) return false;
        if (element.isLineTo()) glow += GlowAlong(*from, element, across);
        from = element;
    }
    if (!spared.isEmpty())
        glow -= QRect(look_.DevicePixel(spared.topLeft()), look_.DevicePixel(spared.bottomRight()));
    glows_.insert(glows_.end(), glow.begin(), glow.end());
    return true;
}

void Marks::PaintSlanted(QPainter &painter, const QColor &glow) const {
    if (slanted_.isEmpty()) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(glow, slantedWidth_));
    painter.drawLines(slanted_);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Qt::NoPen);
}

void Marks::PaintKnobs(QPainter &painter) const {
    if (knobs_.empty()) return;
    QImage knob(knobs_.front().size(), QImage::Format_ARGB32_Premultiplied);
    knob.fill(Qt::transparent);
    const double line = look_.Thin();
    QPainter inside(&knob);
    inside.setRenderHint(QPainter::Antialiasing);
    inside.setPen(QPen(look_.accent, line));
    inside.setBrush(Qt::white);
    inside.drawEllipse(QRectF(knob.rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2));
    inside.end();
    for (const QRect &place : knobs_) painter.drawImage(place.topLeft(), knob);
}

void Marks::Paint(QPainter &painter, const QColor &glow) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.scale(1 / look_.ratio, 1 / look_.ratio);
    painter.setPen(Qt::NoPen);
    PaintSlanted(painter, glow);
    FillAll(painter, glows_, glow);
    FillAll(painter, frames_, frame_);
    PaintKnobs(painter);
    FillAll(painter, handles_, look_.accent);
    FillAll(painter, handleInsides_, Qt::white);
    painter.restore();
}

} // namespace diagram
