// The library of CUPS, loaded when something is printed for the first time: it brings a dozen others along,
// which a start of the program would otherwise wait for. The names are the library's own.
#pragma once

#include <cups/cups.h>

namespace support {

struct CupsLibrary {
    decltype(&::cupsAddOption) cupsAddOption;
    decltype(&::cupsCancelJob2) cupsCancelJob2;
    decltype(&::cupsCreateJob) cupsCreateJob;
    decltype(&::cupsFinishDocument) cupsFinishDocument;
    decltype(&::cupsFreeDests) cupsFreeDests;
    decltype(&::cupsFreeOptions) cupsFreeOptions;
    decltype(&::cupsGetNamedDest) cupsGetNamedDest;
    decltype(&::cupsGetOption) cupsGetOption;
    decltype(&::cupsLastError) cupsLastError;
    decltype(&::cupsLastErrorString) cupsLastErrorString;
    decltype(&::cupsStartDocument) cupsStartDocument;
    decltype(&::cupsWriteRequestData) cupsWriteRequestData;
};

// Raises kErrPrinter where the library is missing or lacks one of these.
const CupsLibrary &Cups();

} // namespace support
