// The readers of records. What a record does stands in tables, each with one group of records.
#pragma once

#include <cstdint>
#include <QByteArrayView>
#include <span>

namespace vector {

class MetafileCanvas;
class RecordFields;

// From the first record behind the header up to the end's, to damage, or to the end of the canvas's budget.
void PlayWmf(MetafileCanvas &canvas, QByteArrayView records);
void PlayEmf(MetafileCanvas &canvas, QByteArrayView records);

// What one kind of record does. The fields begin behind the head of a WMF's record, but with that of an
// EMF's, whose records count from there.
struct RecordRow {
    std::uint32_t type;
    void (*play)(MetafileCanvas &canvas, RecordFields &fields, std::uint32_t type);
};

std::span<const RecordRow> WmfObjectRows();
std::span<const RecordRow> WmfContentRows(); // texts and bitmaps
std::span<const RecordRow> EmfObjectRows();
std::span<const RecordRow> EmfContentRows();

} // namespace vector
