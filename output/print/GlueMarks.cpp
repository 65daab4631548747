#include "output/print/GlueMarks.h"

#include "output/print/PageLayout.h"

#include <QPainter>

namespace print {

namespace {

// Millimetres.
constexpr double kMark = 4; // length of a line
constexpr double kGap = 1;  // between the body and the lines
constexpr double kLine = 0.15;
constexpr double kLabel = 3; // height of the text
constexpr int kLetters = 26;

// A to Z, AA and so on, from 0.
QString Letters(int column) {
    QString text;
    for (int rest = column; rest >= 0; rest = rest / kLetters - 1)
        text.prepend(QChar(u'A' + rest % kLetters));
    return text;
}

void PaintLabel(QPainter &painter, const QPointF &at, const QString &text) {
    constexpr int kPixels = 100; // of a font that is scaled down to millimetres
    painter.save();
    QFont font(QStringLiteral("sans-serif"));
    font.setPixelSize(kPixels);
    painter.setFont(font);
    painter.translate(at);
    painter.scale(kLabel / kPixels, kLabel / kPixels);
    painter.drawText(QPointF(), text);
    painter.restore();
}

} // namespace

void PaintGlueMarks(QPainter &painter, const PageLayout &layout, int page) {
    painter.setPen(QPen(Qt::black, kLine, Qt::SolidLine, Qt::FlatCap));
    const QRectF place = layout.Place(page);
    const QRectF out = layout.body.adjusted(-kGap, -kGap, kGap, kGap);
    for (const double x : {place.left(), place.right()}) {
        painter.drawLine(QPointF(x, out.top()), QPointF(x, out.top() - kMark));
        painter.drawLine(QPointF(x, out.bottom()), QPointF(x, out.bottom() + kMark));
    }
    for (const double y : {place.top(), place.bottom()}) {
        painter.drawLine(QPointF(out.left(), y), QPointF(out.left() - kMark, y));
        painter.drawLine(QPointF(out.right(), y), QPointF(out.right() + kMark, y));
    }
    const int across = layout.HorizontalPages();
    PaintLabel(painter, {out.left() + 2 * kGap, out.top() - kGap},
               Letters(page % across) + QString::number(page / across + 1));
}

} // namespace print
