// Any map to a map of the program's own form.
#include "cli/Commands.h"
#include "cli/Session.h"

namespace cli {

int Convert(QStringList arguments, QTextStream &out) {
    ExpectFiles(arguments, 2);
    Session session;
    session.Open(arguments[0]);
    session.SaveAs(arguments[1], out);
    return kGood;
}

} // namespace cli
