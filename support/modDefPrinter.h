// The system's default printer.
#pragma once

#include <QString>

namespace support {

// Makes `device` the default of the system, and tells all windows so, where the platform keeps a default in
// its profile. A device that the system doesn't know is left alone. Nothing happens on other platforms: jobs
// name their printer there, and what others print must not change.
void SetDefaultPrinter(const QString &device);

} // namespace support
