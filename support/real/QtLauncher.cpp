#include "support/real/QtLauncher.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace support {

bool QtLauncher::Launch(const QString &fileOrAddress) {
    if (fileOrAddress.isEmpty()) return false;
    const QFileInfo file(fileOrAddress);
    if (file.exists()) return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
    const QUrl address = QUrl::fromUserInput(fileOrAddress);
    return address.isValid() && !address.isLocalFile() && QDesktopServices::openUrl(address);
}

} // namespace support
