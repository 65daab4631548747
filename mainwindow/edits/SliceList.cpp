#include "mainwindow/edits/SliceList.h"

#include <utility>

namespace mainwindow {

SliceList::SliceList(const std::vector<document::cSlice> &slices) : rows_(slices) {}

int SliceList::Add(const QString &name) {
    document::cSlice slice;
    slice.SliceName = name;
    rows_.push_back(slice);
    return Count() - 1;
}

void SliceList::Rename(int row, const QString &name) { rows_[std::size_t(row)].SliceName = name; }

bool SliceList::Remove(int row) {
    if (Count() == 1) return false;
    document::cSlice &slice = rows_[std::size_t(row)];
    slice.bDeleted = true;
    removed_.push_back(slice);
    rows_.erase(rows_.begin() + row);
    return true;
}

int SliceList::Move(int row, int by) {
    const int target = row + by;
    if (target < 0 || target >= Count()) return row;
    std::swap(rows_[std::size_t(row)], rows_[std::size_t(target)]);
    return target;
}

std::vector<document::cSlice> SliceList::Slices() const {
    std::vector<document::cSlice> slices = removed_;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        document::cSlice slice = rows_[i];
        slice.iIndex = std::int16_t(i);
        slice.bNew = slice.Key.isEmpty();
        slices.push_back(slice);
    }
    return slices;
}

} // namespace mainwindow
