// Reading a map file into a window.
#pragma once

#include <QString>

namespace diagram {
class Surface;
}
namespace storage {
class Database;
}

namespace document {

class MapWindow;

// Reads the map that the window's Database names: levels, groups, slices with their nodes and links,
// hyperlinks, attachments. Asks for a path where Database is empty. Leaves the file closed and Dirty false;
// embedded attachments stand in the window's own folder. Gives false, always.
//
// Without memory the load ends with the product's message: the slices read so far stay, and Dirty is not
// touched. An error ends it where it stands and has DoLoad in its source: an engine's error for
// what cannot be opened or lacks a table or column, 6 "Overflow" and 380 "Invalid property value" for numbers
// out of range, 13 "Type mismatch" for a text where a number belongs, 457 for a node key that is there twice,
// 5 for a link to an unknown node, 481 for a picture that is none, 340 and 360 for impossible slice indexes.
// The window then shows what was read and works on. Where memory or an error ended it in the middle, Database
// is empty, so that a save asks for a name, and the caption says so.
bool DoLoad(MapWindow &frm);

// Reads the map of the file `path`, which may be deleted afterwards, as one that was never saved: Database is
// empty, Dirty is true, and the recent files don't list it. Errors are those of DoLoad.
void LoadAsNew(MapWindow &frm, const QString &path, const QString &caption);

// Reads the first slice, the levels and the groups into an empty window, for a preview of a map. Nothing is
// asked, hyperlinks and attachments are not read, and the window gets no path. Gives the slice's surface,
// which the window owns; null for a map without slices, and when memory ran short. Errors are those of
// DoLoad.
diagram::Surface *ReadFirstSlice(MapWindow &frm, storage::Database &database);

// Reads the map of the file `path` into the window to use its content elsewhere: neither the file nor the
// recent files are written to. True when the map was read whole, false when memory ran short. Errors are
// those of DoLoad; 3265 for a map of an early version in the program's own form (see IsOldMap).
bool LoadToRead(MapWindow &frm, const QString &path);

// For a path that is no database: the file of a surface goes into the highest of the slots 0 and 1, and
// Database becomes empty, so that saving asks for a name.
void LoadDiagramFile(MapWindow &frm, const QString &path);

// TITLE, " - " and the file's name: the caption of a window with that map.
QString CaptionFor(const QString &path);

// The caption of a window whose map has no file.
QString UntitledCaption();

// The companion file of a slice: the map's full path, the slice's index and ".tlt".
QString CompanionFile(const QString &path, int slice);

} // namespace document
