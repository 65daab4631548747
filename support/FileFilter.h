// The filter texts of the file dialogs: rows of a title and a pattern, all joined by "|".
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace support {

struct FileFilterRow {
    QString title;
    QStringList patterns; // empty for a last row that lacks its pattern
};

// The rows of "Title|*.a;*.b|Title|*.c". A title at the end that lacks its pattern is a row without patterns.
std::vector<FileFilterRow> ParseFileFilter(const QString &filter);
// The row as Qt's dialogs write it: "Title (*.a *.b)".
QString QtNameFilter(const FileFilterRow &row);
// The ending for names typed without one, without a point: "map" for "map", ".map" and "*.map".
QString DefaultSuffix(const QString &defaultExtension);
// The same while a row is selected: the ending of the row's first pattern, where that names one.
QString SuffixOf(const FileFilterRow &row, const QString &defaultExtension);

} // namespace support
