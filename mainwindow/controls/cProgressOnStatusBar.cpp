#include "mainwindow/controls/cProgressOnStatusBar.h"

#include "mainwindow/controls/cStatusBar.h"

#include <QPainter>

namespace mainwindow {

namespace {
constexpr int Pixels(int twips) { return (twips + 7) / 15; }
constexpr int kBarHeight = 6; // of the painted bar, pixels
constexpr int kFrame = 16;    // milliseconds between two pictures of a screen
} // namespace

cProgressBar::cProgressBar(QWidget *parent) : QProgressBar(parent) {
    setRange(0, 100);
    setValue(0);
    setTextVisible(false);
}

void cProgressBar::Show(int percent) {
    const bool between = percent > minimum() && percent < maximum();
    if (between && shown_.isValid() && shown_.elapsed() < kFrame) return;
    shown_.start();
    setValue(percent);
}

void cProgressBar::paintEvent(QPaintEvent *) {
    if (value() <= minimum()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF groove(0, (height() - kBarHeight) / 2.0, width(), kBarHeight);
    painter.setBrush(palette().color(QPalette::Mid));
    painter.drawRoundedRect(groove, kBarHeight / 2.0, kBarHeight / 2.0);
    const double part = double(value() - minimum()) / qMax(1, maximum() - minimum());
    painter.setClipRect(QRectF(groove.left(), groove.top(), groove.width() * part, groove.height()));
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRoundedRect(groove, kBarHeight / 2.0, kBarHeight / 2.0);
}

void cProgressOnStatusBar::SetProgressBar(cProgressBar &bar, cStatusBar &statusBar) const {
    const bool shown = !bar.isHidden();
    if (bar.parentWidget() != &statusBar) {
        bar.setParent(&statusBar);
        bar.setVisible(shown);
    }
    const QWidget *panel = statusBar.Panel(QStringLiteral("PROGRESS"));
    if (!panel) return;
    bar.setGeometry(panel->x() + Pixels(40), Pixels(40), qMax(0, panel->width() - Pixels(70)),
                    qMax(0, statusBar.height() - Pixels(70)));
}

} // namespace mainwindow
