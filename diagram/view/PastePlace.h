// Where copies and pasted items go: beside what stands there, never on top of it.
#pragma once

#include <optional>
#include <QPointF>
#include <QRectF>
#include <vector>

namespace diagram {

class DayStrip;
class Scene;

// What pasting asks of the screen. Twips.
struct PasteAim {
    QRectF seen;
    std::optional<QPointF> pointer; // where the user points; none while that says nothing
    DayStrip &days;                 // laid out again where the page grows
};

// How far to move `boxes` (not empty): with their middle to the pointer, unless they would cover most of
// something there; else to their own place where that is in sight and free; else to the next free place
// beside. Out of sight they come into its middle. Places left of the page or above it are left to a pointer
// that is beyond the edge itself.
QPointF ShiftForPaste(Scene &scene, const std::vector<QRectF> &boxes, const PasteAim &aim);

// How far to move `boxes` to the next free place beside where they stand: to the right, and in sight row by
// row below.
QPointF ShiftBeside(Scene &scene, const std::vector<QRectF> &boxes, const QRectF &seen);

} // namespace diagram
