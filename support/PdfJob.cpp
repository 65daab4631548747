#include "support/PdfJob.h"

#include <QCoreApplication>
#include <QPdfWriter>

namespace support {

namespace {

constexpr qsizetype kPiece = 1 << 18; // bytes written at once

std::unique_ptr<QPagedPaintDevice> UsualWriter(QIODevice &device, const SystemPrinter &printer,
                                               const QString &documentName) {
    auto writer = std::make_unique<QPdfWriter>(&device);
    writer->setPageLayout(SheetOf(printer));
    writer->setTitle(documentName);
    writer->setCreator(QCoreApplication::applicationName());
    return writer;
}

// What the user agreed to replace, else a name that nothing has.
QString FileToWrite(const SystemPrinter &printer) {
    return printer.replaceFile ? printer.outputFile : NextFreeFile(printer.outputFile);
}

} // namespace

SpoolDevice::SpoolDevice(AtomicFile &file) : file_(file) {
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

SpoolDevice::~SpoolDevice() = default;

void SpoolDevice::Check() {
    WriteOut();
    if (failure_) throw Error(*failure_);
}

qint64 SpoolDevice::writeData(const char *data, qint64 size) {
    if (!failure_) held_.append(data, static_cast<qsizetype>(size));
    if (held_.size() >= kPiece) WriteOut();
    return size;
}

void SpoolDevice::WriteOut() {
    const QByteArray bytes = std::exchange(held_, {});
    if (failure_ || bytes.isEmpty()) return;
    try {
        file_.Append(bytes);
    } catch (const Error &error) {
        failure_.emplace(error);
    }
}

bool IsWholePdf(const QByteArray &pdf) {
    constexpr qsizetype kEnd = 64;
    const QByteArray end = pdf.right(kEnd).trimmed();
    const qsizetype at = end.lastIndexOf("startxref");
    if (!pdf.startsWith("%PDF-") || at < 0 || !end.endsWith("%%EOF")) return false;
    bool isNumber = false;
    const qsizetype table = end.mid(at).split('\n').value(1).trimmed().toLongLong(&isNumber);
    return isNumber && table > 0 && pdf.mid(table, 4) == "xref";
}

PdfJob::PdfJob(const SystemPrinter &printer, const QString &documentName, const QString &file,
               QString destination, HandOn handOn, const MakeDevice &make)
    : file_(std::in_place, file), destination_(std::move(destination)), handOn_(std::move(handOn)) {
    if (make) {
        device_ = make(file_->Path());
    } else {
        spool_.emplace(*file_);
        device_ = UsualWriter(*spool_, printer, documentName);
    }
}

PdfJob::~PdfJob() { Cancel(); }

void PdfJob::NewPage() {
    device_->newPage();
    if (spool_) spool_->Check();
}

void PdfJob::Finish() {
    if (!file_) return;
    if (spool_) spool_->Check();
    if (!IsWholePdf(ReadWholeFile(file_->Path())))
        Raise(kErrDiskFull, QStringLiteral("PdfJob"), file_->Target());
    handOn_(*file_);
    Cancel();
}

// The device may still write when it goes, so it goes before what it writes to.
void PdfJob::Cancel() {
    device_.reset();
    spool_.reset();
    file_.reset();
}

std::unique_ptr<PrintJob> StartFileJob(const SystemPrinter &printer, const QString &documentName,
                                       SystemPrinter &system, const PdfJob::MakeDevice &make) {
    const QString path = FileToWrite(printer);
    const auto keep = [&system, path, asked = printer.outputFile](AtomicFile &pdf) {
        pdf.Commit();
        if (system.outputFile != asked) return;
        system.outputFile = NextFreeFile(path);
        system.replaceFile = false;
    };
    return std::make_unique<PdfJob>(printer, documentName, path, path, keep, make);
}

QPageLayout SheetOf(const SystemPrinter &printer) {
    const bool landscape = printer.orientation == PaperOrientation::Landscape;
    return QPageLayout(printer.paper, landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF());
}

QList<QPageSize> UsualPapers() {
    QList<QPageSize> papers;
    for (const auto size : {QPageSize::A5, QPageSize::A4, QPageSize::A3, QPageSize::A2, QPageSize::A1,
                            QPageSize::A0, QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid})
        papers.append(QPageSize(size));
    return papers;
}

} // namespace support
