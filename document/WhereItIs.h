// Finds files that a map names by their full paths after map and files were moved together.
#pragma once

#include <QString>

namespace document {

class MapWindow;

// The path of the file or folder that the map at `map` names by `stored`: that path where something stands
// there; else the longest end of it, of up to 64 parts in either spelling of separators, that stands below
// the map's own folder; `stored` itself when there is none. A path without a root is looked for below the
// map's folder alone. `map` may be empty.
QString WhereItIs(const QString &stored, const QString &map);
// For the map that the window shows.
QString WhereItIs(const QString &stored, MapWindow &window);

// Whether the path names another machine, so that looking there tells that machine about the user.
bool IsOnNetwork(const QString &path);

} // namespace document
