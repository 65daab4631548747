#include "mainwindow/look/Look.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/edits/TextAlignment.h"
#include "timeline/AdjustLinks.h"

namespace mainwindow {

namespace {

using diagram::Link;
using diagram::Node;

template <auto Getter, typename Item>
double Of(const Item &item) {
    return double((item.*Getter)());
}

template <auto Setter, typename Value, typename Item>
void To(Item &item, double value) {
    (item.*Setter)(Value(value));
}

double FillOf(const Node &node) { return node.Transparent() ? kNoFill : double(node.FillColor()); }

// A node that loses its fill keeps the colour, for the time when it is filled again.
void Fill(Node &node, double value) {
    node.SetTransparent(value == kNoFill);
    if (value != kNoFill) node.SetFillColor(support::Colour(value));
}

using support::Colour;
constexpr LookRow kRows[] = {
    {LookOf::Fill, "lookFill", QT_TRANSLATE_NOOP("mainwindow::Look", "Fill"), "lookfill", FillOf, Fill,
     nullptr, nullptr},
    {LookOf::LineColour, "lookLineColour", QT_TRANSLATE_NOOP("mainwindow::Look", "Line colour"), "lookline",
     Of<&Node::BorderColor, Node>, To<&Node::SetBorderColor, Colour, Node>, Of<&Link::LineColor, Link>,
     To<&Link::SetLineColor, Colour, Link>},
    {LookOf::LineWidth, "lookLineWidth", QT_TRANSLATE_NOOP("mainwindow::Look", "Line width"), "lookwidth",
     Of<&Node::DrawWidth, Node>, To<&Node::SetDrawWidth, float, Node>, Of<&Link::DrawWidth, Link>,
     To<&Link::SetDrawWidth, float, Link>, true},
    {LookOf::LineStyle, "lookLineStyle", QT_TRANSLATE_NOOP("mainwindow::Look", "Line style"), "lookstyle",
     Of<&Node::DrawStyle, Node>, To<&Node::SetDrawStyle, int, Node>, Of<&Link::DrawStyle, Link>,
     To<&Link::SetDrawStyle, int, Link>},
    {LookOf::TextColour, "lookTextColour", QT_TRANSLATE_NOOP("mainwindow::Look", "Text colour"), "looktext",
     Of<&Node::ForeColor, Node>, To<&Node::SetForeColor, Colour, Node>, Of<&Link::ForeColor, Link>,
     To<&Link::SetForeColor, Colour, Link>},
    {LookOf::Shadow, "lookShadow", QT_TRANSLATE_NOOP("mainwindow::Look", "Shadow"), "lookshadow",
     Of<&Node::Shadow, Node>, To<&Node::SetShadow, int, Node>, nullptr, nullptr},
    {LookOf::Shape, "lookShape", QT_TRANSLATE_NOOP("mainwindow::Look", "Shape"), "lookshape",
     Of<&Node::Shape, Node>, To<&Node::SetShape, int, Node>, nullptr, nullptr, true},
    {LookOf::Routing, "lookRouting", QT_TRANSLATE_NOOP("mainwindow::Look", "Routing"), "lookrouting", nullptr,
     nullptr, Of<&Link::Style, Link>, To<&Link::SetStyle, int, Link>},
    {LookOf::ArrowStart, "lookArrowStart", QT_TRANSLATE_NOOP("mainwindow::Look", "Arrow at the start"),
     "lookarrowstart", nullptr, nullptr, Of<&Link::ArrowSource, Link>, To<&Link::SetArrowSource, int, Link>},
    {LookOf::ArrowEnd, "lookArrowEnd", QT_TRANSLATE_NOOP("mainwindow::Look", "Arrow at the end"),
     "lookarrowend", nullptr, nullptr, Of<&Link::ArrowDest, Link>, To<&Link::SetArrowDest, int, Link>},
    {LookOf::Jumps, "lookJumps", QT_TRANSLATE_NOOP("mainwindow::Look", "Jumps"), "lookjumps", nullptr,
     nullptr, Of<&Link::JumpStyle, Link>, To<&Link::SetJumpStyle, int, Link>},
};

// Looks at each item once, and no further than until all properties are known to differ: the items lie far
// apart in memory.
template <auto Of, typename Item>
void Read(const std::vector<Item *> &items, std::span<const LookRow> rows, std::vector<LookState> &states) {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!(rows[i].*Of) || items.empty()) continue;
        if (!states[i].fits || states[i].value) open.push_back(i);
        states[i].fits = true;
    }
    for (const Item *item : items) {
        if (open.empty()) return;
        std::erase_if(open, [&](std::size_t i) {
            const double each = (rows[i].*Of)(*item);
            const bool differs = states[i].value && *states[i].value != each;
            states[i].value = differs ? std::nullopt : std::optional(each);
            return differs;
        });
    }
}

// Gives each link the style that suits it best. False, and no step, where all have theirs already.
bool GiveBestStyles(diagram::Surface &surface) {
    std::vector<std::pair<Link *, int>> changes;
    for (Link *link : surface.SelectedLinks())
        if (const int best = diagram::StyleFor(*link, diagram::kAutomaticStyle); best != link->Style())
            changes.emplace_back(link, best);
    if (changes.empty()) return false;
    const HandlerStep step(surface);
    for (const auto &[link, style] : changes) link->SetStyle(style);
    return true;
}

template <typename Item>
void Give(const std::vector<Item *> &items, void (*to)(Item &, double), double value) {
    if (!to) return;
    for (Item *item : items) to(*item, value);
}

} // namespace

std::span<const LookRow> LookRows() { return kRows; }
const LookRow &LookRowOf(LookOf what) { return kRows[std::size_t(what)]; }

std::vector<LookState> StatesOf(const diagram::Surface &surface, std::span<const LookRow> rows) {
    std::vector<LookState> states(rows.size());
    Read<&LookRow::ofNode>(surface.SelectedNodes(), rows, states);
    Read<&LookRow::ofLink>(surface.SelectedLinks(), rows, states);
    return states;
}

LookState StateOf(const diagram::Surface &surface, const LookRow &row) {
    return StatesOf(surface, std::span(&row, 1)).front();
}

// A node that gets another size takes its link to a day along.
bool GiveLook(diagram::Surface &surface, const LookRow &row, double value) {
    const LookState before = StateOf(surface, row);
    if (!before.fits || before.value == value) return false;
    if (row.what == LookOf::Routing && value == diagram::kAutomaticStyle) return GiveBestStyles(surface);
    const HandlerStep step(surface);
    Give(surface.SelectedNodes(), row.toNode, value);
    Give(surface.SelectedLinks(), row.toLink, value);
    if (row.resizes) timeline::AdjustLinksOf(surface.SelectedNodes());
    return true;
}

Shared SharedFont(const diagram::Surface &surface, bool (diagram::Font::*is)() const) {
    bool some = false, others = false;
    const auto look = [&](const auto &items) {
        for (std::size_t i = 0; i < items.size() && !(some && others); ++i)
            ((items[i]->Font().*is)() ? some : others) = true;
    };
    look(surface.SelectedNodes());
    look(surface.SelectedLinks());
    if (!some) return Shared::Nowhere;
    return others ? Shared::Partly : Shared::Everywhere;
}

Shared SharedAlignment(const diagram::Surface &surface, int family) {
    bool some = false, others = false;
    for (const Node *node : surface.SelectedNodes()) {
        (FamilyOfAlignment(node->Alignment()) == family ? some : others) = true;
        if (some && others) return Shared::Partly;
    }
    return some ? Shared::Everywhere : Shared::Nowhere;
}

} // namespace mainwindow
