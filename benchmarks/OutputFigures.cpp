#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "benchmarks/Scratch.h"
#include "document/DoSave.h"
#include "document/MemoryWindow.h"
#include "output/csv/ExportMap.h"
#include "output/export/ExportReport.h"
#include "output/powerpoint/CreatePowerpoint.h"
#include "output/print/Printing.h"
#include "output/print/PrnFlow.h"
#include "support/AtomicFile.h"
#include "support/Printers.h"

#include <algorithm>
#include <ctime>
#include <memory>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>

namespace bench {

namespace {

constexpr double kBound = 10; // seconds
constexpr int kSlices = 200;
constexpr int kNodes = 50; // a slice; with 1.3 links a node
constexpr int kRuns = 3;

// A saved map.
std::unique_ptr<document::MemoryWindow> ManySlices() {
    auto window = std::make_unique<document::MemoryWindow>(support::CurrentDesktop());
    window->TabStrip().SetTabCount(kSlices);
    for (int slice = 0; slice < kSlices; ++slice) {
        window->TabStrip().SetTheTab(slice);
        window->TabStrip().SetCaption(QStringLiteral("Slice %1").arg(slice + 1));
        diagram::Surface &surface = slice == 0 ? window->AddFlow1()[0] : window->AddFlow1().Load(slice);
        FillSample(surface, kNodes);
        surface.Nodes().Item(1).SetText(window->TabStrip().Caption()); // no two pictures are the same
    }
    window->clsSettings().SetDatabase(ScratchFolder() + QStringLiteral("/slices.map"));
    document::DoSave(*window);
    RemoveSafetyCopies();
    return window;
}

void Report(document::MemoryWindow &window, const QString &file, bool html) {
    output::NoProgress progress;
    output::ExportReport(window, window.AddFlow1()[0], file, {true, true, true, true, html}, progress);
}

void RichText(document::MemoryWindow &window, const QString &folder) {
    Report(window, folder + QStringLiteral("/a.rtf"), false);
}

void Pages(document::MemoryWindow &window, const QString &folder) {
    Report(window, folder + QStringLiteral("/a.htm"), true);
}

void Slides(document::MemoryWindow &window, const QString &file, bool asShapes) {
    powerpoint::WritePowerpoint(file, output::ReadMap(window), {powerpoint::kLayoutTitle, false, asShapes});
}

void Pictures(document::MemoryWindow &window, const QString &folder) {
    Slides(window, folder + QStringLiteral("/a.pptx"), false);
}

void Shapes(document::MemoryWindow &window, const QString &folder) {
    Slides(window, folder + QStringLiteral("/a.pptx"), true);
}

void BinarySlides(document::MemoryWindow &window, const QString &folder) {
    Slides(window, folder + QStringLiteral("/a.ppt"), false);
}

void Tables(document::MemoryWindow &window, const QString &folder) {
    for (int slice = 0; slice < kSlices; ++slice)
        output::ExportMap(window, window.AddFlow1()[slice], folder + QStringLiteral("/%1.csv").arg(slice));
}

void Print(document::MemoryWindow &window, const QString &folder) {
    support::SystemPrinter &printer = window.Desktop().printers.System();
    printer.outputFile = folder + QStringLiteral("/a.pdf");
    printer.replaceFile = true;
    print::PrnFlow flow;
    flow.slices = print::Slices::All;
    flow.SetSource([&](const print::PageSetup &setup) { return print::CopyMap(window, setup, 0); });
    flow.OnPrint([&] { print::PrintPages(flow, window.Desktop().printers, [](int, int) { return true; }); });
    flow.Run();
}

struct Form {
    const char *name;
    void (*write)(document::MemoryWindow &window, const QString &folder);
};
constexpr Form kForms[] = {
    {"a report as rich text", RichText},
    {"a report as pages", Pages},
    {"a presentation, pictures", Pictures},
    {"a presentation, shapes", Shapes},
    {"a presentation in binary", BinarySlides},
    {"text files of columns", Tables},
    {"print to PDF", Print},
};

QString NewFolder() {
    static int number = 0;
    const QString folder = ScratchFolder() + QStringLiteral("/out%1").arg(++number);
    QDir().mkpath(folder);
    return folder;
}

double SecondsOf(const QElapsedTimer &timer) { return double(timer.nsecsElapsed()) / 1e9; }

struct Plain {
    double seconds = 0, bytes = 0;
    qsizetype files = 0;
};

// Writes the files of the folder once more, each straight to its place, and flushes them one by one.
Plain WritePlainly(const QString &folder) {
    std::vector<QByteArray> contents;
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        contents.push_back(support::ReadWholeFile(QDir(folder).filePath(name)));
    const QDir target(NewFolder());
    Plain plain;
    QElapsedTimer timer;
    timer.start();
    for (const QByteArray &content : contents) {
        const QString path = target.filePath(QString::number(++plain.files));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly)) plain.bytes += double(file.write(content));
        file.close();
        support::FlushToDisk(path);
    }
    plain.seconds = SecondsOf(timer);
    return plain;
}

Figure Measure(document::MemoryWindow &window, const Form &form) {
    double best = 0, processor = 0;
    Plain plain;
    for (int run = 0; run < kRuns; ++run) {
        const QString folder = NewFolder();
        const std::clock_t before = std::clock();
        QElapsedTimer timer;
        timer.start();
        form.write(window, folder);
        const double seconds = SecondsOf(timer);
        if (run == 0 || seconds < best) {
            best = seconds;
            processor = double(std::clock() - before) / CLOCKS_PER_SEC;
        }
        const Plain again = WritePlainly(folder);
        if (run == 0 || again.seconds < plain.seconds) plain = again;
    }
    return {QStringLiteral("%1 slices: %2").arg(kSlices).arg(QLatin1String(form.name)), best,
            QStringLiteral("s"), kBound,
            QStringLiteral("%1 s of the processor; %2 s for the same %3 files of %4 MB, written plainly")
                .arg(processor, 0, 'f', 2)
                .arg(plain.seconds, 0, 'f', 3)
                .arg(plain.files)
                .arg(plain.bytes / 1e6, 0, 'f', 1)};
}

} // namespace

Figures OutputFigures() {
    const std::unique_ptr<document::MemoryWindow> window = ManySlices();
    Figures figures;
    for (const Form &form : kForms) figures.push_back(Measure(*window, form));
    return figures;
}

} // namespace bench
