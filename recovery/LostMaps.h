// Finds the maps that former runs of the program have left in their journals.
#pragma once

#include "recovery/Folders.h"
#include "recovery/ReadJournal.h"

#include <vector>

namespace recovery {

// A map of a run that ended without closing it. As long as this holds its folder, no other program offers it.
struct LostMap {
    HeldFolder folder;
    QString path;  // of the map file; empty for a map that was never saved
    QString title; // the file's name, or "Untitled"
    QDateTime time;
    int changes = 0;
    bool damaged = false;
};

// The maps whose journals nobody holds, the latest first. Folders without a journal are deleted.
std::vector<LostMap> FindLostMaps(const QString &root);

// Reads the map. Error 53, 70 or 75 when the file can't be read.
KeptMap ReadLostMap(const LostMap &lost);

} // namespace recovery
