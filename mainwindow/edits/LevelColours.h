// Fills of nodes that follow the colours of their levels.
#pragma once

#include "support/Colour.h"

#include <QHash>
#include <QString>

namespace diagram {
class Surface;
}
namespace document {
class cLevels;
}

namespace mainwindow {

using LevelColours = QHash<QString, support::Colour>; // by the keys of the levels

LevelColours ColoursOf(const document::cLevels &levels);

// Nodes follow their level from its former colour to the one that it has now, as one step of undo. A fill
// that isn't the former colour was chosen by hand and stays. True when a node was repainted.
bool FollowLevels(diagram::Surface &surface, const document::cLevels &levels, const LevelColours &former);

} // namespace mainwindow
