// What stands in the tip over a point of the surface.
#pragma once

#include <QString>

class QPointF;

namespace diagram {

class DayStrip;
class Renderer;
class Scene;
class Viewport;

// The text below the point (twips) that can't be read there, cut off or too small, and the node's date; empty
// for none.
QString TipAt(Scene &scene, Renderer &renderer, const Viewport &viewport, const DayStrip &days,
              const QPointF &at);

} // namespace diagram
