// A Jet file that is open for reading.
#pragma once

#include "storage/jet/Library.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace storage::jet {

// A row as the file holds it: the bytes of each column, none for Null. A boolean has (empty) bytes when it is
// true.
using RawRow = std::vector<std::optional<QByteArray>>;

// Whether damage ends the reading, or only costs what is damaged.
enum class Reading { Whole, WhatCanBeRead };

struct FreeTable {
    void operator()(MdbTableDef *table) const { mdb_free_tabledef(table); }
};

class JetFile;

// The definition of one table.
class JetTable {
public:
    // `page` is where the definition starts. Damaged when it cannot be read.
    JetTable(JetFile &file, const QString &name, std::uint32_t page);

    const QString &Name() const { return name_; }
    std::uint32_t Page() const { return static_cast<std::uint32_t>(entry_->table_pg); }
    const std::vector<const MdbColumn *> &Columns() const { return columns_; }
    // The position of a column, or -1.
    int Find(const char *column) const;
    // Gives every row to `take`, in the order of the pages. Damaged when a row cannot be read, or when there
    // are fewer or more of them than the definition says.
    void ForEachRow(const std::function<void(const RawRow &)> &take);
    // Gives every row that can be read, of all pages that say that they are the table's. The number of those
    // that could not be read, as far as the file tells it.
    int ForEachReadableRow(const std::function<void(const RawRow &)> &take);

private:
    void TakePage(const std::function<void(const RawRow &)> &take);
    int TakeReadable(const std::function<void(const RawRow &)> &take);
    void TakeRow(int row, const std::function<void(const RawRow &)> &take);
    RawRow Crack(int start, int size);
    RawRow Follow(std::uint32_t pointer);

    JetFile &file_;
    QString name_;
    std::unique_ptr<MdbCatalogEntry> entry_;
    std::unique_ptr<MdbTableDef, FreeTable> table_;
    std::vector<const MdbColumn *> columns_;
    std::uint32_t taken_ = 0;
};

class JetFile {
public:
    // NotRecognised for anything but Jet 3 and 4; Damaged when the file does not consist of whole pages and
    // is to be read whole.
    explicit JetFile(const QString &path, Reading reading = Reading::Whole);

    MdbHandle *Handle() const { return handle_.get(); }
    bool IsJet3() const;
    std::uint32_t Pages() const { return pages_; }
    // Names and pages of the tables that a user made.
    std::vector<JetTable> UserTables();
    // Those that can be read; `lost` gets the names of the others, as far as they have any.
    std::vector<JetTable> ReadableTables(QStringList &lost);
    // The bytes of a memo or a long binary value, from the bytes that its row holds. All long values together
    // cannot be longer than the file: one that is shared or runs in a circle is Damaged.
    QByteArray LongValue(const QByteArray &inRow);
    QString Text(const QByteArray &bytes) const;

private:
    struct Close {
        void operator()(MdbHandle *handle) const { mdb_close(handle); }
    };
    using NamedPage = std::pair<QString, std::uint32_t>;
    std::optional<NamedPage> UserTableOf(const JetTable &catalog, const RawRow &row) const;
    QByteArray LongPiece(std::uint32_t pointer);
    QByteArray LongChain(std::uint32_t pointer, qint64 length);

    std::unique_ptr<MdbHandle, Close> handle_;
    std::int64_t longBytesLeft_ = 0;
    std::uint32_t pages_ = 0;
};

} // namespace storage::jet
