#include "diagram/model/Surface.h"
#include "diagram/shapes/LinkStyles.h"
#include "gallery/Sheets.h"

#include <random>

using namespace diagram;

namespace gallery {

namespace {

Node &Box(Surface &surface, double x, double y, double width, double height, const char *text = "") {
    Node &node = surface.Nodes().Add(float(x), float(y), float(width), float(height));
    node.SetText(QString::fromUtf8(text));
    return node;
}

Node &Block(Surface &surface, double x, double y, double width, double height) {
    Node &node = Box(surface, x, y, width, height);
    node.SetFillColor(support::Rgb(214, 224, 236));
    return node;
}

Link &Join(Node &from, Node &to, int style) {
    Link &link = from.Links().Add(to);
    link.SetStyle(style);
    return link;
}

} // namespace

// One obstacle, two, or a wall with gaps between two nodes, for every orthogonal style.
void DrawRoutes(Surface &surface) {
    for (const LinkStyleRow &style : LinkStyleTable()) {
        if (style.form != LinkForm::Orthogonal) continue;
        for (int wall = 0; wall < 5; ++wall) {
            const double x = 300 + wall * 6600, y = 300 + (style.value - 2) * 4300;
            Node &from = Box(surface, x, y + 1500, 900, 600, style.name);
            Node &to = Box(surface, x + 4500, y + (wall % 2 ? 2600 : 1500), 900, 600, "to");
            if (wall == 0 || wall == 1) Block(surface, x + 2200, y + 1200, 900, 1200);
            if (wall == 2)
                Block(surface, x + 1700, y + 900, 700, 1500), Block(surface, x + 3000, y + 1300, 700, 1500);
            if (wall == 3)
                for (int i = 0; i < 3; ++i) Block(surface, x + 2200, y + i * 1150, 900, 900);
            if (wall == 4)
                Block(surface, x + 1300, y + 1000, 2800, 500), Block(surface, x + 1300, y + 1900, 2800, 500);
            Join(from, to, style.value);
        }
    }
}

void DrawRoutesBeside(Surface &surface) {
    for (const LinkStyleRow &style : LinkStyleTable()) {
        const double y = 600 + style.value * 3200;
        for (int count = 2; count <= 4; ++count) {
            const double x = 300 + (count - 2) * 6000;
            Node &from = Box(surface, x, y, 1200, 900, style.name);
            Node &to = Box(surface, x + 3300, y + 1300, 1200, 900, "to");
            if (count == 4) to.SetShape(0);
            for (int i = 0; i < count; ++i) Join(i % 2 ? to : from, i % 2 ? from : to, style.value);
        }
        Node &loop = Box(surface, 19500, y + 600, 1500, 1200, "loops");
        for (int i = 0; i < 3; ++i) Join(loop, loop, style.value);
    }
}

// A map as people draw them: a grid that isn't quite one, links of several styles.
void DrawRoutesOfMap(Surface &surface) {
    std::mt19937 random(7);
    const auto roll = [&random](int most) { return int(random() % unsigned(most)); };
    std::vector<Node *> nodes;
    for (int i = 0; i < 48; ++i)
        nodes.push_back(&Box(surface, 600 + i % 8 * 2900 + roll(500), 600 + i / 8 * 2100 + roll(400),
                             1100 + roll(500), 600 + roll(500), qPrintable(QString::number(i))));
    constexpr int kStyles[] = {4, 5, 6, 7, 8, 9};
    for (int i = 0; i < 34; ++i) {
        Node &from = *nodes[size_t(roll(48))], &to = *nodes[size_t(roll(48))];
        if (&from == &to) continue;
        Join(from, to, kStyles[roll(6)]).SetLineColor(support::Rgb(roll(180), roll(140), roll(180)));
    }
}

} // namespace gallery
