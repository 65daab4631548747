// Opens files and addresses with the platform's programs.
#pragma once

#include "support/Desktop.h"

namespace support {

class QtLauncher : public Launcher {
public:
    // False for a file that does not exist, too.
    bool Launch(const QString &fileOrAddress) override;
};

} // namespace support
