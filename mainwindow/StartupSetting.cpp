#include "mainwindow/StartupSetting.h"

#include "app/settings/GetSet.h"
#include "mainwindow/frmMain.h"

namespace mainwindow {

void SetStartupEnabled(bool on) {
    settings::SaveStartupEnabled(on);
    for (frmMain *form : frmMain::Forms()) form->SetMenuValue(QStringLiteral("mnuViewStartup"), on);
}

} // namespace mainwindow
