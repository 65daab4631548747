#include "diagram/export/PictureKinds.h"

namespace diagram {

const PictureKind *KindOfFile(const QString &path) {
    for (const PictureKind &kind : kPictureKinds)
        if (path.endsWith(u'.' + QLatin1String(kind.ending), Qt::CaseInsensitive)) return &kind;
    return nullptr;
}

QStringList PictureEndings() {
    QStringList endings;
    for (const PictureKind &kind : kPictureKinds) endings << QLatin1String(kind.ending);
    return endings;
}

} // namespace diagram
