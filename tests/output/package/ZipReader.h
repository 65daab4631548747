// What a zip file holds.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>
#include <zip.h>

namespace package::testing {

struct ReadEntry {
    QString name;
    QByteArray bytes;
    bool packed;
};

// In the order of the file; none for what is no zip file.
inline std::vector<ReadEntry> ReadZip(const QByteArray &file) {
    std::vector<ReadEntry> entries;
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t *source = zip_source_buffer_create(file.constData(), zip_uint64_t(file.size()), 0, &error);
    zip_t *archive = zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error);
    if (!archive) return zip_source_free(source), entries;
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
        zip_stat_t stat;
        zip_stat_index(archive, zip_uint64_t(i), 0, &stat);
        QByteArray bytes(qsizetype(stat.size), Qt::Uninitialized);
        zip_file_t *content = zip_fopen_index(archive, zip_uint64_t(i), 0);
        if (zip_fread(content, bytes.data(), stat.size) != zip_int64_t(stat.size)) bytes = "unreadable";
        zip_fclose(content);
        entries.push_back({QString::fromUtf8(stat.name), bytes, stat.comp_method != ZIP_CM_STORE});
    }
    zip_discard(archive);
    return entries;
}

} // namespace package::testing
