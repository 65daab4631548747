// The compaction that ends each save.
#pragma once

#include <QDateTime>
#include <QString>

namespace document {

class MapWindow;

// Rewrites the file without free space, under the hourglass pointer of the window. A copy of the file as it
// was stays in a folder of the program's own inside the temporary folder, which only the user may read, also
// after success: of each map the newest. With bKeep the compacted copy stays too, in the temporary folder. An
// error leaves the file as it was, and of the two the safety copy alone.
void CompactDb(MapWindow &window, const QString &sFile, bool bKeep, const QString &sPassword);

// Where the safety copies stand; error 75 when there can be no such folder.
QString SafetyCopyFolder();
// Deletes the safety copies that are older than a week, and those of which there is a newer one.
void SweepSafetyCopies(const QDateTime &now);

} // namespace document
