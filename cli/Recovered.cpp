// The maps of programs that ended before they were saved.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "document/clsfrmMain.h"
#include "document/DoSave.h"
#include "recovery/LostMaps.h"
#include "recovery/Restore.h"
#include "settings/Settings.h"
#include "support/Error.h"
#include "support/Files.h"

namespace cli {

namespace {

void List(const std::vector<recovery::LostMap> &lost, QTextStream &out) {
    if (lost.empty()) out << "nothing is lost\n";
    int number = 0;
    for (const recovery::LostMap &map : lost)
        out << ++number << ": " << map.title << ", " << map.changes
            << (map.changes == 1 ? " change, " : " changes, ") << map.time.toString(Qt::ISODate)
            << (map.damaged ? ", damaged" : "") << (map.path.isEmpty() ? QString() : ", " + map.path) << "\n";
}

// As a new map. Neither the file of the lost map nor its journal is touched, so the editor still offers it.
void Write(const recovery::LostMap &lost, const QString &path) {
    if (support::FileExists(path)) throw UsageError(QStringLiteral("%1 is there already").arg(path));
    Session session;
    document::MemoryWindow &window = session.Window();
    recovery::Restore(window, recovery::ReadLostMap(lost), lost.folder.path);
    window.clsSettings().SetDatabase(path);
    document::DoSave(window);
}

} // namespace

int Recovered(QStringList arguments, QTextStream &out) {
    settings::LoadSettings();
    QString folder = TakeOption(arguments, QStringLiteral("--folder"));
    if (folder.isEmpty()) folder = recovery::JournalsFolder();
    if (!arguments.isEmpty()) ExpectFiles(arguments, 2);
    const std::vector<recovery::LostMap> lost = recovery::FindLostMaps(folder);
    if (arguments.isEmpty()) {
        List(lost, out);
        return kGood;
    }
    const int number = arguments[0].toInt();
    if (number < 1 || number > int(lost.size()))
        throw UsageError(QStringLiteral("there is no lost map with the number %1").arg(arguments[0]));
    Write(lost[std::size_t(number - 1)], arguments[1]);
    return kGood;
}

} // namespace cli
