#include "support/ImageFiles.h"

#include <QBuffer>

namespace support {

const ImageKind *ImageKindOf(const QByteArray &bytes) {
    for (const ImageKind *kind : {&kPng, &kJpeg, &kGif})
        if (bytes.startsWith(kind->mark)) return kind;
    return nullptr;
}

QByteArray PngOf(const QImage &image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, kPng.ending);
    return bytes;
}

} // namespace support
