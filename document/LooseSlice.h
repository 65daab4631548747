// The slice "Loose items" of a repaired map. It takes what refers to something that the damaged map lacks:
// nodes without a slice, links without one of their nodes, points, hyperlinks and attachments of nothing.
#pragma once

#include "diagram/geometry/Point.h"
#include "storage/Database.h"

#include <QHash>

namespace document {

class LooseSlice {
public:
    // The rows of the tables are written to `map`. Nothing is written before there is something to keep.
    explicit LooseSlice(storage::Database &map) : map_(map) {}

    // The slice's index, made with its row at the first call behind all others; -1 when there is no room for
    // one.
    int Index();
    // The key of a node on this slice that stands in for the node `key`: the same one each time for the same
    // key. Its text says that the node is missing, unless `text` is given, for a node that stands on another
    // slice.
    QString StandInFor(const QString &key, const QString &text = QString());
    // A new node with that text, at the place or in the next free one. Its key.
    QString AddNode(const QString &text, const diagram::Point *place = nullptr,
                    const QString &tag = QString());
    // A new link between two nodes of the slice. Its key.
    QString AddLink(const QString &source, const QString &destination);

private:
    diagram::Point NextPlace();

    storage::Database &map_;
    int index_ = -1;
    int nodes_ = 0;
    float top_ = -1; // of the first row of nodes; below 0 before it was looked up
    QHash<QString, QString> standIns_;
};

// The text of a node that stands for a missing one.
QString MissingNodeText(const QString &key);

} // namespace document
