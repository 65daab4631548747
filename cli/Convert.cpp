// Any map to a map of the program's own form.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "document/DoSave.h"

namespace cli {

int Convert(QStringList arguments, QTextStream &out) {
    ExpectFiles(arguments, 2);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    window.clsSettings().SetDatabase(arguments[1]);
    document::DoSave(window);
    // Tells of a former file that was kept.
    if (const QString status = window.statuses.last(); !status.isEmpty()) out << status << "\n";
    return kGood;
}

} // namespace cli
