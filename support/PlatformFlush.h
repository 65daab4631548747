// What bringing many files to the disk at a time needs below Qt's level; one source file per platform.
#pragma once

#include "support/Platform.h"

namespace support::platform {

// Begins to bring the content of a file to the disk without waiting, where the platform knows such: FlushFile
// is soon done then.
void BeginFlush(const QString &path);
// Puts `newFile` in the place of `target` in one step.
Failure Rename(const QString &newFile, const QString &target);
// Waits until the entries of a folder are on the disk, as far as the file system can.
void FlushFolder(const QString &folder);

} // namespace support::platform
