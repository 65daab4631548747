#include "document/clsfrmMain.h"

#include "support/clsPaths.h"

namespace document {

clsfrmMain::clsfrmMain() {
    levels_.LoadDefaults();
    groups_.LoadDefaults();
}

void clsfrmMain::SetDatabase(const QString &path) { database_ = support::clsPaths().LongName(path); }

} // namespace document
