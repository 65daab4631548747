#include "support/posix/printing/CupsLibrary.h"

#include "support/Error.h"
#include "support/Printers.h"

#include <QCoreApplication>
#include <QLibrary>

namespace support {

namespace {

constexpr int kVersion = 2; // of the library's binary interface

template <typename Function>
void Resolve(QLibrary &library, const char *name, Function &function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    if (!function)
        throw Error(kErrPrinter, QStringLiteral("Printers"),
                    QCoreApplication::translate("Printers", "The print system can't be reached:\n%1")
                        .arg(library.errorString()));
}

CupsLibrary Load() {
    QLibrary library(QStringLiteral("cups"), kVersion);
    CupsLibrary cups{};
    Resolve(library, "cupsAddOption", cups.cupsAddOption);
    Resolve(library, "cupsCancelJob2", cups.cupsCancelJob2);
    Resolve(library, "cupsCreateJob", cups.cupsCreateJob);
    Resolve(library, "cupsFinishDocument", cups.cupsFinishDocument);
    Resolve(library, "cupsFreeDests", cups.cupsFreeDests);
    Resolve(library, "cupsFreeOptions", cups.cupsFreeOptions);
    Resolve(library, "cupsGetNamedDest", cups.cupsGetNamedDest);
    Resolve(library, "cupsGetOption", cups.cupsGetOption);
    Resolve(library, "cupsLastError", cups.cupsLastError);
    Resolve(library, "cupsLastErrorString", cups.cupsLastErrorString);
    Resolve(library, "cupsStartDocument", cups.cupsStartDocument);
    Resolve(library, "cupsWriteRequestData", cups.cupsWriteRequestData);
    return cups;
}

} // namespace

const CupsLibrary &Cups() {
    static const CupsLibrary cups = Load();
    return cups;
}

} // namespace support
