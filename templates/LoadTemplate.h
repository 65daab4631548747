// A template brought into a slice.
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

// What a load leads through, of the window into which a template comes. The template's own file is only read.
//
// Puts the template in the place of all that the slice holds, its background too, with new keys and the map's
// levels and groups, as one step of undo, and marks the map as changed. Errors are those of SurfaceFileOf and
// 321; the slice is then as it was.
void LoadTemplate(document::MapWindow &window, diagram::Surface &flow, const QString &file);

// Adds the nodes and links of the template on top of what is there, selected, their middle at the point,
// which is in twips; one step of undo. Background, months, dates and default nodes of the template stay
// behind. A template with nothing else changes nothing.
void InsertTemplate(document::MapWindow &window, diagram::Surface &flow, const QString &file, QPointF at);

} // namespace templates
