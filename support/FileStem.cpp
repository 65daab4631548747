#include "support/FileStem.h"

#include "support/Files.h"

namespace support {

QString FileStem(const QString &path) {
    const QString name = FileTitle(path);
    const qsizetype point = name.lastIndexOf(u'.');
    return point > 0 ? name.left(point) : name;
}

} // namespace support
