#include "diagram/export/PictureKinds.h"

#include <algorithm>

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

std::vector<const PictureKind *> OfferedPictures() {
    std::vector<const PictureKind *> offered;
    for (const PictureKind &kind : kPictureKinds)
        if (kind.place > 0) offered.push_back(&kind);
    std::ranges::sort(offered, {}, [](const PictureKind *kind) { return kind->place; });
    return offered;
}

} // namespace diagram
