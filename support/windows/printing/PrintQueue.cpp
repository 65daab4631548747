// The print system takes pages as they are painted, and gives up a job whose painting is aborted.
#include "support/PrintQueue.h"

#include "support/Error.h"
#include "support/PdfJob.h"

#include <QCoreApplication>
#include <QPrinter>
#include <QPrinterInfo>
#include <utility>

namespace support {

namespace {

constexpr QPrinter::DuplexMode kDuplex[] = {QPrinter::DuplexNone, QPrinter::DuplexLongSide,
                                            QPrinter::DuplexShortSide};

class QueueJob : public PrintJob {
public:
    QueueJob(const SystemPrinter &printer, const QString &title)
        : name_(printer.deviceName), device_(QPrinter::HighResolution) {
        device_.setPrinterName(name_);
        device_.setFullPage(true);
        device_.setPageLayout(SheetOf(printer));
        device_.setDocName(title);
        device_.setCopyCount(printer.copies);
        device_.setCollateCopies(printer.collate);
        device_.setDuplex(kDuplex[static_cast<int>(printer.sides)]);
        device_.setColorMode(printer.colour ? QPrinter::Color : QPrinter::GrayScale);
    }
    ~QueueJob() override { Cancel(); }

    QPagedPaintDevice &Device() override { return device_; }
    void NewPage() override {
        if (!device_.newPage()) Raise();
    }
    void Finish() override {
        const bool failed =
            device_.printerState() == QPrinter::Error || device_.printerState() == QPrinter::Aborted;
        ended_ = true;
        if (failed) Raise();
    }
    void Cancel() override {
        if (!std::exchange(ended_, true)) device_.abort();
    }
    QString Destination() const override { return name_; }

private:
    [[noreturn]] void Raise() {
        RequireReady(name_, QueueState(name_));
        throw Error(
            kErrPrinter, QStringLiteral("Printers"),
            QCoreApplication::translate("Printers", "The printer \"%1\" didn't take the print.").arg(name_));
    }

    QString name_;
    QPrinter device_;
    bool ended_ = false;
};

} // namespace

PrinterState QueueState(const QString &name) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    if (info.isNull()) return PrinterState::Gone;
    const bool stopped = info.state() == QPrinter::Error || info.state() == QPrinter::Aborted;
    return stopped ? PrinterState::Paused : PrinterState::Ready;
}

std::unique_ptr<PrintJob> StartQueueJob(const SystemPrinter &printer, const QString &documentName) {
    return std::make_unique<QueueJob>(printer, documentName);
}

} // namespace support
