// The table RoutedLinks of a map file: which links have bends that the router made.
#pragma once

#include "diagram/model/Link.h"
#include "document/MapSchema.h"
#include "storage/Database.h"

#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace document {

class KeyIndex;

// A hash of the points, the same on every machine.
std::int32_t SumOf(std::span<const diagram::Point> points);

// Writes the rows. The table is emptied first, and made when it is first needed.
class RoutedWriter {
public:
    explicit RoutedWriter(storage::Database &database);
    // The row of the link under that key, if its bends are the router's.
    void Write(const diagram::Link &link, std::string_view key);

private:
    storage::Database &database_;
    std::optional<storage::PreparedStatement> row_;
};

// The number that each link has in `keys`, with its sum, in ascending order; links that `keys` lacks are left
// out. Empty for a map without the table, and for one whose table has other columns.
std::vector<std::pair<std::uint32_t, std::int32_t>> ReadRouted(storage::Database &database,
                                                               const KeyIndex &keys);

} // namespace document
