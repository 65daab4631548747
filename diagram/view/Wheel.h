// What a wheel or a touchpad turns by, gathered from however small parts it tells.
#pragma once

#include <QPoint>
#include <QPointF>

namespace diagram {

class Wheel {
public:
    // Whole notches; the rest counts at the next turn in the same direction.
    int Notches(int angle);
    // Whole pixels to scroll.
    QPoint Pixels(const QPoint &angle);

private:
    int angle_ = 0;
    QPointF pixels_;
};

} // namespace diagram
