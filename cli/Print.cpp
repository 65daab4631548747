// Slices as pages.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "output/print/Printing.h"
#include "output/print/PrnFlow.h"
#include "support/Printers.h"

#include <QFileInfo>

namespace cli {

namespace {

struct PrintOrder {
    print::PageSetup setup;
    output::FilterChoice filter;
    int slice = 1;
    QString to;
};

PrintOrder TakeOrder(QStringList &arguments) {
    PrintOrder order;
    order.to = TakeOption(arguments, QStringLiteral("--to"));
    if (order.to.isEmpty()) throw UsageError(QStringLiteral("--to needs the name of a PDF file"));
    print::PageSetup &setup = order.setup;
    if (TakeSwitch(arguments, QStringLiteral("--all"))) setup.slices = print::Slices::All;
    if (setup.slices == print::Slices::All && arguments.contains(QStringLiteral("--slice")))
        throw UsageError(QStringLiteral("--slice and --all exclude each other"));
    order.slice = TakeSlice(arguments);
    if (TakeSwitch(arguments, QStringLiteral("--landscape"))) setup.Orientation = print::kLandscape;
    setup.FitToPage = TakeSwitch(arguments, QStringLiteral("--fit"));
    setup.Header = TakeOption(arguments, QStringLiteral("--header"));
    setup.Footer = TakeOption(arguments, QStringLiteral("--footer"));
    setup.paper = print::UsualPaper();
    order.filter = TakeFilter(arguments);
    ExpectFiles(arguments, 1);
    return order;
}

} // namespace

int Print(QStringList arguments, QTextStream &out) {
    const PrintOrder order = TakeOrder(arguments);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    SliceOf(window, order.slice);
    ShowOnly(window, order.filter, out);
    support::Printers &printers = window.Desktop().printers;
    printers.System().outputFile = QFileInfo(order.to).absoluteFilePath();
    printers.System().replaceFile = true;
    print::PrnFlow flow;
    static_cast<print::PageSetup &>(flow) = order.setup;
    flow.DocumentName = QFileInfo(arguments[0]).completeBaseName();
    flow.SetSource(
        [&](const print::PageSetup &setup) { return print::CopyMap(window, setup, order.slice - 1); });
    print::Printed printed;
    flow.OnPrint([&] { printed = print::PrintPages(flow, printers, [](int, int) { return true; }); });
    flow.Run();
    out << print::TextOf(printed) << "\n";
    return kGood;
}

} // namespace cli
