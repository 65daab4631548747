#include "support/posix/printing/CupsLibrary.h"

#include "support/Error.h"
#include "support/LateLibrary.h"
#include "support/Printers.h"

#include <QCoreApplication>

namespace support {

namespace {

constexpr int kVersion = 2; // of the library's binary interface

CupsLibrary Load() {
    LateLibrary library(QStringLiteral("cups"), kVersion);
    const auto resolve = [&library](const char *name, auto &function) {
        if (library.Resolve(name, function)) return;
        throw Error(kErrPrinter, QStringLiteral("Printers"),
                    QCoreApplication::translate("Printers", "The print system can't be reached:\n%1")
                        .arg(library.Why()));
    };
    CupsLibrary cups{};
    resolve("cupsAddOption", cups.cupsAddOption);
    resolve("cupsCancelJob2", cups.cupsCancelJob2);
    resolve("cupsCreateJob", cups.cupsCreateJob);
    resolve("cupsFinishDocument", cups.cupsFinishDocument);
    resolve("cupsFreeDests", cups.cupsFreeDests);
    resolve("cupsFreeOptions", cups.cupsFreeOptions);
    resolve("cupsGetNamedDest", cups.cupsGetNamedDest);
    resolve("cupsGetOption", cups.cupsGetOption);
    resolve("cupsLastError", cups.cupsLastError);
    resolve("cupsLastErrorString", cups.cupsLastErrorString);
    resolve("cupsStartDocument", cups.cupsStartDocument);
    resolve("cupsWriteRequestData", cups.cupsWriteRequestData);
    return cups;
}

} // namespace

const CupsLibrary &Cups() {
    static const CupsLibrary cups = Load();
    return cups;
}

} // namespace support
