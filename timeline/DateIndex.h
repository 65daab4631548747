// The nodes of a surface's timeline by their dates.
#pragma once

#include <optional>
#include <QDate>
#include <QHash>
#include <QString>
#include <set>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace timeline {

// What a text of a date stands for, however it is written.
struct DateMeant {
    QDate date; // of a month its first
    bool month = false;
    friend bool operator==(const DateMeant &, const DateMeant &) = default;
};
std::size_t qHash(const DateMeant &meant, std::size_t seed = 0);

// Nothing for what is no date.
std::optional<DateMeant> MeaningOf(const QString &date);

// Answers as a walk over the nodes would: the first one in the order of adding. Must be told of nodes that
// come and go.
class DateIndex {
public:
    explicit DateIndex(const diagram::Surface &flow);

    // The first node of the timeline with just that date, else the first that means the same by it; null when
    // there is none.
    diagram::Node *Find(const QString &date) const;
    diagram::Node *FindDay(const QDate &day) const { return FindMeant({day, false}); }
    // The first days of the months in which there are days.
    std::set<QDate> MonthsOfDays() const;
    void Add(diagram::Node &node); // behind all others
    void Remove(const diagram::Node &node);

private:
    using Nodes = std::vector<diagram::Node *>;
    diagram::Node *FindMeant(const DateMeant &meant) const;
    // Made when a text is first looked for in vain.
    QHash<DateMeant, Nodes> &Meant() const;

    QHash<QString, Nodes> nodes_;
    Nodes inOrder_;
    mutable std::optional<QHash<DateMeant, Nodes>> meant_;
};

} // namespace timeline
