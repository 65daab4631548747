// What a user calls a file.
#pragma once

#include <QString>

namespace support {

// The name of the file without folder and ending. A point at the very front begins no ending.
QString FileStem(const QString &path);

} // namespace support
