#include "widgets/PaintedIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace widgets {

void PaintedIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) {
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1;
    painter->drawPixmap(rect, Painted(rect.size() * ratio, mode));
}

QPixmap PaintedIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) {
    return Painted(size, mode);
}

QPixmap PaintedIconEngine::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State, qreal) {
    return Painted(size, mode);
}

QPixmap PaintedIconEngine::Painted(const QSize &size, QIcon::Mode mode) {
    const qint64 palette = QGuiApplication::palette().cacheKey();
    if (palette != palette_) cache_.clear();
    palette_ = palette;
    QPixmap &pixmap = cache_[qint64(size.width()) << 32 | qint64(size.height()) << 2 | mode];
    if (pixmap.isNull() && !size.isEmpty()) pixmap = Make(size, mode);
    return pixmap;
}

QPixmap PaintedIconEngine::Make(const QSize &size, QIcon::Mode mode) {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    Paint(painter, size, mode);
    return pixmap;
}

} // namespace widgets
