#include "diagram/model/Properties.h"

#include "diagram/model/PropertyTable.h"

#include <algorithm>
#include <iterator>

namespace diagram {

namespace {

// A value as its row hands it out; the rows of a look have whole numbers of 32 bits.
template <typename Data, typename V>
PropertyValue ToValue(const V &value) {
    if constexpr (std::is_same_v<V, NodeLook>) {
        return std::make_shared<const NodeLook>(value);
    } else if constexpr (std::is_same_v<Data, NodeLook> && std::is_same_v<V, std::uint8_t>) {
        return std::int32_t(value);
    } else {
        return value;
    }
}

constexpr std::uint8_t kNoValue = 255; // in no range

template <typename Data, typename V>
V FromValue(const PropertyValue &value) {
    if constexpr (std::is_same_v<V, NodeLook>) {
        return *std::get<std::shared_ptr<const NodeLook>>(value);
    } else if constexpr (std::is_same_v<Data, NodeLook> && std::is_same_v<V, std::uint8_t>) {
        const std::int32_t number = std::get<std::int32_t>(value);
        return number >= 0 && number < kNoValue ? V(number) : kNoValue;
    } else {
        return std::get<V>(value);
    }
}

template <typename Data, typename V>
bool Holds(const V &held, const PropertyValue &value) {
    if constexpr (std::is_same_v<V, NodeLook>) {
        return held == *std::get<std::shared_ptr<const NodeLook>>(value);
    } else if constexpr (std::is_same_v<Data, NodeLook> && std::is_same_v<V, std::uint8_t>) {
        return held == std::get<std::int32_t>(value);
    } else {
        return held == std::get<V>(value);
    }
}

template <typename V>
bool IsInRange(const V &value, const Range &valid) {
    if constexpr (std::is_same_v<V, NodeLook>) {
        return IsValid(value);
    } else if constexpr (std::is_same_v<V, std::vector<Point>>) {
        return std::ranges::all_of(value,
                                   [](const Point &p) { return IsCoordinate(p.x) && IsCoordinate(p.y); });
    } else if constexpr (std::is_arithmetic_v<V>) {
        return valid(double(value));
    } else {
        return true;
    }
}

template <typename Data, auto Member, const Range &Valid>
constexpr auto Row(const Property<Member, Valid> &property) {
    using Value = typename MemberOf<Member>::Value;
    static_assert(!std::is_same_v<Value, std::uint8_t> || !Valid(kNoValue));
    return PropertyRow<Data>{
        property.id,
        property.name,
        property.what,
        [](const Data &data) { return ToValue<Data>(data.*Member); },
        [](Data &data, const PropertyValue &value) { data.*Member = FromValue<Data, Value>(value); },
        [](const Data &a, const Data &b) { return a.*Member == b.*Member; },
        [](const Data &data, const PropertyValue &value) { return Holds<Data>(data.*Member, value); },
        [](const Data &data) { return IsInRange(data.*Member, Valid); }};
}

template <typename Data, typename Table>
constexpr auto RowsOf(const Table &table) {
    return std::apply([](const auto &...each) { return std::array{Row<Data>(each)...}; }, table);
}

constexpr std::size_t kLookCount =
    std::apply([](const auto &...each) { return (std::size_t(each.kIsLook) + ...); }, properties::kNode);

// The rows of the node's look in the order of their own numbers. A change of the surface's defaults touches
// nothing that is seen.
constexpr auto LookRows() {
    std::array<PropertyRow<NodeLook>, kLookCount> rows{};
    const auto add = [&rows]<typename Property>(const Property &property) {
        if constexpr (Property::kIsLook) {
            PropertyRow<NodeLook> row = Row<NodeLook>(property);
            row.id = property.idInLook;
            row.what = Change::Data;
            rows[row.id - 1u] = row;
        }
    };
    std::apply([&add](const auto &...each) { (add(each), ...); }, properties::kNode);
    return rows;
}

constexpr auto kNodeRows = RowsOf<NodeData>(properties::kNode);
constexpr auto kLinkRows = RowsOf<LinkData>(properties::kLink);
constexpr auto kSurfaceRows = RowsOf<SurfaceData>(properties::kSurface);
constexpr auto kLookRows = LookRows();

template <typename Rows>
constexpr bool IdsAscend(const Rows &rows) {
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        if (rows[i].id != i + 1) return false;
    }
    return true;
}
static_assert(IdsAscend(kNodeRows) && IdsAscend(kLinkRows) && IdsAscend(kSurfaceRows) &&
              IdsAscend(kLookRows));

} // namespace

std::span<const PropertyRow<NodeData>> NodeProperties() { return kNodeRows; }
std::span<const PropertyRow<LinkData>> LinkProperties() { return kLinkRows; }
std::span<const PropertyRow<SurfaceData>> SurfaceProperties() { return kSurfaceRows; }
std::span<const PropertyRow<NodeLook>> LookProperties() { return kLookRows; }

bool IsContent(const PropertyRow<SurfaceData> &row) {
    constexpr std::uint8_t kContent[] = {PropertyOf<&SurfaceData::tag>().id,
                                         PropertyOf<&SurfaceData::picture>().id,
                                         PropertyOf<&SurfaceData::backColor>().id};
    return std::ranges::find(kContent, row.id) != std::end(kContent);
}

bool DifferInContent(const SurfaceData &a, const SurfaceData &b) {
    return std::ranges::any_of(
        kSurfaceRows, [&](const PropertyRow<SurfaceData> &row) { return IsContent(row) && !row.same(a, b); });
}

} // namespace diagram
