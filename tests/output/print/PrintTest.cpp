#include "tests/output/print/PrintTest.h"

#include "diagram/model/Node.h"

#include <numeric>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>

namespace print::testing {

diagram::Node &AddBox(diagram::Surface &surface, double left, double top, double width, double height,
                      const QString &text) {
    const auto twips = [](double millimetres) { return float(millimetres * kTwipsOfMillimetre); };
    diagram::Node &node = surface.Nodes().Add(twips(left), twips(top), twips(width), twips(height));
    node.SetText(text);
    node.SetShape(1); // a rectangle
    node.SetFillColor(support::Rgb(255, 0, 0));
    node.SetBorderColor(support::Rgb(255, 0, 0));
    return node;
}

QRectF RedBounds(const QImage &image, double scale) {
    QRect bounds;
    const QImage plain = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < plain.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(plain.constScanLine(y));
        for (int x = 0; x < plain.width(); ++x) {
            const QRgb pixel = line[x];
            if (qRed(pixel) > 200 && qGreen(pixel) < 100 && qBlue(pixel) < 100) bounds |= QRect(x, y, 1, 1);
        }
    }
    return {bounds.left() / scale, bounds.top() / scale, bounds.width() / scale, bounds.height() / scale};
}

diagram::Surface &PrintTest::AddSlice(const QString &caption) {
    map.slices.emplace_back(std::make_unique<diagram::Surface>(), caption);
    return *map.slices.back().surface;
}

int PrintTest::WritePdf() {
    sheets = LayOutSlices(map, setup);
    QPdfWriter writer(PdfPath());
    QPageLayout page(QPageSize(PaperSize(setup.paper), QPageSize::Millimeter),
                     setup.Orientation == kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                     QMarginsF());
    writer.setPageLayout(page);
    std::vector<int> order(sheets.sheets.size());
    std::iota(order.begin(), order.end(), 0);
    return PrintSlices(map, setup, sheets)
        .PaintAll(
            writer, order, [&] { writer.newPage(); }, [](int) { return true; });
}

QString PrintTest::Ask(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    const bool ran = process.waitForFinished() && process.exitCode() == 0;
    EXPECT_TRUE(ran) << qPrintable(program);
    return QString::fromUtf8(process.readAllStandardOutput());
}

int PrintTest::PagesOfPdf() {
    static const QRegularExpression pages(QStringLiteral("Pages:\\s+(\\d+)"));
    return pages.match(Ask(QStringLiteral("pdfinfo"), {PdfPath()})).captured(1).toInt();
}

QSizeF PrintTest::PageSizeOfPdf() {
    constexpr double kMillimetresOfPoint = 25.4 / 72;
    static const QRegularExpression size(QStringLiteral("Page size:\\s+([\\d.]+) x ([\\d.]+)"));
    const QRegularExpressionMatch match = size.match(Ask(QStringLiteral("pdfinfo"), {PdfPath()}));
    return QSizeF(match.captured(1).toDouble(), match.captured(2).toDouble()) * kMillimetresOfPoint;
}

QString PrintTest::TextOfPdf(int page) {
    const QString number = QString::number(page);
    return Ask(QStringLiteral("pdftotext"),
               {QStringLiteral("-f"), number, QStringLiteral("-l"), number, PdfPath(), QStringLiteral("-")})
        .simplified();
}

QImage PrintTest::PictureOfPdf(int page, int dotsPerInch) {
    const QString number = QString::number(page), target = folder_.filePath(QStringLiteral("page"));
    Ask(QStringLiteral("pdftoppm"),
        {QStringLiteral("-png"), QStringLiteral("-singlefile"), QStringLiteral("-r"),
         QString::number(dotsPerInch), QStringLiteral("-f"), number, PdfPath(), target});
    return QImage(target + QStringLiteral(".png"));
}

QImage PrintTest::PictureOfPreview(int page, double scale) {
    sheets = LayOutSlices(map, setup);
    const QSizeF paper = sheets.layouts[std::size_t(sheets.sheets[std::size_t(page - 1)].slice)].paper;
    QImage image((paper * scale).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    PrintSlices(map, setup, sheets).Paint(painter, page - 1, scale, false);
    return image;
}

} // namespace print::testing
