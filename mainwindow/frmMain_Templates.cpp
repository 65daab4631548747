// The bar of templates, by the window's names for it.
#include "mainwindow/frmMain.h"
#include "mainwindow/templates/TemplateBar.h"

namespace mainwindow {

void frmMain::LoadRadBar() { templates_->LoadRadBar(); }

void frmMain::LoadBarDetails(int Bar, const QString &Folder, const QStringList &Files) {
    templates_->LoadBarDetails(Bar, Folder, Files);
}

void frmMain::RB_BarClick(int Bar) { templates_->RB_BarClick(Bar); }
void frmMain::tmrBar_Timer() { templates_->tmrBar_Timer(); }
void frmMain::RB_ItemClick(int Item, int Bar) { templates_->RB_ItemClick(Item, Bar); }

} // namespace mainwindow
