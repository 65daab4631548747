#include "support/real/QtPrinters.h"

#include "support/modDefPrinter.h"
#include "support/PdfJob.h"
#include "support/PrintQueue.h"
#include "support/real/PrinterSettings.h"

#include <QPrinter>
#include <QPrinterInfo>

namespace support {

namespace {

// Files in shades of grey; the usual writer knows colours only.
std::unique_ptr<QPagedPaintDevice> GreyWriter(const SystemPrinter &printer, const QString &documentName,
                                              const QString &path) {
    auto writer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    writer->setOutputFormat(QPrinter::PdfFormat);
    writer->setOutputFileName(path);
    writer->setColorMode(QPrinter::GrayScale);
    writer->setFullPage(true);
    writer->setPageLayout(SheetOf(printer));
    writer->setDocName(documentName);
    return writer;
}

} // namespace

QStringList SystemPrinters::Names() { return QPrinterInfo::availablePrinterNames(); }

QString SystemPrinters::Default() { return QPrinterInfo::defaultPrinterName(); }

PrinterState SystemPrinters::State(const QString &name) { return QueueState(name); }

QList<QPageSize> SystemPrinters::Papers(const QString &name) {
    const QList<QPageSize> papers =
        name.isEmpty() ? QList<QPageSize>() : QPrinterInfo::printerInfo(name).supportedPageSizes();
    return papers.isEmpty() ? UsualPapers() : papers;
}

QMarginsF SystemPrinters::Unprintable(const SystemPrinter &printer) {
    if (printer.ToFile() || printer.deviceName.isEmpty()) return {};
    QPrinter device(QPrinter::HighResolution);
    SetUpPrinter(device, printer);
    QPageLayout sheet = device.pageLayout();
    sheet.setUnits(QPageLayout::Millimeter);
    return sheet.minimumMargins();
}

SystemPrinter &SystemPrinters::System() {
    if (!system_) {
        system_.emplace();
        system_->deviceName = Default();
        if (!system_->deviceName.isEmpty()) {
            const QPrinterInfo info = QPrinterInfo::printerInfo(system_->deviceName);
            if (info.defaultPageSize().isValid()) system_->paper = info.defaultPageSize();
        }
    }
    return *system_;
}

void SystemPrinters::SetDefault(const QString &name) { SetDefaultPrinter(name); }

std::unique_ptr<PrintJob> SystemPrinters::Start(const SystemPrinter &printer, const QString &documentName) {
    if (!printer.ToFile()) {
        RequireReady(printer.deviceName, State(printer.deviceName));
        return StartQueueJob(printer, documentName);
    }
    if (printer.colour) return StartFileJob(printer, documentName, System());
    return StartFileJob(printer, documentName, System(),
                        [&](const QString &path) { return GreyWriter(printer, documentName, path); });
}

} // namespace support
