// The compaction that ends each save.
#pragma once

#include <QString>

namespace document {

class MapWindow;

// Rewrites the file without free space, under the hourglass pointer of the window. A copy of the file as it
// was stays in the temporary folder, also after success; with bKeep the compacted copy stays there too. An
// error leaves the file as it was, and in the temporary folder the safety copy alone.
void CompactDb(MapWindow &window, const QString &sFile, bool bKeep, const QString &sPassword);

} // namespace document
