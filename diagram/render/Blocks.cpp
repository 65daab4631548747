#include "diagram/render/Blocks.h"

#include <algorithm>
#include <cmath>
#include <QImage>
#include <QPaintEngine>

namespace diagram {

namespace {

constexpr QRect kEverywhere(-(1 << 24), -(1 << 24), 1 << 25, 1 << 25);

bool HoldsPlainPixels(QImage::Format format) {
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied ||
           format == QImage::Format_ARGB32;
}

// The rectangle to which painting is clipped, in device pixels; an empty one for what is no rectangle.
QRect ClipOf(const QPainter &painter, const QRect &device, const QPoint &shift) {
    QRect clip = device;
    if (painter.hasClipping()) {
        const QRegion region = painter.clipRegion();
        if (region.rectCount() != 1) return {};
        clip &= region.boundingRect().translated(shift);
    }
    const QRegion system = painter.paintEngine()->systemClip();
    if (system.rectCount() > 1) return {};
    return system.isEmpty() ? clip : clip & system.boundingRect();
}

} // namespace

Blocks::Blocks(QPainter &painter) : painter_(painter), area_(kEverywhere) {
    if (!UseMemory()) pixels_ = nullptr, area_ = kEverywhere;
}

bool Blocks::UseMemory() {
    QPaintEngine *engine = painter_.paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster || !engine->paintDevice()) return false;
    if (engine->paintDevice()->devType() != QInternal::Image || painter_.opacity() < 1) return false;
    if (painter_.compositionMode() != QPainter::CompositionMode_SourceOver) return false;
    const QTransform transform = painter_.deviceTransform();
    const QPoint shift(int(transform.dx()), int(transform.dy()));
    if (transform.type() > QTransform::TxTranslate ||
        QPointF(shift) != QPointF(transform.dx(), transform.dy()))
        return false;
    auto *image = static_cast<QImage *>(engine->paintDevice());
    if (!HoldsPlainPixels(image->format())) return false;
    const QRect clip = ClipOf(painter_, image->rect(), shift);
    if (clip.isEmpty()) return false;
    // The painter draws into these very bytes; asking for writable ones would make a copy of them.
    pixels_ = reinterpret_cast<QRgb *>(const_cast<uchar *>(image->constBits()));
    stride_ = image->bytesPerLine() / qsizetype(sizeof(QRgb));
    pixels_ += shift.y() * stride_ + shift.x();
    area_ = clip.translated(-shift);
    return true;
}

void Blocks::Fill(int x, int y, int width, int height, QRgb colour) {
    if (!pixels_) return painter_.fillRect(QRect(x, y, width, height), QColor::fromRgb(colour));
    const int left = std::max(x, area_.left()), right = std::min(x + width, area_.right() + 1);
    const int top = std::max(y, area_.top()), bottom = std::min(y + height, area_.bottom() + 1);
    if (left >= right) return;
    for (int row = top; row < bottom; ++row)
        std::fill(pixels_ + row * stride_ + left, pixels_ + row * stride_ + right, colour);
}

void Blocks::Line(double x0, double y0, double x1, double y1, QRgb colour) {
    const int fromX = int(std::floor(x0)), fromY = int(std::floor(y0)), toX = int(std::floor(x1)),
              toY = int(std::floor(y1));
    if (fromY == toY) return Fill(std::min(fromX, toX), fromY, std::abs(toX - fromX) + 1, 1, colour);
    if (fromX == toX) return Fill(fromX, std::min(fromY, toY), 1, std::abs(toY - fromY) + 1, colour);
    const QRectF bounds = QRectF(QPointF(x0, y0), QPointF(x1, y1)).normalized().adjusted(-1, -1, 1, 1);
    if (!bounds.intersects(area_)) return;
    if (!pixels_ || bounds.width() + bounds.height() > 1 << 14) {
        painter_.setPen(QColor::fromRgb(colour));
        return painter_.drawLine(QLineF(x0, y0, x1, y1));
    }
    const int steps = std::max(std::abs(toX - fromX), std::abs(toY - fromY));
    const double dx = (x1 - x0) / steps, dy = (y1 - y0) / steps;
    for (int i = 0; i <= steps; ++i) {
        const int x = int(std::floor(x0 + i * dx)), y = int(std::floor(y0 + i * dy));
        if (area_.contains(x, y)) pixels_[y * stride_ + x] = colour;
    }
}

} // namespace diagram
