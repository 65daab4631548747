// Bringing a template into a slice.
#pragma once

#include <QPointF>
#include <QString>

namespace diagram {
class Surface;
}
namespace document {
class MapWindow;
}

namespace templates {

// In both the window is the one into which the template comes. The template's own file is only read.

// Puts the template in the place of all that the slice holds, its background too, with new keys and the map's
// levels and groups, as one step of undo, and marks the map as changed. Errors are those of SurfaceFileOf and
// 321; the slice is then as it was.
void LoadTemplate(document::MapWindow &window, diagram::Surface &flow, const QString &file);

// Adds the nodes and links of the template on top of what is there, selected, their middle at the point,
// which is in twips, or so near to it that nothing leaves the page at its top or left; one step of undo.
// Background, months, dates and default nodes of the template stay behind; what a filter hid there is shown.
// A template with nothing else changes nothing.
void InsertTemplate(document::MapWindow &window, diagram::Surface &flow, const QString &file, QPointF at);

} // namespace templates
