#include "support/real/QtLauncher.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace support {

bool QtLauncher::OpenFile(const QString &path) {
    const QFileInfo file(path);
    return !path.isEmpty() && file.exists() &&
           QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

bool QtLauncher::OpenAddress(const QString &url) {
    return IsAddress(url) && QDesktopServices::openUrl(QUrl(url));
}

bool IsAddress(const QString &url) {
    static const QStringList schemes{QStringLiteral("http"), QStringLiteral("https"),
                                     QStringLiteral("mailto")};
    const QUrl address(url);
    return address.isValid() && schemes.contains(address.scheme());
}

} // namespace support
