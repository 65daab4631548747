// What there is to say of each property of nodes, links and the surface, once: its number and name, its
// range, what a change of it touches, whether it is part of a look. Its default stands where its data is
// declared. For the setters, the rows of Properties.h and the columns of a map file; everybody else reads
// Properties.h.
#pragma once

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/model/Ranges.h"
#include "diagram/model/Surface.h"

#include <array>
#include <tuple>
#include <type_traits>

namespace diagram {

template <auto Member>
struct MemberOf;
template <typename D, typename V, V D::*Member>
struct MemberOf<Member> {
    using Data = D; // NodeLook for a node's property that is part of its look
    using Value = V;
};

template <auto Member, const Range &Valid = IsAnything>
struct Property {
    std::uint8_t id; // stored in files: never given to another property
    const char *name;
    Change what;
    std::uint8_t idInLook = 0; // stored as well; 0 for what is no part of a look

    static constexpr auto kMember = Member;
    static constexpr const Range &kValid = Valid;
    static constexpr bool kIsLook = std::is_same_v<typename MemberOf<Member>::Data, NodeLook>;
};

namespace properties {

using N = NodeData;
using L = LinkData;
using S = SurfaceData;
using enum Change;

inline constexpr std::tuple kNode{
    Property<&N::key>{1, "Key", Data},
    Property<&N::text>{2, "Text", Text},
    Property<&N::event>{3, "Event", Data},
    Property<&N::tag>{4, "Tag", Data},
    Property<&N::font>{5, "Font", Text, 7},
    Property<&N::picture>{6, "Picture", Look},
    Property<&N::left, IsCoordinate>{7, "Left", Geometry},
    Property<&N::top, IsCoordinate>{8, "Top", Geometry},
    Property<&N::width, IsSize>{9, "Width", Geometry},
    Property<&N::height, IsSize>{10, "Height", Geometry},
    Property<&N::drawWidth, IsDrawWidth>{11, "DrawWidth", Look, 11},
    Property<&N::borderColor>{12, "BorderColor", Look, 5},
    Property<&N::fillColor>{13, "FillColor", Look, 6},
    Property<&N::foreColor>{14, "ForeColor", Look, 8},
    Property<&N::xTextMargin, IsMargin>{15, "xTextMargin", Text},
    Property<&N::yTextMargin, IsMargin>{16, "yTextMargin", Text},
    Property<&N::stack>{17, "ZOrder", Stacking},
    Property<&N::shape, IsShape>{18, "Shape", Geometry | Look, 1},
    Property<&N::shapeOrientation, IsOrientation>{19, "ShapeOrientation", Geometry | Look, 2},
    Property<&N::drawStyle, IsDrawStyle>{20, "DrawStyle", Look, 4},
    Property<&N::alignment, IsAlignment>{21, "Alignment", Text, 9},
    Property<&N::shadow, IsShadow>{22, "Shadow", Look, 3},
    Property<&N::picturePos, IsPicturePos>{23, "PicturePos", Look, 12},
    Property<&N::autoSize, IsAutoSize>{24, "AutoSize", Look, 10},
    Property<&N::hidden>{25, "Hidden", Visibility},
    Property<&N::selectable>{26, "Selectable", Data},
    Property<&N::marked>{27, "Marked", Look},
    Property<&N::transparent>{28, "Transparent", Look},
};

inline constexpr std::tuple kLink{
    Property<&L::key>{1, "Key", Data},
    Property<&L::text>{2, "Text", Text},
    Property<&L::font>{3, "Font", Text},
    Property<&L::points>{4, "Points", Geometry},
    Property<&L::source>{5, "Source", Geometry},
    Property<&L::destination>{6, "Destination", Geometry},
    Property<&L::drawWidth, IsDrawWidth>{7, "DrawWidth", Look},
    Property<&L::foreColor>{8, "ForeColor", Look},
    Property<&L::lineColor>{9, "LineColor", Look},
    Property<&L::stack>{10, "Zorder", Stacking},
    Property<&L::style, IsLinkStyle>{11, "Style", Geometry | Look},
    Property<&L::arrowSource, IsArrow>{12, "ArrowSource", Look},
    Property<&L::arrowDest, IsArrow>{13, "ArrowDest", Look},
    Property<&L::arrowMiddle, IsArrow>{14, "ArrowMiddle", Look},
    Property<&L::arrowSizeSource, IsArrowSize>{15, "ArrowSizeSource", Look},
    Property<&L::arrowSizeDest, IsArrowSize>{16, "ArrowSizeDest", Look},
    Property<&L::arrowSizeMiddle, IsArrowSize>{17, "ArrowSizeMiddle", Look},
    Property<&L::drawStyle, IsDrawStyle>{18, "DrawStyle", Look},
    Property<&L::jumpStyle, IsJumpStyle>{19, "JumpStyle", Look},
    Property<&L::hidden>{20, "Hidden", Visibility},
    Property<&L::selectable>{21, "Selectable", Data},
    Property<&L::marked>{22, "Marked", Look},
    Property<&L::rigid>{23, "Rigid", Data},
    Property<&L::oriented>{24, "Oriented", Data},
    Property<&L::addPointsMode>{25, "AddPointsMode", Data},
    Property<&L::movePointsMode>{26, "MovePointsMode", Data},
    Property<&L::ownBends>{27, "OwnBends", Data},
};

inline constexpr std::tuple kSurface{
    Property<&S::tag>{1, "Tag", Data},
    Property<&S::picture>{2, "Picture", Look},
    Property<&S::backColor>{3, "BackColor", Look},
    Property<&S::xZoom, IsZoom>{4, "xZoom", Geometry},
    Property<&S::yZoom, IsZoom>{5, "yZoom", Geometry},
    Property<&S::gridLines>{6, "GridLines", Look},
    Property<&S::defaults>{7, "Defaults", Data},
    Property<&S::grownLeft>{8, "GrownLeft", Data},
    Property<&S::grownTop>{9, "GrownTop", Data},
};

constexpr const auto &TableOf(const NodeLook *) { return kNode; } // NodeData's too
constexpr const auto &TableOf(const LinkData *) { return kLink; }
constexpr const auto &TableOf(const SurfaceData *) { return kSurface; }

template <auto Member, typename... Each>
consteval std::size_t PositionIn(const std::tuple<Each...> &) {
    constexpr std::array kFound{std::is_same_v<MemberOf<Member>, MemberOf<Each::kMember>>...};
    std::size_t position = 0;
    while (!kFound[position]) ++position; // no constant for a member without a row
    return position;
}

} // namespace properties

// The property that the member holds.
template <auto Member>
constexpr const auto &PropertyOf() {
    constexpr const typename MemberOf<Member>::Data *kData = nullptr;
    constexpr const auto &kTable = properties::TableOf(kData);
    return std::get<properties::PositionIn<Member>(kTable)>(kTable);
}

// The value as the property holds it; error 380 "Invalid property value" for a number out of its range.
template <auto Member, typename T>
decltype(auto) Fitting(const T &value, const char *source) {
    using Value = typename MemberOf<Member>::Value;
    if constexpr (std::is_arithmetic_v<Value> && !std::is_same_v<Value, bool>) {
        return Value(Checked(PropertyOf<Member>().kValid, value, source));
    } else {
        return (value);
    }
}

} // namespace diagram
