#include "diagram/shapes/LinkStyles.h"

#include <iterator>

namespace diagram {

namespace {

constexpr LinkStyleRow kLinkStyles[] = {
    {0, "Polyline", LinkForm::Polyline, ""},
    {1, "Bezier", LinkForm::Bezier, ""},
    {2, "V H", LinkForm::Orthogonal, "VH"},
    {3, "H V", LinkForm::Orthogonal, "HV"},
    {4, "V H V", LinkForm::Orthogonal, "VHV"},
    {5, "H V H", LinkForm::Orthogonal, "HVH"},
    {6, "V H V H", LinkForm::Orthogonal, "VHVH"},
    {7, "H V H V", LinkForm::Orthogonal, "HVHV"},
    {8, "V H V H V", LinkForm::Orthogonal, "VHVHV"},
    {9, "H V H V H", LinkForm::Orthogonal, "HVHVH"},
    {10, "V H V H V H", LinkForm::Orthogonal, "VHVHVH"},
    {11, "H V H V H V", LinkForm::Orthogonal, "HVHVHV"},
    {12, "V H V H V H V", LinkForm::Orthogonal, "VHVHVHV"},
    {13, "H V H V H V H", LinkForm::Orthogonal, "HVHVHVH"},
    {14, "Spline", LinkForm::Spline, ""},
};

// The name of an orthogonal style is its directions with blanks between them.
constexpr bool NameMatches(const LinkStyleRow &row) {
    const std::string_view name(row.name);
    if (row.form != LinkForm::Orthogonal) return row.directions.empty();
    if (name.size() != row.directions.size() * 2 - 1) return false;
    for (std::size_t i = 0; i < row.directions.size(); ++i) {
        if (name[2 * i] != row.directions[i]) return false;
        if (i > 0 && row.directions[i] == row.directions[i - 1]) return false;
    }
    return true;
}

constexpr bool IsWhole() {
    for (std::size_t i = 0; i < std::size(kLinkStyles); ++i) {
        if (kLinkStyles[i].value != int(i) || !kLinkStyles[i].name) return false;
        if (!NameMatches(kLinkStyles[i])) return false;
        for (std::size_t k = 0; k < i; ++k)
            if (std::string_view(kLinkStyles[i].name) == kLinkStyles[k].name) return false;
    }
    return true;
}
static_assert(IsWhole());

} // namespace

std::span<const LinkStyleRow> LinkStyleTable() { return kLinkStyles; }
int LastLinkStyle() { return int(std::size(kLinkStyles)) - 1; }

const LinkStyleRow *FindLinkStyle(int value) {
    return value >= 0 && value <= LastLinkStyle() ? &kLinkStyles[std::size_t(value)] : nullptr;
}

bool HasForm(int style, LinkForm form) {
    const LinkStyleRow *row = FindLinkStyle(style);
    return row && row->form == form;
}

bool HasFreeBends(int style) {
    return HasForm(style, LinkForm::Polyline) || HasForm(style, LinkForm::Spline);
}

int RoutedPointCount(int style) {
    const LinkStyleRow *row = FindLinkStyle(style);
    if (!row) return 2;
    if (row->form == LinkForm::Bezier) return 4;
    return row->form == LinkForm::Orthogonal ? int(row->directions.size()) + 1 : 2;
}

} // namespace diagram
