// Moves the dates of several nodes at once.
#pragma once

#include "timeline/DateStep.h"

#include <optional>
#include <QDate>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace timeline {

struct MovedDates {
    int moved = 0;
    int undated = 0;   // were left alone
    QDate first, last; // of those that moved, as they are now
};

// What the step would make of these dates; nothing where one would come to lie beyond the years of dates.
std::optional<MovedDates> Foreseen(const std::vector<std::optional<QDate>> &dates, const DateStep &step);

// Moves each node that has a date from there, its end too. Nothing is changed, and nothing is given, where
// one would come to lie beyond the years of dates. Opens no group of changes.
std::optional<MovedDates> MoveDates(document::MapWindow &window, diagram::Surface &Flow,
                                    const std::vector<diagram::Node *> &nodes, const DateStep &step);

// The date of each node as it is.
std::vector<std::optional<QDate>> DatesOf(const std::vector<diagram::Node *> &nodes);

} // namespace timeline
