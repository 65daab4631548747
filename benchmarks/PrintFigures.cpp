#include "benchmarks/BenchWindow.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Parts.h"
#include "benchmarks/Sample.h"
#include "output/print/form/frmPrint.h"
#include "output/print/form/PreviewSheets.h"

#include <algorithm>
#include <QApplication>

namespace bench {

namespace {

constexpr double kBound = 300; // milliseconds
constexpr int kNodes = 10000;
constexpr int kRuns = 5;

struct Opened {
    double milliseconds = 0;
    int pages = 0;
};

// The surface is copied, laid out on pages, and the first of them painted.
Opened OpenPreview(mainwindow::frmMain &window, bool fit) {
    std::shared_ptr<print::LoadedPrint> loaded;
    std::unique_ptr<print::frmPrint> form;
    const double time = TimeOf([&] {
        loaded = std::make_shared<print::LoadedPrint>(window.Desktop());
        print::PrnFlow &flow = loaded->PrnFlow1;
        flow.FitToPage = fit;
        flow.SetSource([&window](const print::PageSetup &setup) { return print::CopyMap(window, setup, 0); });
        flow.Preview = true;
        form = std::make_unique<print::frmPrint>(print::PrintPreviewArgument{
            window.Desktop(), loaded, [](const QString &) { return QIcon(); }, {}});
        form->show();
        flow.Run();
        while (!form->Sheets().IsPainted(0)) QApplication::processEvents();
    });
    return {time, loaded->PrnFlow1.Pages()};
}

Figure Opening(const char *name, mainwindow::frmMain &window, bool fit) {
    Opened worst;
    for (int run = 0; run < kRuns; ++run) {
        const Opened opened = OpenPreview(window, fit);
        worst = {std::max(worst.milliseconds, opened.milliseconds), opened.pages};
    }
    return {QString::fromLatin1(name), worst.milliseconds, QStringLiteral("ms"), kBound,
            QStringLiteral("worst of %1, of %2 pages").arg(kRuns).arg(worst.pages)};
}

} // namespace

Figures PrintFigures() {
    BenchWindow window;
    FillSample(window.Form().CurrentSurface(), kNodes);
    return {Opening("first page of the preview, 10,000 nodes on one page", window.Form(), true),
            Opening("first page of the preview, 10,000 nodes on many pages", window.Form(), false)};
}

} // namespace bench
