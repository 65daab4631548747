// Scrolling while something is dragged near the edge of the viewport.
#pragma once

#include <QBasicTimer>
#include <QPointF>
#include <QSize>

class QObject;

namespace diagram {

class EdgeScroll {
public:
    // The timer's events go to `host`, which must live longer.
    explicit EdgeScroll(QObject &host) : host_(host) {}

    // The pointer is at `at` (pixels) of a viewport of that size; `wanted` while a drag may scroll.
    void Follow(bool wanted, const QPointF &at, const QSize &size);
    bool IsScrolling(int timer) const { return timer == timer_.timerId(); }
    // How far to scroll when the timer fires: the farther, the nearer the edge, and null off it. Pixels.
    static QPoint Step(const QPointF &at, const QSize &size);

private:
    QObject &host_;
    QBasicTimer timer_;
};

} // namespace diagram
