// The compaction that ends each save.
#pragma once

#include <QDateTime>
#include <QString>

namespace document {

class MapWindow;

// Rewrites the file without free space, under the hourglass pointer of the window. Before that the file is
// copied into SafetyCopyFolder, where the newest copy of each map stays whatever comes of the compaction.
// With bKeep the compacted file stays in the temporary folder too. An error leaves the file as it was, and
// nothing but the safety copy besides.
void CompactDb(MapWindow &window, const QString &sFile, bool bKeep, const QString &sPassword);

// The folder of the safety copies, inside the temporary folder and readable by the user alone. Error 75 when
// it can't be made.
QString SafetyCopyFolder();
// Deletes the safety copies that are older than a week, and those of maps of which there is a newer one.
void SweepSafetyCopies(const QDateTime &now);

} // namespace document
