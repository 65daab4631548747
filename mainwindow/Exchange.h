// Maps brought in from other files and taken out to them.
#pragma once

#include <QString>

namespace mainwindow {

class frmMain;

// Where the map is saved, under its name with that ending.
QString PlaceBeside(frmMain &window, const QString &ending);

void mnuFileImport(frmMain &window);
void mnuFileExport(frmMain &window);
void mnuFileExportPicture(frmMain &window);

} // namespace mainwindow
