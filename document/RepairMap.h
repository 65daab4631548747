// Makes a sound map of what can be read of a damaged one.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

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

// Reads all that can be read of the map `source`, of whatever form, and writes it into the new map `target`,
// which a load takes without an error. A number out of range becomes the nearest that is allowed; a cell that
// should hold a number and doesn't gets the usual value; what is no picture is left out. A slice of its own,
// behind the others, takes what refers to something that is missing: nodes of no slice; links to unknown
// nodes and points of no link, between nodes that stand in for the missing ones; attachments and hyperlinks
// of unknown nodes, at such a node. The file `source` stays as it is. Errors are those of
// storage::SalvageDatabase; 3204 when `target` exists.
RepairReport RepairMap(const QString &source, const QString &target);

// Removes what killed repairs have left in the temporary folder.
void SweepRepairFolders();

} // namespace document
