#include "storage/FileHeader.h"

#include <bit>
#include <QtEndian>

namespace storage {

quint32 header::Number(const QByteArray &header, int at) {
    return qFromBigEndian<quint32>(header.constData() + at);
}

qint64 header::PageSize(const QByteArray &header) {
    constexpr qint64 kLeast = 512, kLargest = 65536; // the largest doesn't fit the field: 1 stands for it
    const qint64 size = qFromBigEndian<quint16>(header.constData() + kPageSizeAt);
    if (size == 1) return kLargest;
    return size >= kLeast && std::has_single_bit(static_cast<quint64>(size)) ? size : 0;
}

} // namespace storage
