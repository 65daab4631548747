// The queues of the machine's print system.
#pragma once

#include "support/Printers.h"

namespace support {

// Asks the print system; Gone when it doesn't answer.
PrinterState QueueState(const QString &name);

// A job for `printer.deviceName`, as Printers::Start. Whether the printer is ready has been looked at.
std::unique_ptr<PrintJob> StartQueueJob(const SystemPrinter &printer, const QString &documentName);

} // namespace support
