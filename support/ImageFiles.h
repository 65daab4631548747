// Pictures as files, of the kinds that every program shows.
#pragma once

#include <QByteArray>
#include <QImage>

namespace support {

struct ImageKind {
    const char *ending;
    const char *mimeType;
    const char *mark; // with which each file of that kind begins
};
inline constexpr ImageKind kPng{"png", "image/png", "\x89PNG"}, kJpeg{"jpg", "image/jpeg", "\xFF\xD8\xFF"},
    kGif{"gif", "image/gif", "GIF8"};

// By what the bytes begin with; null for those of another kind.
const ImageKind *ImageKindOf(const QByteArray &bytes);

QByteArray PngOf(const QImage &image);

} // namespace support
