// Zip files in memory.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace package {

struct ZipEntry {
    QString name; // with slashes
    QByteArray bytes;
    bool packed = true; // false for what is compressed already
};

// The entries in their order. The same entries give the same bytes: each has the first moment that the format
// knows. Error 7 "Out of memory" when there is too little, 5 with the library's words for a name that stands
// twice or anything else.
QByteArray ZipFile(const std::vector<ZipEntry> &entries);

} // namespace package
