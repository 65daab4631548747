#include "tests/support_real/cups/CupsTest.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <QApplication>

namespace {

// For the test that kills it: holds a print server, tells its process and its folder, and waits.
int HoldServer() {
    const cups_test::PrivateCups cups;
    std::printf("%lld %s\n", static_cast<long long>(cups.ProcessId()), qPrintable(cups.Folder()));
    std::fflush(stdout);
    return QApplication::exec();
}

// For scripts/fresh-root.sh: prints one page on a printer of the machine, as the program does.
int PrintAPage(const QString &name) {
    support::RealDesktop real(std::make_unique<support::MemoryRegistryStore>());
    support::SystemPrinter printer = real.Get().printers.System();
    printer.deviceName = name;
    const support::Error raised = tests::ErrorOf([&] {
        cups_test::Painted(real.Get().printers, printer, {QStringLiteral("A page for %1").arg(name)})
            ->Finish();
    });
    if (raised.Number() != 0) std::fprintf(stderr, "%s\n", raised.what());
    return raised.Number() == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    if (application.arguments().contains(QLatin1String(cups_test::kHoldServer))) return HoldServer();
    const qsizetype printer = application.arguments().indexOf(QLatin1String("--print-a-page")) + 1;
    if (printer > 0) return PrintAPage(application.arguments().value(printer));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
