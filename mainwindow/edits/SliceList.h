// The list of slices while it is edited, apart from the form that shows it.
#pragma once

#include "document/cSlice.h"

#include <vector>

namespace mainwindow {

class SliceList {
public:
    explicit SliceList(const std::vector<document::cSlice> &slices);

    int Count() const { return int(rows_.size()); }
    QString Name(int row) const { return rows_[std::size_t(row)].SliceName; }
    // A new slice behind the last; gives its row.
    int Add(const QString &name);
    void Rename(int row, const QString &name);
    // False, with nothing done, for the only row.
    bool Remove(int row);
    // Moves the row by one place up (-1) or down (1); gives where it then is.
    int Move(int row, int by);

    // The slices removed, marked as deleted, then the rows in their order, numbered from 0; a row without a
    // key is marked as new.
    std::vector<document::cSlice> Slices() const;

private:
    std::vector<document::cSlice> rows_;
    std::vector<document::cSlice> removed_;
};

} // namespace mainwindow
