// Rows on a data page, as the page's list of offsets places them. All work on the page in the library's first
// buffer.
#pragma once

#include "storage/jet/Library.h"

#include <cstdint>

namespace storage::jet {

// Where a data page names the page of its table's definition, or holds "LVAL": then its rows are long values.
constexpr int kOwnerAt = 4;

// Bits of Place::flags. A deleted row, or the real place of a row that has moved away from where its pointer
// stands:
constexpr int kMovedOrDeleted = 0x8000;
// A pointer to a row that has moved to another page:
constexpr int kIsPointer = 0x4000;

// Where a row stands on its page.
struct Place {
    int start = 0;
    int size = 0;
    int flags = 0;
};

// Damaged when the page has no room for so many.
int RowsOnPage(const MdbHandle *handle);
// `row` is below RowsOnPage. The place of a deleted row may be none.
Place FindPlace(const MdbHandle *handle, int row);
// Damaged when the place is not between the list and the end of the page.
void CheckPlace(const MdbHandle *handle, const Place &place);
// The pointer that stands there: page times 256, plus row. Damaged when it does not fit.
std::uint32_t PointerAt(const MdbHandle *handle, const Place &place);

// Puts the page of a pointer into the library's first buffer for as long as this object lives. Damaged when
// there is no such page.
class OtherPage {
public:
    OtherPage(MdbHandle *handle, std::uint32_t pointer);
    ~OtherPage() { mdb_swap_pgbuf(handle_); }
    OtherPage(const OtherPage &) = delete;
    OtherPage &operator=(const OtherPage &) = delete;

    // The place of the pointer's row; Damaged when the page has no such row.
    Place Row() const;

private:
    MdbHandle *handle_;
    int row_;
};

} // namespace storage::jet
