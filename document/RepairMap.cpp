#include "document/RepairMap.h"

#include "document/MapSchema.h"
#include "document/RepairJoins.h"
#include "document/RepairTables.h"
#include "storage/Salvage.h"

#include <algorithm>
#include <QFile>

namespace document {

namespace {

QStringList TableNames() {
    QStringList names;
    for (const TableLayout *table : schema::Tables()) names.append(NameOf(*table));
    for (const TableLayout *table : schema::OptionalTables()) names.append(NameOf(*table));
    return names;
}

// Deletes the new map unless `path` was cleared before.
struct Unfinished {
    explicit Unfinished(const QString &target) : path(target) {}
    ~Unfinished() {
        if (!path.isEmpty()) QFile::remove(path);
    }
    Unfinished(const Unfinished &) = delete;
    Unfinished &operator=(const Unfinished &) = delete;
    QString path;
};

bool LostSlices(const RepairReport &report) {
    const QString start = NameOf(schema::kSlices) + QLatin1Char(',');
    return std::any_of(report.lost.begin(), report.lost.end(),
                       [&](const QString &line) { return line.startsWith(start); });
}

} // namespace

QString FindingText(const Repair &repair) { return QStringLiteral("%1: %2").arg(repair.where, repair.wrong); }

QString RepairText(const Repair &repair) {
    return QStringLiteral("%1; %2").arg(FindingText(repair), repair.remedy);
}

RepairReport RepairMap(const QString &source, const QString &target) {
    CreateEmptyMap(target);
    Unfinished unfinished(target);
    RepairReport report;
    storage::Salvaged salvaged = storage::SalvageDatabase(source, TableNames(), target);
    report.lost = salvaged.lost;
    storage::Database map = storage::OpenForBuilding(target);
    map.BeginTrans();
    RepairTables(salvaged.database, map, report.repairs).Run();
    RepairJoins(map, report.repairs, LostSlices(report)).Run();
    map.CommitTrans(storage::kForceFlush);
    unfinished.path.clear();
    return report;
}

void SweepRepairFolders() { storage::SweepSalvageFolders(); }

} // namespace document
