#include "support/real/PrinterSettings.h"

#include "support/Printers.h"

#include <algorithm>
#include <iterator>
#include <QFileInfo>
#include <QPrintEngine>
#include <QPrinter>

namespace support {

namespace {

constexpr QPrinter::DuplexMode kDuplex[] = {QPrinter::DuplexNone, QPrinter::DuplexLongSide,
                                            QPrinter::DuplexShortSide};

// Qt's key for the print system's own options, which its dialog sets (PPK_CupsOptions in its private
// headers).
constexpr auto kQueueOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

const QString kPageRanges = QStringLiteral("page-ranges");
const QString kPageSet = QStringLiteral("page-set");

Sides SidesOf(QPrinter::DuplexMode mode) {
    const auto *row = std::find(std::begin(kDuplex), std::end(kDuplex), mode);
    return row == std::end(kDuplex) ? Sides::LongEdge : static_cast<Sides>(row - std::begin(kDuplex));
}

// Takes an option out of the list.
QString TakeOption(QStringList &options, const QString &name) {
    QString value;
    for (qsizetype i = options.size() - options.size() % 2 - 2; i >= 0; i -= 2) {
        if (options[i] != name) continue;
        if (value.isEmpty()) value = options[i + 1];
        options.remove(i, 2);
    }
    return value;
}

PageSet PageSetOf(const QString &word) {
    if (word == QLatin1String("odd")) return PageSet::Odd;
    return word == QLatin1String("even") ? PageSet::Even : PageSet::All;
}

} // namespace

void SetUpPrinter(QPrinter &device, const SystemPrinter &printer) {
    if (!printer.deviceName.isEmpty()) device.setPrinterName(printer.deviceName);
    device.setOutputFileName(printer.outputFile);
    if (printer.ToFile()) device.setOutputFormat(QPrinter::PdfFormat);
    device.setPageSize(printer.paper);
    device.setPageOrientation(printer.orientation == PaperOrientation::Landscape ? QPageLayout::Landscape
                                                                                 : QPageLayout::Portrait);
    device.setDocName(printer.documentName);
    device.setCopyCount(printer.copies);
    device.setCollateCopies(printer.collate);
    device.setPageOrder(printer.order == PageOrder::LastToFirst ? QPrinter::LastPageFirst
                                                                : QPrinter::FirstPageFirst);
    device.setDuplex(kDuplex[static_cast<int>(printer.sides)]);
    device.setColorMode(printer.colour ? QPrinter::Color : QPrinter::GrayScale);
    if (!printer.ToFile()) device.printEngine()->setProperty(kQueueOptions, printer.options);
}

void ReadBack(QPrinter &device, SystemPrinter &printer) {
    const bool toFile = device.outputFormat() == QPrinter::PdfFormat && !device.outputFileName().isEmpty();
    printer.outputFile = toFile ? device.outputFileName() : QString();
    printer.replaceFile = toFile && QFileInfo::exists(printer.outputFile);
    if (!toFile) printer.deviceName = device.printerName();
    const bool landscape = device.pageLayout().orientation() == QPageLayout::Landscape;
    printer.orientation = landscape ? PaperOrientation::Landscape : PaperOrientation::Portrait;
    printer.copies = device.copyCount();
    printer.collate = device.collateCopies();
    printer.order =
        device.pageOrder() == QPrinter::LastPageFirst ? PageOrder::LastToFirst : PageOrder::FirstToLast;
    printer.sides = SidesOf(device.duplex());
    printer.colour = device.colorMode() == QPrinter::Color;
    printer.options = toFile ? QStringList() : device.printEngine()->property(kQueueOptions).toStringList();
    printer.pageSet = PageSetOf(TakeOption(printer.options, kPageSet));
    const QPageRanges asked = QPageRanges::fromString(TakeOption(printer.options, kPageRanges));
    printer.pages = device.pageRanges().isEmpty() ? asked : device.pageRanges();
}

} // namespace support
