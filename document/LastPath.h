// The folder in which the file dialogs for maps start: process-wide, kept in memory alone.
#pragma once

#include <QString>

namespace document {

// With a separator at its end; empty before the first dialog.
const QString &LastPath();
void SetLastPath(const QString &folder);

// The path chosen in the save dialog (bNew) or the open dialog for maps, or an empty text. Starts in the last
// path, at first the user's documents folder, and remembers the folder of the file chosen.
QString GetMapFile(bool bNew);

} // namespace document
