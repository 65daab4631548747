// Failures of files as errors.
#pragma once

#include "support/Platform.h"

namespace support {

// 53 "File not found", 61 "Disk full", 70 "Permission denied", 75 "Path/File access error", 76 "Path not
// found", each with the path behind it.
[[noreturn]] void Raise(platform::Failure failure, const char *routine, const QString &path);
void RaiseIfFailed(platform::Failure failure, const char *routine, const QString &path);

} // namespace support
