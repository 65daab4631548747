// A surface with something of everything.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/shapes/Tables.h"

namespace diagram::testing {

// A node of each shape, linked in a row; their looks go through all that there are.
inline void Fill(Surface &surface) {
    Node *before = nullptr;
    int i = 0;
    for (const ShapeRow &row : ShapeTable()) {
        Node &node = surface.Nodes().Add(float(i % 8 * 1800), float(i / 8 * 1200), 1200, 750);
        node.SetShape(row.value);
        node.SetShapeOrientation(i % 4);
        node.SetShadow(i % 5);
        node.SetDrawStyle(i % 7);
        node.SetDrawWidth(float(1 + i % 3));
        node.SetFillColor(support::Rgb(255 - i, 200 + i, 3 * i));
        node.SetFont(Font(QStringLiteral("Arial"), 6 + i % 9, i % 2, i % 3 == 0));
        node.SetText(QLatin1String(row.name));
        if (before) {
            Link &link = before->Links().Add(node);
            link.SetStyle(i % 15);
            link.SetArrowDest(i % 33);
            link.SetJumpStyle(i % 3);
            link.SetText(QStringLiteral("label"));
        }
        before = &node;
        ++i;
    }
}

} // namespace diagram::testing
