#include "widgets/SwatchIcon.h"

#include "widgets/PaintedIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace widgets {

namespace {

constexpr qreal kCorner = 0.12;   // of the shorter side
constexpr double kFrameInk = 0.4; // of the frame, the rest is what lies below
constexpr qreal kFaded = 0.35;    // how much of a picture that is disabled is seen

QPen FramePen(const QRectF &box, QColor ink) {
    ink.setAlphaF(float(kFrameInk));
    return {ink, qMax(1.0, qMin(box.width(), box.height()) / 20)};
}

void PaintField(QPainter &painter, const QRectF &box, const QBrush &fill, const QColor &ink) {
    const QPen pen = FramePen(box, ink);
    const qreal half = pen.widthF() / 2, corner = qMin(box.width(), box.height()) * kCorner;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(fill);
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), corner, corner);
}

class SwatchEngine : public PaintedIconEngine {
public:
    explicit SwatchEngine(support::Colour colour) : colour_(colour) {}
    QIconEngine *clone() const override { return new SwatchEngine(*this); }

protected:
    void Paint(QPainter &painter, const QSize &size, QIcon::Mode mode) override {
        if (mode == QIcon::Disabled) painter.setOpacity(kFaded);
        const QRectF box(QPointF(0, 0), QSizeF(size));
        const QColor ink = QGuiApplication::palette().color(QPalette::WindowText);
        if (colour_ == support::kNoColour)
            PaintNoColour(painter, box, ink);
        else
            PaintSwatch(painter, box, colour_, ink);
    }

private:
    support::Colour colour_;
};

} // namespace

void PaintSwatch(QPainter &painter, const QRectF &box, support::Colour colour, const QColor &ink) {
    PaintField(painter, box, support::ToQColor(colour), ink);
}

void PaintNoColour(QPainter &painter, const QRectF &box, const QColor &ink) {
    PaintField(painter, box, Qt::white, ink);
    const qreal rim = qMin(box.width(), box.height()) / 6;
    painter.setPen(QPen(QColor(0xd9, 0x48, 0x3b), rim * 0.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(box.bottomLeft() + QPointF(rim, -rim), box.topRight() + QPointF(-rim, rim));
}

QIcon SwatchIcon(support::Colour colour) { return QIcon(new SwatchEngine(colour)); }
QIcon NoColourIcon() { return QIcon(new SwatchEngine(support::kNoColour)); }

} // namespace widgets
