// Limits that a program sets for itself before it works on what may be damaged.
#pragma once

#include <QtGlobal>

namespace support {

// Ends the process when it needs more than `seconds` of processor time, lets it have no more than
// `memoryBytes` of memory, and writes no memory image when it crashes. Where the platform has no such limits
// nothing happens.
void LimitProcess(qint64 memoryBytes, int seconds);

} // namespace support
