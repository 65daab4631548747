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
    bool begun = false;    // a whole map stands in it
    bool damaged = false;  // something of it couldn't be read
    QDateTime time;        // of the last edit that was kept
    int changes = 0;
    MapFrame frame;
    std::map<SliceId, KeptSlice> slices;
    FileNames files;
};

// What the bytes of a journal tell: every sound record, in order, up to the last one.
KeptMap ReadJournal(QByteArrayView bytes);

// The version of the form, as the first record holds it.
QByteArray HeadContent();

} // namespace recovery
