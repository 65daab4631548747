#include "output/print/Printing.h"

#include "output/print/PrnFlow.h"
#include "support/Error.h"
#include "support/Printers.h"

#include <QCoreApplication>
#include <QDir>

namespace print {

namespace {

QString Tr(const char *text) { return QCoreApplication::translate("Printing", text); }

// The positions of the sheets, from 0.
std::vector<int> OrderOf(const support::SystemPrinter &printer, int pages) {
    std::vector<int> order = support::PagesToPrint(printer, pages);
    for (int &number : order) --number;
    if (order.empty())
        throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("Print"),
                             Tr("There is nothing to print: the pages that were asked for aren't there."));
    return order;
}

} // namespace

void GiveSetup(const PageSetup &setup, support::SystemPrinter &printer) {
    printer.orientation = support::PaperOrientation(setup.Orientation);
    printer.paper =
        QPageSize(PaperSize(setup.paper), QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch);
}

void TakeSetup(const support::SystemPrinter &printer, PageSetup &setup) {
    setup.Orientation = int(printer.orientation);
    const QSizeF size = printer.paper.size(QPageSize::Millimeter);
    constexpr double kNear = 2; // millimetres
    const auto isNear = [](double a, double b) { return std::abs(a - b) < kNear; };
    for (const QString &key : PaperKeys()) {
        const QSizeF paper = PaperSize(key);
        if (isNear(paper.width(), size.width()) && isNear(paper.height(), size.height())) setup.paper = key;
    }
}

Printed PrintPages(PrnFlow &flow, support::Printers &printers, const GoOn &goOn) {
    support::SystemPrinter printer = printers.System();
    GiveSetup(flow, printer);
    const std::vector<int> order = OrderOf(printer, flow.Pages());
    const std::unique_ptr<support::PrintJob> job = printers.Start(printer, flow.DocumentName);
    Printed printed;
    printed.toFile = printer.ToFile();
    printed.destination = job->Destination();
    PrintSlices slices(flow.Map(), flow, flow.TheSheets());
    printed.pages = slices.PaintAll(
        job->Device(), order, [&] { job->NewPage(); },
        [&](int done) { return goOn(done, int(order.size())); });
    printed.givenUp = printed.pages < int(order.size());
    printed.givenUp ? job->Cancel() : job->Finish();
    return printed;
}

QString TextOf(const Printed &printed) {
    if (printed.givenUp) return Tr("Printing was given up. Nothing was printed.");
    const QString where = printed.toFile ? QDir::toNativeSeparators(printed.destination)
                                         : Tr("the printer %1").arg(printed.destination);
    return printed.pages == 1 ? Tr("1 page went to %1.").arg(where)
                              : Tr("%1 pages went to %2.").arg(printed.pages).arg(where);
}

} // namespace print
