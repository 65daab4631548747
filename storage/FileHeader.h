// The header of files in the program's own form, which is SQLite's ("Database File Format" of its
// documentation, 1.3). Numbers are big-endian.
#pragma once

#include <QByteArray>

namespace storage::header {

constexpr int kSize = 100; // bytes
inline const QByteArray kMark("SQLite format 3\0", 16);

// Where the fields stand. Of two bytes:
constexpr int kPageSizeAt = 16; // 1 stands for 65536
// Six single bytes: the versions for writing and reading, bytes kept free on each page, three payload shares.
constexpr int kVersionsAt = 18;
// Of four bytes:
constexpr int kChangesAt = 24; // how often the file was changed
constexpr int kPagesAt = 28;   // holds while kPagesValidForAt is the same as kChangesAt
constexpr int kFirstFreePageAt = 32;
constexpr int kFreePagesAt = 36;    // how many
constexpr int kSchemaFormatAt = 44; // 1 to 4
constexpr int kLargestRootAt = 52;  // 0 unless the file is vacuumed by itself
constexpr int kEncodingAt = 56;     // 1 to 3
constexpr int kIncrementalAt = 64;  // 0 unless the file is vacuumed step by step
constexpr int kPagesValidForAt = 92;

quint32 Number(const QByteArray &header, int at);
// The page size in bytes; 0 for one that cannot be.
qint64 PageSize(const QByteArray &header);

// What follows a file's name in those of its journals: of a change that is undone when it isn't finished, and
// of changes that are not in the file yet.
inline constexpr const char *kJournalEndings[] = {"-journal", "-wal"};

} // namespace storage::header
