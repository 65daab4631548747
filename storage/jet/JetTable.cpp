#include "storage/jet/Failure.h"
#include "storage/jet/JetFile.h"
#include "storage/jet/Page.h"

#include <algorithm>
#include <cstring>
#include <QtEndian>

namespace storage::jet {

namespace {

constexpr std::int64_t kMostLost = 1 << 30; // that are told: the number stays an int

// Whether the page in the library's first buffer holds rows of the table.
bool BelongsTo(const MdbHandle *handle, const MdbCatalogEntry &entry) {
    return handle->pg_buf[0] == MDB_PAGE_DATA &&
           qFromLittleEndian<quint32>(handle->pg_buf + kOwnerAt) == entry.table_pg;
}

} // namespace

JetTable::JetTable(JetFile &file, const QString &name, std::uint32_t page)
    : file_(file), name_(name), entry_(std::make_unique<MdbCatalogEntry>()) {
    entry_->mdb = file.Handle();
    entry_->object_type = MDB_TABLE;
    entry_->table_pg = page;
    const QByteArray utf8 = name.toUtf8().left(MDB_MAX_OBJ_NAME);
    std::memcpy(entry_->object_name, utf8.constData(), utf8.size());
    table_.reset(mdb_read_table(entry_.get()));
    if (!table_ || table_->num_cols == 0 || table_->num_cols > MDB_MAX_COLS ||
        !mdb_read_columns(table_.get()) || table_->columns->len != table_->num_cols)
        throw Damaged("a table's definition cannot be read");
    for (unsigned i = 0; i < table_->num_cols; ++i)
        columns_.push_back(static_cast<const MdbColumn *>(g_ptr_array_index(table_->columns, i)));
}

int JetTable::Find(const char *column) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (qstricmp(columns_[i]->name, column) == 0) return static_cast<int>(i);
    }
    return -1;
}

// The bytes of the columns of a row on the page in the library's first buffer.
RawRow JetTable::Crack(int start, int size) {
    MdbField fields[MDB_MAX_COLS] = {};
    CheckPlace(file_.Handle(), {start, size});
    if (mdb_crack_row(table_.get(), start, static_cast<size_t>(size), fields) < 0)
        throw Damaged("a row cannot be taken apart");
    const auto *page = reinterpret_cast<const char *>(file_.Handle()->pg_buf);
    RawRow row(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (fields[i].is_null) continue;
        if (columns_[i]->col_type == MDB_BOOL)
            row[i] = QByteArray("");
        else if (fields[i].siz < 0 || fields[i].start < start ||
                 fields[i].start + fields[i].siz > start + size)
            throw Damaged("a value is not in its row");
        else
            row[i] = QByteArray(page + fields[i].start, fields[i].siz);
    }
    return row;
}

RawRow JetTable::Follow(std::uint32_t pointer) {
    constexpr int kMostSteps = 8;
    MdbHandle *handle = file_.Handle();
    for (int step = 0; step < kMostSteps; ++step) {
        const OtherPage page(handle, pointer);
        if (!BelongsTo(handle, *entry_)) throw Damaged("a row that has moved is not where it should be");
        const Place place = page.Row();
        if (!(place.flags & kIsPointer)) return Crack(place.start, place.size);
        pointer = PointerAt(handle, place);
    }
    throw Damaged("a row has moved in a circle");
}

void JetTable::TakeRow(int row, const std::function<void(const RawRow &)> &take) {
    const Place place = FindPlace(file_.Handle(), row);
    if (place.flags & kMovedOrDeleted) return;
    ++taken_;
    take(place.flags & kIsPointer ? Follow(PointerAt(file_.Handle(), place))
                                  : Crack(place.start, place.size));
}

void JetTable::TakePage(const std::function<void(const RawRow &)> &take) {
    const int rows = RowsOnPage(file_.Handle());
    for (int i = 0; i < rows; ++i) {
        TakeRow(i, take);
        if (taken_ > table_->num_rows) throw Damaged("a table has more rows than its definition says");
    }
}

// The rows of the page in the library's first buffer; the number of those that cannot be read.
int JetTable::TakeReadable(const std::function<void(const RawRow &)> &take) {
    int lost = 0;
    try {
        const int rows = RowsOnPage(file_.Handle());
        for (int i = 0; i < rows; ++i) {
            try {
                TakeRow(i, take);
            } catch (const Damaged &) {
                ++lost;
            }
        }
    } catch (const Damaged &) {
        ++lost;
    }
    return lost;
}

// Looks at every page, since the list by which the library finds the pages of a table may be damaged itself.
int JetTable::ForEachReadableRow(const std::function<void(const RawRow &)> &take) {
    MdbHandle *handle = file_.Handle();
    int lost = 0;
    taken_ = 0;
    for (std::uint32_t page = 1; page < file_.Pages(); ++page)
        if (mdb_read_pg(handle, page) == static_cast<ssize_t>(handle->fmt->pg_size) &&
            BelongsTo(handle, *entry_))
            lost += TakeReadable(take);
    const auto missing = static_cast<std::int64_t>(table_->num_rows) - taken_;
    return static_cast<int>(std::clamp<std::int64_t>(missing, lost, kMostLost));
}

void JetTable::ForEachRow(const std::function<void(const RawRow &)> &take) {
    taken_ = 0;
    mdb_rewind_table(table_.get());
    while (mdb_read_next_dpg(table_.get()) > 0) TakePage(take);
    if (taken_ != table_->num_rows) throw Damaged("a table has fewer rows than its definition says");
}

} // namespace storage::jet
