// Icons that are painted when they are asked for.
#pragma once

#include <QHash>
#include <QIconEngine>

namespace widgets {

// Paints once for each size and mode, and again when the palette has changed.
class PaintedIconEngine : public QIconEngine {
public:
    bool isNull() override { return false; }
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override;

protected:
    // `painter` is on a transparent field of that many pixels.
    virtual void Paint(QPainter &painter, const QSize &size, QIcon::Mode mode) = 0;
    // Makes what is kept for that size in pixels, which isn't empty. By default what Paint paints.
    virtual QPixmap Make(const QSize &size, QIcon::Mode mode);

private:
    QPixmap Painted(const QSize &size, QIcon::Mode mode);

    qint64 palette_ = 0;
    QHash<qint64, QPixmap> cache_;
};

} // namespace widgets
