// The folder in which the file dialogs for maps start: process-wide, kept in memory alone.
#pragma once

#include <QString>

namespace document {

// With a separator at its end; empty before the first dialog.
const QString &LastPath();
void SetLastPath(const QString &folder);

// The path chosen in the save dialog (bNew) or the open dialog for maps, or an empty text. The open dialog
// starts in the last path, at first the user's documents folder, the save dialog at PlaceToSave. Remembers
// the folder of the file chosen.
QString GetMapFile(bool bNew, const QString &map = QString());

// Where a save dialog starts: in the folder of the map with that path (empty for none), else in the last
// path, else in the user's documents or home folder, but never in the program's; behind it the map's name, if
// it has one.
QString PlaceToSave(const QString &map);

} // namespace document
