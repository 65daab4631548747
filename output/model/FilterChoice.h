// The filter as a command line gives it.
#pragma once

#include "document/MapWindow.h"

#include <optional>
#include <QStringList>

namespace output {

// Names of the levels and groups to be ticked; what isn't given keeps the ticks of the map.
struct FilterChoice {
    std::optional<QStringList> levels, groups;
    QString view = {}; // a named view, whose ticks hold where no names are given
    bool IsGiven() const { return levels || groups || !view.isEmpty(); }
};

// Ticks these levels and groups and applies the filter to all slices. Months and their links stay as hidden
// as they were. Does nothing without a choice. Error 5 for a name that the map does not have. Gives the names
// of the levels and groups that the view ticks and the map no longer has.
QStringList ShowOnly(document::MapWindow &window, const FilterChoice &choice);

} // namespace output
