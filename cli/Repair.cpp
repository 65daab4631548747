// A map out of what can be read of a damaged one.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "document/OwnFiles.h"
#include "document/RepairMap.h"
#include "support/AtomicFile.h"
#include "support/Files.h"

namespace cli {

namespace {

void Show(const document::RepairReport &report, QTextStream &out) {
    for (const QString &line : report.lost) out << line << "\n";
    for (const document::Repair &repair : report.repairs) out << document::RepairText(repair) << "\n";
    if (report.IsClean()) out << "nothing wrong\n";
}

} // namespace

// The target is written only after the repaired map was loaded without an error.
int Repair(QStringList arguments, QTextStream &out) {
    ExpectFiles(arguments, 2);
    Session session;
    const QString repaired = session.ScratchFile();
    const document::RepairReport report = document::RepairMap(arguments[0], repaired);
    session.Open(repaired);
    const QString kept = support::FileExists(arguments[1]) ? document::KeepBeside(arguments[1]) : QString();
    support::CopyFileTo(repaired, arguments[1]);
    Show(report, out);
    if (!kept.isEmpty()) out << "The former file was kept as " << support::FileTitle(kept) << "\n";
    return kGood;
}

} // namespace cli
