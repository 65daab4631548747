// Reading a journal back.
#pragma once

#include "recovery/Parts.h"

#include <map>

namespace recovery {

struct KeptSlice {
    diagram::SurfaceData surface;
    std::map<diagram::ItemId, diagram::NodeData> nodes;
    std::map<diagram::ItemId, diagram::LinkData> links;
};

struct KeptMap {
    bool readable = false; // the file is a journal of a version that this program reads
    bool begun = false;    // at least one step is complete
    bool damaged = false;  // something couldn't be read
    QDateTime time;        // of the last edit that was kept
    int changes = 0;
    MapFrame frame;
    std::map<SliceId, KeptSlice> slices;
    FileNames files;
};

// Puts together what all sound records of the journal's bytes say.
KeptMap ReadJournal(QByteArrayView bytes);

// The content of the first record: the version of the format.
QByteArray HeadContent();

} // namespace recovery
