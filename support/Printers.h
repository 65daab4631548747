// The door to the printers: which there are, the program's own printer with its settings, and the jobs that
// are painted for one.
#pragma once

#include <memory>
#include <QList>
#include <QMarginsF>
#include <QPageRanges>
#include <QPageSize>
#include <QString>
#include <QStringList>
#include <vector>

class QPagedPaintDevice;

namespace support {

// What the errors of printing carry: there is no such printer (any longer), or it takes nothing; and whatever
// else the print system complains of. A full disk is kErrDiskFull.
constexpr long kErrDeviceUnavailable = 68;
constexpr long kErrPrinter = 482;

enum class PaperOrientation { Portrait = 1, Landscape = 2 };
enum class PageOrder { FirstToLast, LastToFirst };
enum class Sides { One, LongEdge, ShortEdge }; // printed on; the edge is the one to turn sheets at
enum class PageSet { All, Odd, Even };
enum class PrinterState { Ready, Paused, Refusing, Gone };

// The program's own printer: a device, or a PDF file, and how to print there. Changing it changes none of the
// system's settings.
struct SystemPrinter {
    QString deviceName; // empty where the machine has no printer
    // Where this isn't empty, jobs are PDF files and no printer has any part in them. When a job to the file
    // of Printers::System has ended well, that printer's file is given the next free name in the folder.
    QString outputFile;
    // Whether the user agreed to replace `outputFile`. Otherwise a job takes the next free name.
    bool replaceFile = false;
    QString documentName; // the dialog offers a file of this name; empty stands for the program's
    PaperOrientation orientation = PaperOrientation::Portrait;
    QPageSize paper{QPageSize::A4};
    int copies = 1;
    bool collate = true;
    // Which pages of the document that the dialog was shown for. Whoever prints it puts them back to all
    // afterwards.
    QPageRanges pages;              // counted from 1; empty means all
    PageSet pageSet = PageSet::All; // of these
    PageOrder order = PageOrder::FirstToLast;
    Sides sides = Sides::One;
    bool colour = true;
    // What the dialog chose beyond that, in the print system's own words: name, value, name, value.
    QStringList options;

    bool ToFile() const { return !outputFile.isEmpty(); }
    bool operator==(const SystemPrinter &) const = default;
};

// The numbers from 1 of the pages to paint, in the order in which to paint them, of a document of `count`
// pages: what `printer.pages`, `pageSet` and `order` choose, and for a file its copies, too. The copies on
// paper are the print system's business.
std::vector<int> PagesToPrint(const SystemPrinter &printer, int count);

// What is handed to a queue with a document painted like that: name, value, name, value, in the words of the
// printing protocol. The sheet is neither scaled nor moved.
QStringList QueueOptions(const SystemPrinter &printer);

// The first of "TITLE.pdf", "TITLE (2).pdf", ... in `folder` that doesn't exist. What file names can't hold
// becomes "_"; an empty title becomes "Print".
QString FreeOutputFile(const QString &folder, const QString &title);
// `path` itself when nothing has that name, else the next free one: "Plan.pdf" is followed by "Plan (2).pdf",
// and this by "Plan (3).pdf".
QString NextFreeFile(const QString &path);

// One document on its way to a printer or a file. Nothing comes out before Finish; a job that ends in any
// other way leaves nothing.
class PrintJob {
public:
    virtual ~PrintJob() = default; // cancels what isn't finished

    // Paint here with one QPainter for the whole job, and end it before Finish or Cancel. The device's origin
    // is the corner of the sheet, whatever margins the printer needs; width and height are those of the sheet
    // as it is turned, in dots of the device's resolution. Stays valid until Finish or Cancel.
    virtual QPagedPaintDevice &Device() = 0;
    // Ends the page that is being painted and begins the next one. Raises kErrDiskFull.
    virtual void NewPage() = 0;
    // Hands the document on. Raises kErrDiskFull, kErrDeviceUnavailable, kErrPrinter, or what writing the
    // file raises; nothing is printed then, and a file of that name is as it was.
    virtual void Finish() = 0;
    virtual void Cancel() = 0;
    // The printer's name, or the path of the file that is really written.
    virtual QString Destination() const = 0;
};

class Printers {
public:
    virtual ~Printers() = default;
    // The machine's printers as they are now. Asks the print system, which takes a moment.
    virtual QStringList Names() = 0;
    // The system's default printer; empty where there is none.
    virtual QString Default() = 0;
    virtual PrinterState State(const QString &name) = 0;
    // The papers that the printer has; some usual ones for an empty or unknown name.
    virtual QList<QPageSize> Papers(const QString &name) = 0;
    // How near to the edges of the sheet as it is turned the printer can't print, in millimetres; none for a
    // file.
    virtual QMarginsF Unprintable(const SystemPrinter &printer) = 0;

    // The program's printer; at first the system's default with its usual settings. Callers may write to it.
    // Stays valid.
    virtual SystemPrinter &System() = 0;
    // Makes a printer the system's default, where jobs can go to no other. Elsewhere a job names its printer,
    // and this does nothing.
    virtual void SetDefault(const QString &name) = 0;

    // Begins a job with such settings. Raises kErrDeviceUnavailable when the printer has gone, is paused or
    // takes no jobs, or no name is given; what creating the file raises (support/AtomicFile.h).
    virtual std::unique_ptr<PrintJob> Start(const SystemPrinter &printer, const QString &documentName) = 0;
};

// What Start raises for a printer in that state; nothing for one that is ready.
void RequireReady(const QString &name, PrinterState state);

// Makes `device` the default as SetDefault does, and puts the one that was remembered back when it is
// destroyed, whatever happens in between.
class DefaultPrinterFor {
public:
    DefaultPrinterFor(Printers &printers, const QString &device, const QString &remembered);
    ~DefaultPrinterFor();
    DefaultPrinterFor(const DefaultPrinterFor &) = delete;
    DefaultPrinterFor &operator=(const DefaultPrinterFor &) = delete;

private:
    Printers &printers_;
    QString remembered_;
};

} // namespace support
