// What the loose end of a link would join.
#pragma once

#include "diagram/model/Surface.h"

namespace diagram {

class Scene;
struct Overlay;

// The topmost node at the point that a user may link to; null for none.
Node *LinkTargetAt(Scene &scene, const QPointF &at);
// Shows the line from `fixed` to the loose end, both ending on outlines, and the node that it would join.
// Where that is `fixed` itself, the line is a loop.
void ShowLooseLink(Scene &scene, const Node &fixed, const Node *target, const QPointF &at, Overlay &overlay);

} // namespace diagram
