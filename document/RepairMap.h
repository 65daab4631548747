// A map out of what can be read of a damaged one.
#pragma once

#include <QString>
#include <QStringList>

namespace document {

// One thing that is wrong with a map, and what a repair makes of it.
struct Repair {
    QString where;  // table, key and column
    QString wrong;  // what is wrong, with the value
    QString remedy; // what stands there instead
};

struct RepairReport {
    QStringList lost; // what cannot be read at all
    std::vector<Repair> repairs;
    bool IsClean() const { return lost.isEmpty() && repairs.empty(); }
};

// "where: wrong", and with the remedy "where: wrong; remedy".
QString FindingText(const Repair &repair);
QString RepairText(const Repair &repair);

// Reads all that can be read of the map `source`, of whatever form, and writes it into the new map `target`:
// a load takes that without an error. Numbers out of range become the nearest that is allowed, what is none
// the usual value, pictures that are none are left out. What hangs loose stands on a slice of its own behind
// the others: nodes of no slice, links to unknown nodes and points of no link, between nodes that stand for
// those that are missing, attachments and hyperlinks of unknown nodes at such a node. The file `source` stays
// as it is. Errors are those of storage::SalvageDatabase; 3204 when `target` exists.
RepairReport RepairMap(const QString &source, const QString &target);

// Removes what repairs that were killed left in the temporary folder.
void SweepRepairFolders();

} // namespace document
