#include "storage/jet/Page.h"

#include "storage/jet/Failure.h"

#include <QtEndian>

namespace storage::jet {

namespace {

constexpr int kOffsetMask = 0x1FFF;
constexpr int kPointerSize = 4;
constexpr int kRowBits = 8;
constexpr std::uint32_t kRowMask = 0xFF;

int ListStart(const MdbHandle *handle) { return handle->fmt->row_count_offset + 2; }

int Number16(const MdbHandle *handle, int at) { return qFromLittleEndian<quint16>(handle->pg_buf + at); }

} // namespace

int RowsOnPage(const MdbHandle *handle) {
    const int rows = Number16(handle, handle->fmt->row_count_offset);
    if (ListStart(handle) + rows * 2 > handle->fmt->pg_size)
        throw Damaged("a page has more rows than there is room for");
    return rows;
}

// Rows fill a page from its end. A deleted row may have given up its place: its offset is then the page's
// end.
Place FindPlace(const MdbHandle *handle, int row) {
    const int pageSize = static_cast<int>(handle->fmt->pg_size);
    const int word = Number16(handle, ListStart(handle) + row * 2);
    int end = pageSize;
    for (int before = row - 1; before >= 0 && end == pageSize; --before) {
        const int offset = Number16(handle, ListStart(handle) + before * 2) & kOffsetMask;
        if (offset < pageSize) end = offset;
    }
    const int start = word & kOffsetMask;
    return {start, end - start, word & ~kOffsetMask};
}

void CheckPlace(const MdbHandle *handle, const Place &place) {
    if (place.start < ListStart(handle) + RowsOnPage(handle) * 2 || place.size <= 0)
        throw Damaged("a row is not on its page");
}

std::uint32_t PointerAt(const MdbHandle *handle, const Place &place) {
    CheckPlace(handle, place);
    if (place.size < kPointerSize) throw Damaged("a row that has moved is not there");
    return qFromLittleEndian<quint32>(handle->pg_buf + place.start);
}

OtherPage::OtherPage(MdbHandle *handle, std::uint32_t pointer)
    : handle_(handle), row_(static_cast<int>(pointer & kRowMask)) {
    if (mdb_read_alt_pg(handle, pointer >> kRowBits) != handle->fmt->pg_size)
        throw Damaged("a page is not there");
    mdb_swap_pgbuf(handle);
}

Place OtherPage::Row() const {
    if (row_ >= RowsOnPage(handle_)) throw Damaged("a page has no such row");
    return FindPlace(handle_, row_);
}

} // namespace storage::jet
