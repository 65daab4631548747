// The time of a node: a day, or from one day to another.
#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <set>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace timeline {

// From its first day to its last one, both of them whole; without a last one it takes no time.
struct Span {
    QDate first;
    std::optional<QDate> last{}; // never before the first

    QDate End() const { return last.value_or(first); }
    friend bool operator==(const Span &, const Span &) = default;
};

// By the node's date and its end; nothing for a node without a date. An end before the date counts as none.
std::optional<Span> SpanOfNode(const diagram::Node &node);

// The end in the node's tag, whether the node has a date or not. The tag stays as it is where it says so
// already.
std::optional<QDate> EndOfNode(const diagram::Node &node);
void SetEndOfNode(diagram::Node &node, const std::optional<QDate> &last);

// The first days of the months in which nodes with a date end.
std::set<QDate> MonthsOfEnds(const diagram::Surface &flow);

// The span moved as a whole, so that it begins on that day.
Span BegunOn(const Span &span, const QDate &first);

// 14 March 2027, or 14 March 2027 - 02 April 2027: as the box of a date reads it.
QString AsWritten(const Span &span);
// With the days of the week, and how many days it lasts.
QString InFull(const Span &span);

} // namespace timeline
