// The program's printer and the toolkit's, each as the other has it.
#pragma once

class QPrinter;

namespace support {

struct SystemPrinter;

void SetUpPrinter(QPrinter &device, const SystemPrinter &printer);
// What the print dialog left, but for the paper. `printer.documentName` stays.
void ReadBack(QPrinter &device, SystemPrinter &printer);

} // namespace support
