// Opens files and addresses with the platform's programs.
#pragma once

#include "support/Desktop.h"

namespace support {

class QtLauncher : public Launcher {
public:
    bool OpenFile(const QString &path) override;
    bool OpenAddress(const QString &url) override;
};

// Whether OpenAddress takes the text: a valid http, https or mailto address.
bool IsAddress(const QString &url);

} // namespace support
