// The words under which a search finds the dates of nodes.
#pragma once

#include "timeline/ReadDateAsWritten.h"

#include <QHash>
#include <QStringList>

namespace diagram {
class Node;
}

namespace timeline {

// For one text that is sought.
class DateWords {
public:
    DateWords(const QString &sought, const QDate &today) : sought_(sought), today_(today) {}

    // The node's date and its end as they are written, each with and without the nought of its day, and what
    // is sought where that means one of them, read as in the form of the date; nothing for a node without a
    // date.
    QStringList operator()(const diagram::Node &node);

private:
    std::optional<QDate> Meant(const diagram::Surface &flow);

    QString sought_;
    QDate today_;
    QHash<const diagram::Surface *, std::optional<QDate>> meant_; // what is sought, by the years of a strip
};

} // namespace timeline
