#include "tests/support_real/cups/PrivateCups.h"

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

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    if (application.arguments().contains(QLatin1String(cups_test::kHoldServer))) return HoldServer();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
