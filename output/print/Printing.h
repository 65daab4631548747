// Pages on their way to a printer or into a file.
#pragma once

#include <functional>
#include <QString>

namespace support {
class Printers;
struct SystemPrinter;
} // namespace support

namespace print {

class PrnFlow;
struct PageSetup;

struct Printed {
    int pages = 0; // without copies
    bool givenUp = false;
    bool toFile = false;
    QString destination; // the printer's name or the path of the file
};

// Asked before each page; false gives up.
using GoOn = std::function<bool(int done, int of)>;

// Hands the pages of the control to the program's printer, on paper as the setup has it: the pages that the
// printer's settings choose, in the order that they ask for. A print that was given up leaves nothing. Raises
// what jobs raise (support/Printers.h), and error 5 when none of the pages chosen is there.
Printed PrintPages(PrnFlow &flow, support::Printers &printers, const GoOn &goOn);

// What the user is told after the print.
QString TextOf(const Printed &printed);

// The printer gets the setup's paper and orientation; or the setup those that the user chose for the printer.
void GiveSetup(const PageSetup &setup, support::SystemPrinter &printer);
void TakeSetup(const support::SystemPrinter &printer, PageSetup &setup);

} // namespace print
