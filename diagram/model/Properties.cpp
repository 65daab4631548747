#include "diagram/model/Properties.h"

#include "diagram/model/Ranges.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace diagram {

namespace {

template <typename M>
struct MemberOf;
template <typename D, typename V>
struct MemberOf<V D::*> {
    using Data = D;
    using Value = V;
};

template <typename V>
PropertyValue ToValue(const V &value) {
    if constexpr (std::is_same_v<V, NodeDefaults>) {
        return std::make_shared<const NodeDefaults>(value);
    } else if constexpr (std::is_same_v<V, int>) {
        return std::int32_t(value);
    } else {
        return value;
    }
}

template <typename V>
V FromValue(const PropertyValue &value) {
    if constexpr (std::is_same_v<V, NodeDefaults>) {
        return *std::get<std::shared_ptr<const NodeDefaults>>(value);
    } else {
        return std::get<V>(value);
    }
}

template <typename V>
bool Holds(const V &held, const PropertyValue &value) {
    if constexpr (std::is_same_v<V, NodeDefaults>) {
        return held == *std::get<std::shared_ptr<const NodeDefaults>>(value);
    } else {
        return held == std::get<V>(value);
    }
}

template <typename V, bool (*Range)(double)>
bool IsInRange(const V &value) {
    if constexpr (std::is_same_v<V, NodeDefaults>) {
        return IsValid(value);
    } else if constexpr (std::is_same_v<V, std::vector<Point>>) {
        return std::ranges::all_of(value,
                                   [](const Point &p) { return IsCoordinate(p.x) && IsCoordinate(p.y); });
    } else if constexpr (std::is_arithmetic_v<V>) {
        return Range(double(value));
    } else {
        return true;
    }
}

template <auto Member, bool (*Range)(double) = IsAnything>
constexpr auto Row(std::uint8_t id, const char *name, Change what) {
    using Data = typename MemberOf<decltype(Member)>::Data;
    using Value = typename MemberOf<decltype(Member)>::Value;
    return PropertyRow<Data>{
        id,
        name,
        what,
        [](const Data &data) { return ToValue(data.*Member); },
        [](Data &data, const PropertyValue &value) { data.*Member = FromValue<Value>(value); },
        [](const Data &a, const Data &b) { return a.*Member == b.*Member; },
        [](const Data &data, const PropertyValue &value) { return Holds(data.*Member, value); },
        [](const Data &data) { return IsInRange<Value, Range>(data.*Member); }};
}

using N = NodeData;
using L = LinkData;
using S = SurfaceData;
using D = NodeDefaults;
using enum Change;

constexpr PropertyRow<N> kNodeRows[] = {
    Row<&N::key>(1, "Key", Data),
    Row<&N::text>(2, "Text", Text),
    Row<&N::event>(3, "Event", Data),
    Row<&N::tag>(4, "Tag", Data),
    Row<&N::font>(5, "Font", Text),
    Row<&N::picture>(6, "Picture", Look),
    Row<&N::left, IsCoordinate>(7, "Left", Geometry),
    Row<&N::top, IsCoordinate>(8, "Top", Geometry),
    Row<&N::width, IsSize>(9, "Width", Geometry),
    Row<&N::height, IsSize>(10, "Height", Geometry),
    Row<&N::drawWidth, IsDrawWidth>(11, "DrawWidth", Look),
    Row<&N::borderColor>(12, "BorderColor", Look),
    Row<&N::fillColor>(13, "FillColor", Look),
    Row<&N::foreColor>(14, "ForeColor", Look),
    Row<&N::xTextMargin, IsMargin>(15, "xTextMargin", Text),
    Row<&N::yTextMargin, IsMargin>(16, "yTextMargin", Text),
    Row<&N::stack>(17, "ZOrder", Stacking),
    Row<&N::shape, IsShape>(18, "Shape", Geometry | Look),
    Row<&N::shapeOrientation, IsOrientation>(19, "ShapeOrientation", Geometry | Look),
    Row<&N::drawStyle, IsDrawStyle>(20, "DrawStyle", Look),
    Row<&N::alignment, IsAlignment>(21, "Alignment", Text),
    Row<&N::shadow, IsShadow>(22, "Shadow", Look),
    Row<&N::picturePos, IsPicturePos>(23, "PicturePos", Look),
    Row<&N::autoSize, IsAutoSize>(24, "AutoSize", Look),
    Row<&N::hidden>(25, "Hidden", Visibility),
    Row<&N::selectable>(26, "Selectable", Data),
    Row<&N::marked>(27, "Marked", Look),
    Row<&N::transparent>(28, "Transparent", Look),
};

constexpr PropertyRow<L> kLinkRows[] = {
    Row<&L::key>(1, "Key", Data),
    Row<&L::text>(2, "Text", Text),
    Row<&L::font>(3, "Font", Text),
    Row<&L::points>(4, "Points", Geometry),
    Row<&L::source>(5, "Source", Geometry),
    Row<&L::destination>(6, "Destination", Geometry),
    Row<&L::drawWidth, IsDrawWidth>(7, "DrawWidth", Look),
    Row<&L::foreColor>(8, "ForeColor", Look),
    Row<&L::lineColor>(9, "LineColor", Look),
    Row<&L::stack>(10, "Zorder", Stacking),
    Row<&L::style, IsLinkStyle>(11, "Style", Geometry | Look),
    Row<&L::arrowSource, IsArrow>(12, "ArrowSource", Look),
    Row<&L::arrowDest, IsArrow>(13, "ArrowDest", Look),
    Row<&L::arrowMiddle, IsArrow>(14, "ArrowMiddle", Look),
    Row<&L::arrowSizeSource, IsArrowSize>(15, "ArrowSizeSource", Look),
    Row<&L::arrowSizeDest, IsArrowSize>(16, "ArrowSizeDest", Look),
    Row<&L::arrowSizeMiddle, IsArrowSize>(17, "ArrowSizeMiddle", Look),
    Row<&L::drawStyle, IsDrawStyle>(18, "DrawStyle", Look),
    Row<&L::jumpStyle, IsJumpStyle>(19, "JumpStyle", Look),
    Row<&L::hidden>(20, "Hidden", Visibility),
    Row<&L::selectable>(21, "Selectable", Data),
    Row<&L::marked>(22, "Marked", Look),
    Row<&L::rigid>(23, "Rigid", Data),
    Row<&L::oriented>(24, "Oriented", Data),
    Row<&L::addPointsMode>(25, "AddPointsMode", Data),
    Row<&L::movePointsMode>(26, "MovePointsMode", Data),
    Row<&L::ownBends>(27, "OwnBends", Data),
};

constexpr PropertyRow<S> kSurfaceRows[] = {
    Row<&S::tag>(1, "Tag", Data),
    Row<&S::picture>(2, "Picture", Look),
    Row<&S::backColor>(3, "BackColor", Look),
    Row<&S::xZoom, IsZoom>(4, "xZoom", Geometry),
    Row<&S::yZoom, IsZoom>(5, "yZoom", Geometry),
    Row<&S::gridLines>(6, "GridLines", Look),
    Row<&S::defaults>(7, "Defaults", Data),
};

constexpr PropertyRow<D> kDefaultsRows[] = {
    Row<&D::shape, IsShape>(1, "Shape", Data),
    Row<&D::shapeOrientation, IsOrientation>(2, "ShapeOrientation", Data),
    Row<&D::shadow, IsShadow>(3, "Shadow", Data),
    Row<&D::drawStyle, IsDrawStyle>(4, "DrawStyle", Data),
    Row<&D::borderColor>(5, "BorderColor", Data),
    Row<&D::fillColor>(6, "FillColor", Data),
    Row<&D::font>(7, "Font", Data),
    Row<&D::foreColor>(8, "ForeColor", Data),
    Row<&D::alignment, IsAlignment>(9, "Alignment", Data),
    Row<&D::autoSize, IsAutoSize>(10, "AutoSize", Data),
    Row<&D::drawWidth, IsDrawWidth>(11, "DrawWidth", Data),
    Row<&D::picturePos, IsPicturePos>(12, "PicturePos", Data),
};

template <typename Rows>
constexpr bool IdsAscend(const Rows &rows) {
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        if (rows[i].id != i + 1) return false;
    }
    return true;
}
static_assert(IdsAscend(kNodeRows) && IdsAscend(kLinkRows) && IdsAscend(kSurfaceRows) &&
              IdsAscend(kDefaultsRows));

} // namespace

std::span<const PropertyRow<NodeData>> NodeProperties() { return kNodeRows; }
std::span<const PropertyRow<LinkData>> LinkProperties() { return kLinkRows; }
std::span<const PropertyRow<SurfaceData>> SurfaceProperties() { return kSurfaceRows; }
std::span<const PropertyRow<NodeDefaults>> DefaultsProperties() { return kDefaultsRows; }

bool IsWork(const PropertyRow<SurfaceData> &row) {
    constexpr std::string_view kOfWork[] = {"Tag", "Picture", "BackColor"};
    return std::ranges::find(kOfWork, std::string_view(row.name)) != std::end(kOfWork);
}

bool IsOtherWork(const SurfaceData &a, const SurfaceData &b) {
    return std::ranges::any_of(kSurfaceRows,
                               [&](const PropertyRow<S> &row) { return IsWork(row) && !row.same(a, b); });
}

} // namespace diagram
