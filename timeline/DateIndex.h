// The nodes of a timeline by their dates.
#pragma once

#include <QHash>
#include <QString>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace timeline {

// Answers as a walk over the nodes would: the first one in the order of adding. Must be told of nodes that
// come and go.
class DateIndex {
public:
    explicit DateIndex(const diagram::Surface &flow);

    // The first node of the timeline with just that date; null when there is none.
    diagram::Node *Find(const QString &date) const;
    void Add(diagram::Node &node); // behind all others
    void Remove(const diagram::Node &node);

private:
    QHash<QString, std::vector<diagram::Node *>> nodes_;
};

} // namespace timeline
