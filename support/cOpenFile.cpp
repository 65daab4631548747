#include "support/cOpenFile.h"

#include <QCoreApplication>

namespace support {

bool cOpenFile::LaunchFile(const QString &file) {
    if (desktop_.launcher.Launch(file)) return true;
    desktop_.messageBoxes.Show(
        QStringLiteral("Cannot Launch Program! \r\nCan not find the following file\r\n'%1'").arg(file),
        Buttons::Ok, Icon::Exclamation, QCoreApplication::applicationName());
    return false;
}

} // namespace support
