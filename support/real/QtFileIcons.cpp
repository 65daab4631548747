#include "support/real/QtFileIcons.h"

#include <QApplication>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QIcon>
#include <QStyle>

namespace support {

QIcon QtFileIcons::AssociatedIcon(const QString &path) {
    const QIcon icon = QFileIconProvider().icon(QFileInfo(path));
    return icon.isNull() ? QApplication::style()->standardIcon(QStyle::SP_FileIcon) : icon;
}

} // namespace support
