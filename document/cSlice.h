// One slice while the list of slices is edited.
#pragma once

#include <cstdint>
#include <QString>

namespace document {

struct cSlice {
    QString Key;             // of the tab; empty for a new slice
    std::int16_t iIndex = 0; // index of the surface
    bool bDeleted = false;
    bool bNew = false;
    QString SliceName; // caption of the tab
    friend bool operator==(const cSlice &, const cSlice &) = default;
};

} // namespace document
