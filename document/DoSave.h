// Writing a window into its map file.
#pragma once

namespace document {

class MapWindow;

// Writes the whole map: a new file is built beside the old one from template.tpl, flushed and swapped in, so
// that the old map stays whole until the new one is complete. Asks for a path where Database is empty; false
// when that was cancelled, with nothing changed. True at the end of a full save: Database names the file,
// Dirty is false, and the file is compacted. A file of Database that somebody else, be it another window, has
// written to since the window read or wrote it is asked about; false when the user keeps it.
//
// The first save over a file that the window has neither written nor read whole in the program's own form
// keeps that file beside it with the ending .bak, and the status tells so.
//
// An error has DoSave in its source. Until the swap it leaves the file, Database and Dirty as they were;
// nodes that had no key keep the one that they were given. An error of the compaction that follows leaves the
// new file uncompacted.
bool DoSave(MapWindow &frm);

// For developers: while this is on, a save also writes each slice to its companion file (see CompanionFile).
// Off at the start.
void SetWritesCompanions(bool on);

} // namespace document
