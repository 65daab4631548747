// What is wrong with a map, cell by cell.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "document/RepairMap.h"

namespace cli {

// A repair into a scratch file finds what is wrong. The load raises an error when the map does not open.
int Check(QStringList arguments, QTextStream &out) {
    ExpectFiles(arguments, 1);
    Session session;
    const document::RepairReport report = document::RepairMap(arguments[0], session.ScratchFile());
    for (const QString &line : report.lost) out << line << "\n";
    for (const document::Repair &repair : report.repairs) out << document::FindingText(repair) << "\n";
    session.Open(arguments[0]);
    if (report.IsClean()) out << "nothing wrong\n";
    return report.IsClean() ? kGood : kFailed;
}

} // namespace cli
