#include "support/FileFilter.h"

namespace support {

std::vector<FileFilterRow> ParseFileFilter(const QString &filter) {
    std::vector<FileFilterRow> rows;
    if (filter.isEmpty()) return rows;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i < parts.size(); i += 2)
        rows.push_back({parts[i], parts.value(i + 1).split(u';', Qt::SkipEmptyParts)});
    return rows;
}

QString QtNameFilter(const FileFilterRow &row) {
    QStringList patterns;
    for (const QString &pattern : row.patterns)
        patterns.append(pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : pattern.trimmed());
    return QStringLiteral("%1 (%2)").arg(row.title, patterns.join(u' '));
}

QString DefaultSuffix(const QString &defaultExtension) {
    return defaultExtension.mid(defaultExtension.lastIndexOf(u'.') + 1);
}

QString SuffixOf(const FileFilterRow &row, const QString &defaultExtension) {
    const QString pattern = row.patterns.value(0).trimmed();
    const QString ending = DefaultSuffix(pattern);
    const bool namesOne = pattern.startsWith(QLatin1String("*.")) && !ending.contains(u'*') &&
                          !ending.contains(u'?') && !ending.isEmpty();
    return namesOne ? ending : DefaultSuffix(defaultExtension);
}

} // namespace support
