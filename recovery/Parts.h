// What the records of a journal hold, as values, and their bytes.
#pragma once

#include "diagram/format/Content.h"
#include "diagram/format/ValueReader.h"
#include "diagram/format/ValueWriter.h"
#include "recovery/MapFrame.h"

#include <QDateTime>
#include <QHash>

namespace recovery {

// What has changed of one slice. Items that are there already are replaced.
struct SlicePart {
    SliceId slice = 0;
    bool whole = false; // replaces all that earlier parts say of the slice
    std::optional<diagram::SurfaceData> surface;
    std::vector<diagram::StoredNode> nodes;
    std::vector<diagram::StoredLink> links;
    std::vector<diagram::ItemId> gone;

    bool IsEmpty() const { return !whole && !surface && nodes.empty() && links.empty() && gone.empty(); }
};

// Ends a step: the parts written before it belong together.
struct Commit {
    QDateTime time;
    int changes = 0; // edits since the map was last like its file
    std::optional<MapFrame> frame;
};

// What one gathering gives: at first the whole map, later what has changed since the step before.
struct Step {
    bool first = false;
    std::vector<SlicePart> parts;
    Commit commit;
};

// By the key of an attachment: the name of the copy of its file, in the folder of the journal.
using FileNames = QHash<QString, QString>;

// Fonts and pictures stand in the first part that needs them; later ones refer to them. One writer writes all
// parts of a file, one reader reads them in that order.
class PartWriter {
public:
    QByteArray Write(const SlicePart &part);

private:
    diagram::ValueWriter values_;
};

class PartReader {
public:
    PartReader() { values_.SetForgiving(true); }
    // Error 321 "Invalid file format".
    SlicePart Read(QByteArrayView content);

private:
    diagram::ValueReader values_;
};

QByteArray Bytes(const Commit &commit);
QByteArray Bytes(const FileNames &files);
// Error 321.
Commit ReadCommit(QByteArrayView content);
FileNames ReadFileNames(QByteArrayView content);

} // namespace recovery
