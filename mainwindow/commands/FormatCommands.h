// The buttons of the format toolbar: one row each. They work on the selection of the current surface.
#pragma once

#include <QString>

namespace support {
struct Desktop;
}

namespace mainwindow {

class frmMain;

struct FormatRow {
    const char *key;
    void (*routine)(frmMain &);
};
// Null for a key that no button has.
const FormatRow *FindFormat(const QString &key);
// Tells the user that no button has that key, in the words that both toolbars use.
void ShowUnknownButton(support::Desktop &desktop, const QString &key);

} // namespace mainwindow
