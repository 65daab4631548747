#include "gallery/Sheets.h"

#include "diagram/model/Surface.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Tables.h"

#include <algorithm>

using namespace diagram;

namespace gallery {

namespace {

Node &Dot(Surface &surface, double x, double y, const char *text = "") {
    Node &node = surface.Nodes().Add(float(x), float(y), 300, 300);
    node.SetText(QString::fromUtf8(text));
    return node;
}

} // namespace

void DrawArrows(Surface &surface) {
    for (const ArrowRow &arrow : ArrowTable()) {
        const double x = 300 + arrow.value % 3 * 10500.0, y = 300 + arrow.value / 3 * 600.0;
        Node &name = surface.Nodes().Add(float(x), float(y), 1650, 300);
        name.SetText(QString::fromLatin1(arrow.name));
        name.SetDrawStyle(5);
        for (int size = 0; size < 3; ++size) {
            Node &from = Dot(surface, x + 1700 + size * 2850, y);
            Node &to = Dot(surface, x + 1700 + size * 2850 + 2450, y);
            Link &link = from.Links().Add(to);
            link.SetArrowSource(arrow.value);
            link.SetArrowMiddle(arrow.value);
            link.SetArrowDest(arrow.value);
            link.SetArrowSizeSource(size);
            link.SetArrowSizeMiddle(size);
            link.SetArrowSizeDest(size);
            link.SetDrawWidth(size == 2 ? 2 : 1);
        }
    }
}

// Each style to nodes that lie to the lower right, to the upper right, to the lower left and below.
void DrawLinkStyles(Surface &surface) {
    struct Offset {
        double columns, rows;
    };
    constexpr Offset kTargets[] = {{2.2 * 0.9, 1.6}, {2.2 * 0.9, -1.6}, {-2, 1.6}, {0.3 * 0.9, 1.6}};
    for (const LinkStyleRow &style : LinkStyleTable())
        for (int i = 0; i < 4; ++i) {
            const Offset &target = kTargets[i];
            const double column = i * 3.2 + std::max(0.0, -target.columns) + (style.value % 2) * 13,
                         row = style.value / 2 * 3.2 + std::max(0.0, -target.rows);
            Node &from = AddAt(surface, column, row, style.name);
            Node &to = AddAt(surface, column + target.columns, row + target.rows, "to");
            from.SetShape(i % 2 ? 0 : 1);
            Link &link = from.Links().Add(to);
            link.SetStyle(style.value);
            if (i < 2) link.SetText(QStringLiteral("label"));
            if (style.form == LinkForm::Spline) {
                LinkPoints points = link.Points();
                const Point a = points.Item(0), b = points.Item(1);
                link.SetMovePointsMode(true);
                points.Insert(1, {a.x * 0.7f + b.x * 0.3f, b.y});
                points.Insert(2, {a.x * 0.3f + b.x * 0.7f, a.y});
                link.SetMovePointsMode(false);
            }
        }
}

void DrawLinkLines(Surface &surface) {
    for (const NamedValue &style : LineStyleTable())
        for (int width = 0; width < 4; ++width) {
            constexpr float kWidths[] = {0, 1, 3, 8};
            Node &from = AddAt(surface, width * 2.4, style.value * 1.4, style.name);
            Node &to = AddAt(surface, width * 2.4 + 1.3, style.value * 1.4 + (width % 2 ? 0.5 : 0));
            to.SetBounds(to.Left(), to.Top(), 500, 500);
            Link &link = from.Links().Add(to);
            link.SetStyle(width % 2 ? 5 : 0);
            link.SetDrawStyle(style.value);
            link.SetDrawWidth(kWidths[width]);
            link.SetArrowDest(7);
            link.SetLineColor(support::Rgb(150, 0, 60));
        }
}

void DrawJumps(Surface &surface) {
    for (int jump = 0; jump < 3; ++jump) {
        const double x = 300 + jump * 5200;
        for (int i = 0; i < 3; ++i)
            Dot(surface, x + 900 + i * 1000, 0, "a")
                .Links()
                .Add(Dot(surface, x + 900 + i * 1000, 3600, "b"))
                .SetArrowDest(5);
        for (int i = 0; i < 3; ++i) {
            Link &link = Dot(surface, x, 900 + i * 900, "c")
                             .Links()
                             .Add(Dot(surface, x + 3800, i == 2 ? 1800 : 900 + i * 900, "d"));
            link.SetJumpStyle(jump);
            link.SetDrawWidth(float(1 + i));
            link.SetArrowDest(5);
        }
        Link &back = Dot(surface, x + 3800, 3000, "e").Links().Add(Dot(surface, x, 3300, "f"));
        back.SetStyle(5);
        back.SetJumpStyle(jump);
        Link &down = Dot(surface, x + 2400, 0, "g").Links().Add(Dot(surface, x + 2400, 3600, "h"));
        down.SetJumpStyle(jump);
    }
}

} // namespace gallery
