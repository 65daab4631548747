// Which links of a map file have bends that the router made.
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

namespace schema {

// One row for each link whose bends are the router's, with a sum of its points. Where the sum is another,
// somebody else has written to the points, and the row says nothing. A map has the table only when it has
// such links, as it has that of the views.
namespace routed {
enum Column { kLink, kSum, kCount };
}
extern const TableLayout kRoutedLinks;

} // namespace schema

// Tells points from others; the same on every machine.
std::int32_t SumOf(std::span<const diagram::Point> points);

// Writes the rows; what stood in the table goes, and it is made when it is first needed.
class RoutedWriter {
public:
    explicit RoutedWriter(storage::Database &database);
    void Write(const diagram::Link &link, std::string_view key);

private:
    storage::Database &database_;
    std::optional<storage::PreparedStatement> row_;
};

// Links by their numbers in `keys`, with their sums, in ascending order; of unknown links nothing. None from
// a map without the table, or with one of other columns.
std::vector<std::pair<std::uint32_t, std::int32_t>> ReadRouted(storage::Database &database,
                                                               const KeyIndex &keys);

} // namespace document
