#include "mainwindow/start/StartupSetting.h"

#include "mainwindow/frmMain.h"
#include "mainwindow/start/StartOffer.h"
#include "settings/GetSet.h"

namespace mainwindow {

void SetStartupEnabled(bool on) {
    settings::SaveStartupEnabled(on);
    for (frmMain *form : frmMain::Forms()) form->SetMenuValue(QStringLiteral("mnuViewStartup"), on);
}

void SetStartPageEnabled(bool on) {
    settings::SaveStartPageEnabled(on);
    for (frmMain *form : frmMain::Forms()) {
        form->SetMenuValue(QStringLiteral("mnuViewStartPage"), on);
        form->Start().ShowSetting(on);
    }
}

} // namespace mainwindow
