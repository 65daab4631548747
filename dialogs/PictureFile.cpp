#include "dialogs/PictureFile.h"

#include "diagram/export/PictureKinds.h"
#include "support/Error.h"

#include <algorithm>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeData>
#include <QUrl>

namespace dialogs {

namespace {

constexpr qint64 kLargestPictureFile = qint64(256) << 20; // bytes

template <typename Make>
diagram::Picture PictureOrNone(Make make) {
    try {
        return make();
    } catch (const support::Error &) {
        return {};
    }
}

} // namespace

diagram::Picture PictureIn(const QString &file) {
    const QFileInfo info(file);
    if (!info.isFile() || info.size() > kLargestPictureFile) return {};
    return PictureOrNone([&] { return diagram::Picture::FromFile(file); });
}

bool IsNamedLikeAPicture(const QString &file) {
    const QByteArray ending = QFileInfo(file).suffix().toLower().toLatin1();
    return QImageReader::supportedImageFormats().contains(ending) || ending == "wmf" || ending == "emf";
}

QString FileIn(const QMimeData &data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

bool MayHoldPicture(const QMimeData &data) {
    return !FileIn(data).isEmpty() || data.hasImage() ||
           std::any_of(std::begin(diagram::kPictureTypes), std::end(diagram::kPictureTypes),
                       [&](const char *type) { return data.hasFormat(QLatin1String(type)); });
}

diagram::Picture PictureIn(const QMimeData &data) {
    const QString file = FileIn(data);
    if (!file.isEmpty()) return PictureIn(file);
    for (const char *type : diagram::kPictureTypes) {
        const QByteArray bytes = data.data(QLatin1String(type));
        if (diagram::Picture::IsPicture(bytes)) return diagram::Picture::FromBytes(bytes);
    }
    return PictureOrNone(
        [&] { return diagram::Picture::FromImage(qvariant_cast<QImage>(data.imageData())); });
}

} // namespace dialogs
