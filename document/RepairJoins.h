// The second half of a repair: rows that refer to each other, such as links to their nodes.
#pragma once

#include "document/LooseSlice.h"
#include "document/RepairMap.h"

#include <QSet>

namespace document {

// Works on a map whose cells are all such that a load takes them.
class RepairJoins {
public:
    // With `slicesWereLost`, rows of slices are missing: slices are made anew for the indexes that nodes
    // name.
    RepairJoins(storage::Database &map, std::vector<Repair> &repairs, bool slicesWereLost)
        : map_(map), repairs_(repairs), loose_(map), slicesWereLost_(slicesWereLost) {}

    void Run();

private:
    void GiveSlicesIndexes();
    void GiveIndex(qlonglong row, int index, const QString &where, const QString &wrong);
    void MakeLostSlices();
    void PlaceNodes();
    void JoinLinks();
    void JoinLink(qlonglong row, const QString &key, std::optional<int> slice, const QString &source,
                  const QString &destination);
    void KeepPointsOfNoLink();
    void KeepRoute(const QString &link, const std::vector<diagram::Point> &points);
    void CountPoints();
    void DropUnknown(const char *table, const char *column, const char *pool, const char *remedy);
    void JoinHyperlinks();
    void KeepHyperlink(qlonglong row, const QString &node, const QString &wrong, const QString &text);
    void JoinAttachments();
    QString EndOnLooseSlice(const QString &key);
    bool Stands(int slice, const QString &key) const;
    void Note(const QString &where, const QString &wrong, const QString &remedy);

    storage::Database &map_;
    std::vector<Repair> &repairs_;
    LooseSlice loose_;
    bool slicesWereLost_;
    int standInTexts_ = 0;
    QSet<int> slices_;
    QHash<QString, QList<int>> nodes_; // the slices that have a node of the key
};

} // namespace document
