// A print job that is a PDF until it is handed on: the same bytes go to a file and to a printer.
#pragma once

#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Printers.h"

#include <functional>
#include <memory>
#include <optional>
#include <QIODevice>
#include <QPageLayout>

namespace support {

// Takes what a writer of PDF writes and appends it to a file in large pieces. Writers of PDF ignore failures
// of their device, so writing always seems to succeed; Check raises what went wrong.
class SpoolDevice : public QIODevice {
public:
    // `file` must outlive the object.
    explicit SpoolDevice(AtomicFile &file);
    ~SpoolDevice() override;

    // Writes what is held back; raises the first failure to write.
    void Check();

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override;

private:
    void WriteOut();

    AtomicFile &file_;
    QByteArray held_;
    std::optional<Error> failure_;
};

// Whether the bytes end as a PDF does and its table of contents stands where the end says: false for one of
// which a part is missing.
bool IsWholePdf(const QByteArray &pdf);

class PdfJob : public PrintJob {
public:
    // What is done with the PDF when it is whole: commit the file, or read it from its path. What it raises,
    // Finish does.
    using HandOn = std::function<void(AtomicFile &pdf)>;
    // Makes the device to paint on in place of the usual writer: it writes into the file, which exists and is
    // empty.
    using MakeDevice = std::function<std::unique_ptr<QPagedPaintDevice>(const QString &path)>;

    PdfJob(const SystemPrinter &printer, const QString &documentName, const QString &file,
           QString destination, HandOn handOn, const MakeDevice &make = {});
    ~PdfJob() override;

    QPagedPaintDevice &Device() override { return *device_; }
    void NewPage() override;
    void Finish() override;
    void Cancel() override;
    QString Destination() const override { return destination_; }

private:
    std::optional<AtomicFile> file_;   // until the job ends
    std::optional<SpoolDevice> spool_; // the usual writer's
    std::unique_ptr<QPagedPaintDevice> device_;
    QString destination_;
    HandOn handOn_;
};

// A job to `printer.outputFile`. When it has ended well and that is `system`'s file, too, `system` is given
// the next free name. `system` must outlive the job.
std::unique_ptr<PrintJob> StartFileJob(const SystemPrinter &printer, const QString &documentName,
                                       SystemPrinter &system, const PdfJob::MakeDevice &make = {});

// The sheet of a printer, without margins.
QPageLayout SheetOf(const SystemPrinter &printer);
// Papers to offer where no printer says which it has.
QList<QPageSize> UsualPapers();

} // namespace support
