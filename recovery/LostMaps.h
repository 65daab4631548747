// What former runs of the program have left.
#pragma once

#include "recovery/Folders.h"
#include "recovery/ReadJournal.h"

#include <vector>

namespace recovery {

// A map of a run that ended without closing it. Held: no other program offers it meanwhile.
struct LostMap {
    HeldFolder folder;
    QString path;  // of the map file; empty for a map that was never saved
    QString title; // the file's name, or "Untitled"
    QDateTime time;
    int changes = 0;
    bool damaged = false;
};

// The maps whose journals nobody holds, the latest first. Folders without a journal are swept away.
std::vector<LostMap> FindLostMaps(const QString &root);

// The whole of it. Error 53, 70 or 75 when it can't be read.
KeptMap ReadLostMap(const LostMap &lost);

} // namespace recovery
