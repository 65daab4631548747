// Queues of CUPS. The document is written as a PDF first, so that a job that is given up never reaches the
// queue, and handed over by the print system's own library, which tells what went wrong.
#include "support/PrintQueue.h"

#include "support/Error.h"
#include "support/PdfJob.h"
#include "support/posix/printing/CupsLibrary.h"
#include "support/PrivateFolder.h"

#include <QCoreApplication>
#include <QFile>

namespace support {

namespace {

constexpr char kPurpose[] = "print";

// A queue's name may be followed by one of its sets of options.
QByteArray QueueOf(const QString &name) { return name.section(u'/', 0, 0).toUtf8(); }

struct FreeDest {
    void operator()(cups_dest_t *dest) const { Cups().cupsFreeDests(1, dest); }
};

std::unique_ptr<cups_dest_t, FreeDest> Find(const QString &name) {
    const QByteArray queue = QueueOf(name), instance = name.section(u'/', 1).toUtf8();
    return std::unique_ptr<cups_dest_t, FreeDest>(Cups().cupsGetNamedDest(
        CUPS_HTTP_DEFAULT, queue.constData(), instance.isEmpty() ? nullptr : instance.constData()));
}

QByteArray Told(const cups_dest_t &dest, const char *option) {
    return Cups().cupsGetOption(option, dest.num_options, dest.options);
}

// Name and value pairs in the form that the library wants.
class Options {
public:
    Options() = default;
    ~Options() { Cups().cupsFreeOptions(count_, options_); }
    Options(const Options &) = delete;
    Options &operator=(const Options &) = delete;

    // The later of two values counts.
    void Add(const QString &name, const QString &value) {
        count_ =
            Cups().cupsAddOption(name.toUtf8().constData(), value.toUtf8().constData(), count_, &options_);
    }
    int Count() const { return count_; }
    cups_option_t *Get() const { return options_; }

private:
    int count_ = 0;
    cups_option_t *options_ = nullptr;
};

[[noreturn]] void RaiseLast(const QString &name) {
    const ipp_status_t status = Cups().cupsLastError();
    if (status == IPP_STATUS_ERROR_NOT_FOUND) RequireReady(name, PrinterState::Gone);
    if (status == IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS) RequireReady(name, PrinterState::Refusing);
    throw Error(kErrPrinter, QStringLiteral("Printers"),
                QCoreApplication::translate("Printers", "The printer \"%1\" didn't take the print:\n%2")
                    .arg(name, QString::fromUtf8(Cups().cupsLastErrorString())));
}

// A job in the queue that its document is written to; taken back unless the document arrived whole.
class QueuedJob {
public:
    QueuedJob(const SystemPrinter &printer, const QString &title)
        : name_(printer.deviceName), queue_(QueueOf(name_)) {
        Options options;
        const QStringList words = QueueOptions(printer);
        for (qsizetype i = 0; i + 1 < words.size(); i += 2) options.Add(words[i], words[i + 1]);
        number_ = Cups().cupsCreateJob(CUPS_HTTP_DEFAULT, queue_.constData(), title.toUtf8().constData(),
                                       options.Count(), options.Get());
        if (number_ == 0) RaiseLast(name_);
    }
    ~QueuedJob() {
        if (!whole_) Cups().cupsCancelJob2(CUPS_HTTP_DEFAULT, queue_.constData(), number_, 1);
    }
    QueuedJob(const QueuedJob &) = delete;
    QueuedJob &operator=(const QueuedJob &) = delete;

    void Write(QIODevice &pdf, const QString &title) {
        constexpr qint64 kBlock = 1 << 16;
        http_status_t status = Cups().cupsStartDocument(CUPS_HTTP_DEFAULT, queue_.constData(), number_,
                                                        title.toUtf8().constData(), CUPS_FORMAT_PDF, 1);
        while (status == HTTP_STATUS_CONTINUE && !pdf.atEnd()) {
            const QByteArray block = pdf.read(kBlock);
            status = Cups().cupsWriteRequestData(CUPS_HTTP_DEFAULT, block.constData(),
                                                 static_cast<std::size_t>(block.size()));
        }
        const ipp_status_t end = Cups().cupsFinishDocument(CUPS_HTTP_DEFAULT, queue_.constData());
        if (status != HTTP_STATUS_CONTINUE || end > IPP_STATUS_OK_EVENTS_COMPLETE) RaiseLast(name_);
        whole_ = true;
    }

private:
    QString name_;
    QByteArray queue_;
    int number_ = 0;
    bool whole_ = false;
};

// Keeps the folder of the PDF as long as the job.
class QueueJob : public PdfJob {
public:
    QueueJob(const SystemPrinter &printer, const QString &title, std::unique_ptr<PrivateFolder> folder)
        : PdfJob(printer, title, folder->Path() + QStringLiteral("/print.pdf"), printer.deviceName,
                 [printer, title](AtomicFile &pdf) { HandOver(printer, title, pdf.Path()); }),
          folder_(std::move(folder)) {}
    ~QueueJob() override { Cancel(); }

private:
    static void HandOver(const SystemPrinter &printer, const QString &title, const QString &path) {
        RequireReady(printer.deviceName, QueueState(printer.deviceName));
        QFile pdf(path);
        if (!pdf.open(QIODevice::ReadOnly)) throw Error(kErrPathFileAccess, QStringLiteral("Printers"), path);
        QueuedJob(printer, title).Write(pdf, title);
    }

    std::unique_ptr<PrivateFolder> folder_;
};

} // namespace

PrinterState QueueState(const QString &name) {
    constexpr char kStopped[] = "5"; // IPP_PSTATE_STOPPED
    const auto dest = Find(name);
    if (!dest) return PrinterState::Gone;
    if (Told(*dest, "printer-state") == kStopped) return PrinterState::Paused;
    return Told(*dest, "printer-is-accepting-jobs") == "false" ? PrinterState::Refusing : PrinterState::Ready;
}

std::unique_ptr<PrintJob> StartQueueJob(const SystemPrinter &printer, const QString &documentName) {
    SweepPrivateFolders(QLatin1String(kPurpose));
    return std::make_unique<QueueJob>(printer, documentName,
                                      std::make_unique<PrivateFolder>(QLatin1String(kPurpose)));
}

} // namespace support
