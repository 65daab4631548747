#include "document/clsfrmMain.h"

#include "support/clsPaths.h"

namespace document {

clsfrmMain::clsfrmMain() {
    levels_.LoadDefaults();
    groups_.LoadDefaults();
}

void clsfrmMain::SetDatabase(const QString &path) {
    database_ = support::clsPaths().LongName(path);
    showsLast_ = false;
    if (!database_.isEmpty()) lastDatabase_ = database_;
}

void clsfrmMain::KeepFormer(const QString &former) {
    SetDatabase(former);
    database_.clear();
    showsLast_ = !former.isEmpty();
}

} // namespace document
