// The one renderer: a surface onto any QPainter, for screen, print, pictures and metafiles alike.
#pragma once

#include "diagram/geometry/Units.h"
#include "diagram/model/Surface.h"

#include <functional>
#include <memory>
#include <optional>
#include <QColor>
#include <QRectF>

class QPainter;

namespace vector {
class ContentTarget;
}

namespace diagram {

class Scene;
class Sights;

// What is drawn besides the diagram itself.
struct RenderOptions {
    double xScale = 1 / kTwipsPerPixel; // device pixels a twip
    double yScale = 1 / kTwipsPerPixel;
    bool background = true; // back colour and picture
    bool grid = false;      // only where the surface shows its grid
    bool selection = false; // handles of what is selected
    bool marks = false;     // the surface's marking of marked items
    // For the user at work: what is written beside the strip of days keeps a size that can be read, links to
    // days stand back, and today is left to the view.
    bool screen = false;
    bool vector = false;   // the target keeps vectors: no simplification of small things, no cached pixels
    double handleSize = 7; // device pixels
    QColor handleFill = QColor(255, 255, 255);
    QColor handleLine = QColor(0, 95, 184); // and the fill of the handles of the item with the focus
    QColor markColour = QColor(90, 140, 210);
    // With `vector`: takes texts and pictures in place of the painter.
    vector::ContentTarget *target = nullptr;
    std::optional<QRgb> paper = {}; // in the place of the surface's back colour and picture
    const Sights *sights = nullptr; // what to show and hide in place of what the items say
    // Asked now and then; painting ends, unfinished, once it gives false.
    std::function<bool()> goOn = {};
};

// Holds caches of text layouts, forms and scaled pictures; give one renderer to each view. Not for two
// threads.
class Renderer {
public:
    Renderer();
    ~Renderer();

    // Paints what lies in `area` (twips). The painter must be set up so that the device point (0, 0) is the
    // surface point area.topLeft() * scale; the painter's state is restored.
    void Paint(QPainter &painter, Scene &scene, const QRectF &area, const RenderOptions &options);

    // Measures with the same layout that Paint uses.
    TextMeasure &Measure();
    // Whether the whole text of the node fits its text area, as a good layout has it.
    bool TextFits(const Node &node);
    // Whether the end of the text isn't shown for want of room, or no text at all.
    bool TextIsCut(const Node &node);
    // Forgets the caches.
    void Clear();

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace diagram
