#include "recovery/LostMaps.h"

#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <algorithm>
#include <optional>
#include <QDir>
#include <QFileInfo>

namespace recovery {

namespace {

std::optional<LostMap> Lost(const QString &path) {
    HeldFolder folder = HoldFolder(path);
    if (!folder.lock) return std::nullopt;
    if (!QFileInfo::exists(JournalPath(path))) {
        RemoveFolder(std::move(folder));
        return std::nullopt;
    }
    const KeptMap map = ReadJournal(support::ReadWholeFile(JournalPath(path)));
    if (!map.readable || (!map.begun && !map.damaged)) return std::nullopt;
    LostMap lost{std::move(folder), map.frame.path, {}, map.time, map.changes, map.damaged};
    lost.title = lost.path.isEmpty() ? QStringLiteral("Untitled") : support::FileTitle(lost.path);
    if (!lost.time.isValid()) lost.time = QFileInfo(JournalPath(path)).lastModified();
    return lost;
}

} // namespace

std::vector<LostMap> FindLostMaps(const QString &root) {
    std::vector<LostMap> found;
    const QDir folder(root);
    for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        // One that can't be read doesn't keep the others from being offered.
        try {
            if (auto lost = Lost(folder.filePath(name))) found.push_back(std::move(*lost));
        } catch (const support::Error &) {
        }
    }
    std::ranges::stable_sort(found, std::ranges::greater(), &LostMap::time);
    return found;
}

KeptMap ReadLostMap(const LostMap &lost) {
    return ReadJournal(support::ReadWholeFile(JournalPath(lost.folder.path)));
}

} // namespace recovery
