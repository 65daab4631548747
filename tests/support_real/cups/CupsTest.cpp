#include "tests/support_real/cups/CupsTest.h"

namespace cups_test {

using namespace support;

std::unique_ptr<PrintJob> Painted(Printers &printers, const SystemPrinter &printer,
                                  const QStringList &texts) {
    std::unique_ptr<PrintJob> job = printers.Start(printer, QStringLiteral("Plan of the year"));
    QPainter painter(&job->Device());
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (i > 0) job->NewPage();
        PaintPage(painter, texts[i]);
    }
    return job;
}

void PaintPage(QPainter &painter, const QString &text) {
    const double dot = painter.device()->logicalDpiX() / 25.4; // a millimetre
    const QRectF sheet(0, 0, painter.device()->width(), painter.device()->height());
    const double inset = kFrameInset * dot;
    const QRectF frame = sheet.adjusted(inset, inset, -inset, -inset);
    painter.setPen(QPen(Qt::black, 0.5 * dot));
    painter.drawRect(frame);
    painter.drawLine(frame.topLeft(), frame.center());
    painter.fillRect(QRectF(frame.center(), QSizeF(20 * dot, 10 * dot)), Qt::red);
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(qRound(8 * dot));
    painter.setFont(font);
    painter.drawText(frame.adjusted(inset, inset, 0, 0), text);
}

} // namespace cups_test
