// Opens files and addresses with the programs that the platform has for them.
#pragma once

#include "support/Desktop.h"

namespace support {

class cOpenFile {
public:
    explicit cOpenFile(Desktop &desktop) : desktop_(desktop) {}
    // False, after telling the user, when nothing opens it.
    bool LaunchFile(const QString &file);

private:
    Desktop &desktop_;
};

} // namespace support
