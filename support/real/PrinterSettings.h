// The settings of the program's printer to a QPrinter and back.
#pragma once

class QPrinter;

namespace support {

struct SystemPrinter;

void SetUpPrinter(QPrinter &device, const SystemPrinter &printer);
// Takes what the print dialog left in `device`, except the paper. `printer.documentName` stays.
void ReadBack(QPrinter &device, SystemPrinter &printer);

} // namespace support
