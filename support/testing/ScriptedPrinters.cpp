#include "support/testing/ScriptedPrinters.h"

#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/PdfJob.h"

#include <gtest/gtest.h>
#include <QBuffer>
#include <QPdfWriter>

namespace support::testing {

namespace {

class ScriptedJob : public PrintJob {
public:
    ScriptedJob(FakePrinters &printers, FakePrinters::Expected script,
                std::shared_ptr<ScriptedJobRecord> record)
        : printers_(printers),
          script_(std::move(script)),
          record_(std::move(record)),
          buffer_(&record_->pdf) {
        buffer_.open(QIODevice::WriteOnly);
        writer_.emplace(&buffer_);
        writer_->setPageLayout(SheetOf(record_->printer));
        writer_->setTitle(record_->documentName);
        record_->pages = 1;
    }
    ~ScriptedJob() override { Cancel(); }

    QPagedPaintDevice &Device() override { return *writer_; }
    void NewPage() override {
        RaiseIf(JobFails::AtNewPage);
        writer_->newPage();
        ++record_->pages;
    }
    void Finish() override {
        RaiseIf(JobFails::AtFinish);
        record_->finished = true;
        if (record_->printer.ToFile()) WriteFile();
    }
    void Cancel() override {
        if (!record_->finished) record_->cancelled = true;
    }
    QString Destination() const override { return record_->destination; }

private:
    void RaiseIf(JobFails moment) const {
        if (script_.fails == moment) throw Error(script_.number, QStringLiteral("Printers"), script_.text);
    }
    void WriteFile() {
        AtomicFile file(record_->destination);
        file.Write(record_->pdf);
        file.Commit();
        if (printers_.system.outputFile != record_->printer.outputFile) return;
        printers_.system.outputFile = NextFreeFile(record_->destination);
        printers_.system.replaceFile = false;
    }

    FakePrinters &printers_;
    FakePrinters::Expected script_;
    std::shared_ptr<ScriptedJobRecord> record_;
    QBuffer buffer_;
    std::optional<QPdfWriter> writer_;
};

QString DestinationOf(const SystemPrinter &printer) {
    if (!printer.ToFile()) return printer.deviceName;
    return printer.replaceFile ? printer.outputFile : NextFreeFile(printer.outputFile);
}

} // namespace

PrinterState FakePrinters::State(const QString &name) {
    if (!names.contains(name)) return PrinterState::Gone;
    const auto found = states.find(name);
    return found == states.end() ? PrinterState::Ready : found->second;
}

QList<QPageSize> FakePrinters::Papers(const QString &) {
    return {QPageSize(QPageSize::A4), QPageSize(QPageSize::A3), QPageSize(QPageSize::Letter)};
}

QMarginsF FakePrinters::Unprintable(const SystemPrinter &printer) {
    return printer.ToFile() ? QMarginsF() : unprintable;
}

void FakePrinters::SetDefault(const QString &name) {
    defaultsSet << name;
    defaultName = name;
}

std::unique_ptr<PrintJob> FakePrinters::Start(const SystemPrinter &printer, const QString &documentName) {
    const QString destination = DestinationOf(printer);
    if (expected.empty()) {
        ADD_FAILURE() << "Unexpected print to \"" << destination.toStdString() << "\"";
        throw Error(kErrPrinter, QStringLiteral("Printers"), QStringLiteral("Unexpected print"));
    }
    const Expected script = expected.front();
    expected.pop_front();
    if (script.destination != destination)
        ADD_FAILURE() << "Print to \"" << destination.toStdString() << "\" where \""
                      << script.destination.toStdString() << "\" was expected";
    if (script.fails == JobFails::AtStart)
        throw Error(script.number, QStringLiteral("Printers"), script.text);
    if (!printer.ToFile()) RequireReady(printer.deviceName, State(printer.deviceName));
    jobs.push_back(std::make_shared<ScriptedJobRecord>(
        ScriptedJobRecord{printer, documentName, destination, 0, false, false, {}}));
    return std::make_unique<ScriptedJob>(*this, script, jobs.back());
}

} // namespace support::testing
