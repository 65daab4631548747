// Compound files ([MS-CFB], version 3): named streams in sectors of 512 bytes.
#pragma once

#include <array>
#include <QByteArray>
#include <QString>
#include <vector>

namespace compound {

struct Stream {
    QString name; // 1 to 31 characters, without / \ : !
    QByteArray bytes;
};

// The class of what the file holds, 16 bytes as they stand in it.
using ClassId = std::array<unsigned char, 16>;

// The file with these streams in its root, at least one; the same ones give the same bytes. Error 5 for a
// name that is too long or stands twice, 7 "Out of memory" beyond 2^31 bytes.
QByteArray CompoundFile(const std::vector<Stream> &streams, const ClassId &kind);

} // namespace compound
