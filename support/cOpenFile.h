// Opens files, addresses and mails with the programs that the platform has for them. Each gives false, after
// telling the user, when nothing opens it.
#pragma once

#include "support/Desktop.h"

namespace support {

class cOpenFile {
public:
    explicit cOpenFile(Desktop &desktop) : desktop_(desktop) {}
    // Asks nothing first: a program or script is run.
    bool LaunchFile(const QString &file);
    // An address of the web.
    bool LaunchAddress(const QString &url);
    // A new mail in the user's mail program; `copy` may be empty.
    bool OpenEmail(const QString &address, const QString &subject, const QString &copy = QString());

private:
    bool Told(bool opened, const QString &text);

    Desktop &desktop_;
};

} // namespace support
