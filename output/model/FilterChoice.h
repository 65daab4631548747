// The filter as a command line gives it.
#pragma once

#include "document/MapWindow.h"

#include <optional>
#include <QStringList>

namespace output {

// Names of the levels and groups to be ticked; what isn't given keeps the ticks of the map.
struct FilterChoice {
    std::optional<QStringList> levels, groups;
    bool IsGiven() const { return levels || groups; }
};

// Ticks these and shows on all slices what is ticked. Months and their links stay as hidden as they were.
// Nothing is done without a choice. Error 5 for a name that the map does not have.
void ShowOnly(document::MapWindow &window, const FilterChoice &choice);

} // namespace output
