// The strip of months of a slice, and the dates of its nodes.
#pragma once

#include <QDir>
#include <QJsonObject>

namespace diagram {
class Surface;
}
namespace document {
class MapWindow;
}

namespace product {

class NodeKeys;

// See BuildSlice. The strip is laid out for a surface that has no size, so only Left and Top stand where they
// will stand in a window.
void BuildTimeline(document::MapWindow &window, diagram::Surface &surface, const QJsonObject &slice,
                   const QDir &resources, const NodeKeys &keys);

} // namespace product
