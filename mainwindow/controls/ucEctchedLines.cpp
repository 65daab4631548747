#include "mainwindow/controls/ucEctchedLines.h"

#include <QPainter>
#include <QPalette>

namespace mainwindow {

ucEctchedLines::ucEctchedLines(QWidget *parent) : QWidget(parent) { SetPolicy(); }

void ucEctchedLines::SetVertical(bool on) {
    vertical_ = on;
    SetPolicy();
    updateGeometry();
    update();
}

void ucEctchedLines::SetPolicy() {
    if (vertical_)
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    else
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ucEctchedLines::sizeHint() const { return {2, 2}; }

void ucEctchedLines::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QColor dark = palette().color(QPalette::Mid);
    const QColor light = palette().color(QPalette::Light);
    if (vertical_) {
        const int x = width() / 2 - 1;
        painter.fillRect(x, 0, 1, height(), dark);
        painter.fillRect(x + 1, 0, 1, height(), light);
    } else {
        const int y = height() / 2 - 1;
        painter.fillRect(0, y, width(), 1, dark);
        painter.fillRect(0, y + 1, width(), 1, light);
    }
}

} // namespace mainwindow
